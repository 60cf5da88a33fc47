#include "sample/SampleStoreView.h"

#include "sample/SampleLibrary.h"

namespace {

template <class T>
QList<T*> ToList(const CKZList<T*>& list) {
    return QList<T*>(list.begin(), list.end());
}

}  // namespace

CVorDPMLibraryManager* SampleStoreView::Library(const QString& name) {
    CVorDPMLibraryManager* library = nullptr;
    Manager()->GetLibrary(name, library);
    return library;
}

QList<CVorDPMDPD*> SampleStoreView::Definitions(const QString& library) {
    QList<CVorDPMDPD*> definitions;
    CVorDPMLibraryManager* owner = Library(library);
    if (!owner) return definitions;
    QStringList names;
    owner->GetAllDPDName(names);
    for (const QString& name : names) {
        CVorDPMDPD* definition = nullptr;
        owner->GetDPD(name, definition);
        if (definition) definitions.append(definition);
    }
    return definitions;
}

QList<CVorDPMDPD*> SampleStoreView::AllDefinitions() {
    QList<CVorDPMDPD*> all;
    for (const QString& library : SampleLibrary::LibraryNames()) all += Definitions(library);
    return all;
}

QList<CVorDPMDPC*> SampleStoreView::Catalogs(const QString& library) {
    QList<CVorDPMDPC*> catalogs;
    CVorDPMLibraryManager* owner = Library(library);
    if (!owner) return catalogs;
    QStringList names;
    owner->GetAllDPCName(names);
    for (const QString& name : names) {
        CVorDPMDPC* catalog = nullptr;
        owner->GetDPC(name, catalog);
        if (catalog) catalogs.append(catalog);
    }
    return catalogs;
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
