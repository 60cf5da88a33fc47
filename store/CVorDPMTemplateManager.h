// The product templates of one folder: the platform's at the root, or a library's own. Owned by
// the store, like the templates it hands out (see CVorDPMManager for invalidation and threading).
#pragma once

#include <QStringList>
#include <memory>
#include <vector>

#include "CVorDPMDPT.h"

class CVorDPMStorage;
template <class T>
class CVorDPMFileSet;

class VORDPM_API CVorDPMTemplateManager {
public:
    // The templates of `library`, or of the root for an empty name.
    CVorDPMTemplateManager(CVorDPMStorage* storage, const QString& library);
    ~CVorDPMTemplateManager();

    // Appends the template names, sorted case-insensitively; always 1.
    int GetAllDPTName(QStringList& out) const;
    // 1 when a template of that name exists (any letter case), else 0.
    int HasDPT(const QString& name) const;
    // eOk with `out` set, or eNotFound with `out` left as it was; the file is read on the
    // first use of its tables.
    VOR::ErrorStatus GetDPT(const QString& name, CVorDPMDPT*& out);
    // Creates the file at once: eOk with `out` set; eInvalidName, eNameExists or eFileError
    // with `out` left as it was.
    VOR::ErrorStatus CreateDPT(const QString& name, CVorDPMDPT*& out);
    // A new template holding a copy of the tables of `source` (a definition or template); the
    // statuses of the first form, or eFileError when `source` cannot be read.
    VOR::ErrorStatus CreateDPT(const QString& name, const CVorDPMDPDBase& source, CVorDPMDPT*& out);
    // Moves the file to the trash: eOk, eNotFound or eFileError; the object stays valid.
    VOR::ErrorStatus RemoveDPT(const QString& name);
    // eOk, eNotFound, eInvalidName, eNameExists or eFileError; the object follows the file.
    VOR::ErrorStatus RenameDPT(const QString& from, const QString& to);
    // A new template with the rows of `from`: eNotFound, or the statuses of CreateDPT.
    VOR::ErrorStatus CopyDPT(const QString& from, const QString& to);

    bool IsChanged() const;
    // Appends every loaded template that has changes.
    void CollectChanged(std::vector<CVorDPMDBBase*>& out) const;

private:
    std::unique_ptr<CVorDPMFileSet<CVorDPMDPT>> m_templates;
};
