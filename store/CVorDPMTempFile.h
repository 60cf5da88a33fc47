// The temporary file beside a store file that a new file is written into before it takes the
// target's name, or the hidden temporary folder beside a library folder that a copy is built
// in. Its writer holds a lock on it for its whole life, so that a temporary file or folder
// nobody holds is known to be left over from a killed or failed writer and can be removed.
#pragma once

#include <QString>

class CVorDPMTempFile {
public:
    enum Kind { File, Folder };

    // What a temporary name adds to its target's name: ".new-" and 32 hex digits.
    static constexpr int kNameSuffixBytes = 5 + 32;

    // Creates and locks `<target>.new-<uuid>`, or for a folder `<parent>/.<name>.new-<uuid>`
    // (hidden, so that no listing takes it for a library); IsOpen() tells whether that worked.
    explicit CVorDPMTempFile(const QString& target, Kind kind = File);
    // Removes the file or folder unless it was moved into place, then lets go of the lock.
    ~CVorDPMTempFile();
    CVorDPMTempFile(const CVorDPMTempFile&) = delete;
    CVorDPMTempFile& operator=(const CVorDPMTempFile&) = delete;

    bool IsOpen() const { return m_fd >= 0; }
    const QString& Path() const { return m_path; }
    // The file now carries the target's name; nothing is left to remove.
    void MarkMoved() { m_moved = true; }

    // Removes the temporary files (with their journals) and folders in `folder` that no live
    // writer holds; nothing when the folder leads out of the library root `root`.
    static void RemoveStale(const QString& folder, const QString& root);

private:
    QString m_path;
    Kind m_kind;
    int m_fd = -1;
    bool m_moved = false;
};
