#include "sample/SampleStoreView.h"

#include "sample/SampleLibrary.h"

namespace {

template <class T>
QList<T*> ToList(const CKZList<T*>& list) {
    return QList<T*>(list.begin(), list.end());
}

// The files of a library, by the names that `names` lists and `get` opens.
template <class T>
QList<T*> Files(const QString& library, int (CVorDPMLibraryManager::*names)(QStringList&) const,
                VOR::ErrorStatus (CVorDPMLibraryManager::*get)(const QString&, T*&)) {
    QList<T*> files;
    CVorDPMLibraryManager* owner = SampleStoreView::Library(library);
    QStringList all;
    if (owner) (owner->*names)(all);
    for (const QString& name : all) {
        T* file = nullptr;
        (owner->*get)(name, file);
        if (file) files.append(file);
    }
    return files;
}

}  // namespace

CVorDPMLibraryManager* SampleStoreView::Library(const QString& name) {
    CVorDPMLibraryManager* library = nullptr;
    Manager()->GetLibrary(name, library);
    return library;
}

QList<CVorDPMDPD*> SampleStoreView::Definitions(const QString& library) {
    return Files(library, &CVorDPMLibraryManager::GetAllDPDName, &CVorDPMLibraryManager::GetDPD);
}

QList<CVorDPMDPD*> SampleStoreView::AllDefinitions() {
    QList<CVorDPMDPD*> all;
    for (const QString& library : SampleLibrary::LibraryNames()) all += Definitions(library);
    return all;
}

QList<CVorDPMDPC*> SampleStoreView::Catalogs(const QString& library) {
    return Files(library, &CVorDPMLibraryManager::GetAllDPCName, &CVorDPMLibraryManager::GetDPC);
}

CVorDPMDPD* SampleStoreView::Definition(const QString& name) {
    for (CVorDPMDPD* definition : AllDefinitions())
        if (definition->GetDPDName() == name) return definition;
    return nullptr;
}

QList<CVorDPM_DPD_Property*> SampleStoreView::Properties(CVorDPMDPDBase* file) {
    CKZList<CVorDPM_DPD_Property*> rows;
    file->GetAllProperty(rows, 0);
    return ToList(rows);
}

QList<CVorDPM_DPD_Serial*> SampleStoreView::Series(CVorDPMDPDBase* file) {
    CKZList<CVorDPM_DPD_Serial*> rows;
    file->GetAllSerial(rows, 0);
    return ToList(rows);
}

QList<CVorDPM_DPC_Content*> SampleStoreView::Entries(CVorDPMDPC* catalog) {
    CKZList<CVorDPM_DPC_Content*> rows;
    catalog->GetAllContent(rows, 0);
    return ToList(rows);
}

QHash<QString, QString> SampleStoreView::Values(CVorDPMDPDBase* file,
                                                const CVorDPM_DPD_Serial& row) {
    QHash<QString, QString> values;
    for (CVorDPM_DPD_Property* property : Properties(file))
        values.insert(property->GetParamAlias(), row.GetValue(property->GetObjectId()));
    return values;
}

int SampleStoreView::ProductCount(CVorDPMDPDBase* file) {
    CKZList<CVorDPM_DPD_Product*> rows;
    file->GetAllProduct(rows, 0);
    return rows.GetCount();
}

void SampleStoreView::Reopen(const QString& root, const QString& elsewhere) {
    Manager()->SetDPMLibraryRootPath(elsewhere);
    Manager()->SetDPMLibraryRootPath(root);
}
