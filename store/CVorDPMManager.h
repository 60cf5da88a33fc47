// Root of the store: the library root folder, its libraries, the platform templates and the
// common tables. One per process, reached through GetVorDPMManager().
#pragma once

#include <QStringList>
#include <map>
#include <memory>
#include <vector>

#include "CVorDPMCommonManager.h"
#include "CVorDPMLibraryManager.h"
#include "CVorDPMTemplateManager.h"

class VORDPM_API CVorDPMManager {
public:
    static CVorDPMManager* GetVorDPMManager();

    QString GetDPMLibraryRootPath() const { return m_root; }
    // Switches to another root (created when missing), drops everything loaded from the old one
    // and remembers the choice; nonzero on success.
    int SetDPMLibraryRootPath(const QString& path);

    int GetAllLibraryName(QStringList& out) const;
    VOR::ErrorStatus GetLibrary(const QString& name, CVorDPMLibraryManager*& out);
    VOR::ErrorStatus CreateLibrary(const QString& name, CVorDPMLibraryManager*& out);
    // Moves the library folder to the trash; nonzero on success.
    int RemoveLibrary(const QString& name);
    // Saves the library's pending changes, then renames its folder.
    VOR::ErrorStatus RenameLibrary(const QString& from, const QString& to);
    // Copies the library folder as saved on disk.
    VOR::ErrorStatus CopyLibrary(const QString& source, const QString& to);

    CVorDPMTemplateManager* GetTemplateManager();
    CVorDPMCommonManager* GetCommonManager();

    // Writes every changed file, each in one transaction; 1 when all writes succeeded.
    int SaveWork();
    bool HasUnsavedChanges() const;
    // Forgets every pending change by dropping what was loaded; files are read again on use.
    void DiscardChanges();
    // The reason for the most recent failure of any store operation.
    static QString GetLastErrorText();

    // The root a new process starts with: VORDPM_ROOT, else the remembered choice, else
    // DefaultRootPath().
    static QString InitialRootPath();
    // The folder used when neither VORDPM_ROOT nor a remembered choice names one.
    static QString DefaultRootPath();

private:
    CVorDPMManager();
    void Reset(const QString& root);
    QString LibraryFolder(const QString& name) const;
    VOR::ErrorStatus CheckNewLibraryName(const QString& name) const;
    void Retire(const QString& name);

    QString m_root;
    QStringList m_libraryNames;
    std::map<QString, std::unique_ptr<CVorDPMLibraryManager>> m_libraries;
    std::vector<std::unique_ptr<CVorDPMLibraryManager>> m_retired;
    std::unique_ptr<CVorDPMTemplateManager> m_templates;
    std::unique_ptr<CVorDPMCommonManager> m_common;
};
