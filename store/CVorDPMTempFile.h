// The temporary file beside a store file that a new file is written into before it takes the
// target's name. Its writer holds a lock on it for its whole life, so that a temporary file
// nobody holds is known to be left over from a killed or failed writer and can be removed.
#pragma once

#include <QString>

class CVorDPMTempFile {
public:
    // Creates and locks `<target>.new-<uuid>`; IsOpen() tells whether that worked.
    explicit CVorDPMTempFile(const QString& target);
    // Removes the file unless it was moved into place, then lets go of the lock.
    ~CVorDPMTempFile();
    CVorDPMTempFile(const CVorDPMTempFile&) = delete;
    CVorDPMTempFile& operator=(const CVorDPMTempFile&) = delete;

    bool IsOpen() const { return m_fd >= 0; }
    const QString& Path() const { return m_path; }
    // The file now carries the target's name; nothing is left to remove.
    void MarkMoved() { m_moved = true; }

    // Removes the temporary files (and their journals) in `folder` that no live writer holds.
    static void RemoveStale(const QString& folder);

private:
    QString m_path;
    int m_fd = -1;
    bool m_moved = false;
};
