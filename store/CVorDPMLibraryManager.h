// One product library: a folder holding its catalogs, product definitions, information file
// and templates.
#pragma once

#include <QStringList>
#include <memory>

#include "CVorDPMDPC.h"
#include "CVorDPMDPD.h"
#include "CVorDPMDPI.h"
#include "CVorDPMFileSet.h"
#include "CVorDPMTemplateManager.h"

class CVorDPMManager;

class VORDPM_API CVorDPMLibraryManager {
public:
    CVorDPMLibraryManager(CVorDPMManager* manager, const QString& name, const QString& folder);
    virtual ~CVorDPMLibraryManager();

    const QString& GetLibraryName() const { return m_name; }
    const QString& GetFolder() const { return m_folder; }

    // Names are listed case-insensitively sorted (see docs/store.md).
    int GetAllDPCName(QStringList& out) const;
    int GetAllDPDName(QStringList& out) const;
    VOR::ErrorStatus GetDPC(const QString& name, CVorDPMDPC*& out);
    VOR::ErrorStatus GetDPD(const QString& name, CVorDPMDPD*& out);
    int HasDPD(const QString& name) const;

    VOR::ErrorStatus CreateDPC(const QString& name, CVorDPMDPC*& out);
    VOR::ErrorStatus RemoveDPC(const QString& name);
    VOR::ErrorStatus RenameDPC(const QString& from, const QString& to);
    VOR::ErrorStatus CopyDPC(const QString& source, const QString& to);

    VOR::ErrorStatus CreateDPD(const QString& name, CVorDPMDPD*& out);
    VOR::ErrorStatus CreateDPD(const QString& name, CVorDPMDPT* pattern, CVorDPMDPD*& out);
    VOR::ErrorStatus RemoveDPD(const QString& name);
    // Renames the file and the entries of this library's catalogs that name it.
    VOR::ErrorStatus RenameDPD(const QString& from, const QString& to);
    VOR::ErrorStatus CopyDPD(const QString& source, const QString& to);
    // Saves a definition of this library as a template of `library`, or of the platform when
    // `library` is empty; 2001 when that template exists.
    VOR::ErrorStatus CopyDPDAsDPT(const QString& dpd, const QString& templateName,
                                  const QString& library);

    // Null when the information file exists but cannot be read.
    CVorDPMDPI* GetDPI();
    CVorDPMTemplateManager* GetVorDPMTemplateManager();

    // Entries of the catalogs that this library's catalogs include from other libraries,
    // each included catalog counted once.
    virtual int GetIncludeProductCount();
    // Product definitions of this library.
    virtual int GetLocalProductCount();
    // Writes the local, included and total product counts into the library's information
    // record; only a count that differs marks the record changed. False when the information
    // file cannot be read.
    bool WriteProductCounts();

    bool IsChanged() const;
    bool Save();

private:
    CVorDPMManager* m_manager;
    QString m_name;
    QString m_folder;
    CVorDPMFileSet<CVorDPMDPC> m_catalogs;
    CVorDPMFileSet<CVorDPMDPD> m_definitions;
    std::unique_ptr<CVorDPMDPI> m_info;
    std::unique_ptr<CVorDPMTemplateManager> m_templates;
};
