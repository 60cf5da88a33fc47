// The product templates of one folder: the platform's at the root, or a library's own.
#pragma once

#include <QStringList>

#include "CVorDPMDPT.h"
#include "CVorDPMFileSet.h"

class VORDPM_API CVorDPMTemplateManager {
public:
    CVorDPMTemplateManager(const QString& folder, const QString& root);
    ~CVorDPMTemplateManager();

    int GetAllDPTName(QStringList& out) const;
    int HasDPT(const QString& name) const;
    VOR::ErrorStatus GetDPT(const QString& name, CVorDPMDPT*& out);
    VOR::ErrorStatus CreateDPT(const QString& name, CVorDPMDPT*& out);
    // A new template holding a copy of the tables of `source` (a definition or template).
    VOR::ErrorStatus CreateDPT(const QString& name, const CVorDPMDPDBase& source, CVorDPMDPT*& out);
    VOR::ErrorStatus RemoveDPT(const QString& name);
    VOR::ErrorStatus RenameDPT(const QString& from, const QString& to);
    VOR::ErrorStatus CopyDPT(const QString& from, const QString& to);

    bool IsChanged() const { return m_templates.IsChanged(); }
    bool Save() { return m_templates.Save(); }

private:
    CVorDPMFileSet<CVorDPMDPT> m_templates;
};
