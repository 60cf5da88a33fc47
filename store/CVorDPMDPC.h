// A product catalog: entries that place product definitions under up to three classification
// levels, and references to catalogs of other libraries. Get…, GetAll… and Add… follow the row
// access rules of CVorDPMDBBase.
#pragma once

#include "CVorDPMDBBase.h"
#include "CVorDPM_DPC_Content.h"
#include "CVorDPM_DPC_Include.h"

class CVorDPMDPD;
class CVorDPMLibraryManager;

class VORDPM_API CVorDPMDPC : public CVorDPMDBBase {
public:
    // The catalog `name` of the library `libraryName`, kept by `library` (null for a copy that
    // no library object holds).
    CVorDPMDPC(CVorDPMStorage* storage, const QString& libraryName, const QString& name,
               CVorDPMLibraryManager* library);

    const QString& GetDPCName() const { return GetName(); }
    CVorDPMLibraryManager* GetVorDPMLibraryManager() const { return m_library; }

    VOR::ErrorStatus GetAllContent(CKZList<CVorDPM_DPC_Content*>& out, int filter = 0);
    // Entries whose three classification texts equal the given ones exactly (case-sensitive).
    VOR::ErrorStatus GetAllContent(const QString& level0, const QString& level1,
                                   const QString& level2, CKZList<CVorDPM_DPC_Content*>& out,
                                   int filter = 0);
    // Entries whose classification text of one level equals `text` exactly.
    VOR::ErrorStatus GetAllContent(CVorDPM_DPC_Content::ProductType level, const QString& text,
                                   CKZList<CVorDPM_DPC_Content*>& out, int filter = 0);
    VOR::ErrorStatus GetContent(int id, CVorDPM_DPC_Content*& out, int filter = 0);
    VOR::ErrorStatus AddContent(CVorDPM_DPC_Content* content);
    // Marks every entry of that product definition deleted; 2003 when there is none.
    VOR::ErrorStatus RemoveContent(const QString& dpdName);
    // Nonzero when a live entry names that definition (compared without regard to case).
    int HasDPD(const QString& dpdName);
    // The definition an entry names, in this catalog's library: the statuses of
    // CVorDPMLibraryManager::GetDPD, or eFail for a null entry.
    VOR::ErrorStatus GetDPD(const CVorDPM_DPC_Content* content, CVorDPMDPD*& out);

    VOR::ErrorStatus GetAllInclude(CKZList<CVorDPM_DPC_Include*>& out, int filter = 0);
    // The live reference to that library's catalog, both compared without regard to case.
    VOR::ErrorStatus GetInclude(const QString& library, const QString& catalog,
                                CVorDPM_DPC_Include*& out, int filter = 0);
    VOR::ErrorStatus AddInclude(CVorDPM_DPC_Include* include);

private:
    template <class Predicate>
    void AppendMatching(CKZList<CVorDPM_DPC_Content*>& out, Predicate&& keep) const;

    CVorDPMLibraryManager* m_library;
    CVorDPMTable* m_contents;
    CVorDPMTable* m_includes;
};
