#include "CVorDPMDPDBase.h"

#include "VorDPMFunctions.h"

namespace {

template <class T>
VOR::ErrorStatus FindRow(const CVorDPMTable* table, int id, T*& out) {
    CVorDPMObject* row = table->Find(id);
    if (!row) return VOR::eNotFound;
    out = static_cast<T*>(row);
    return VOR::eOk;
}

template <class T>
VOR::ErrorStatus AllRows(const CVorDPMTable* table, CKZList<T*>& out) {
    return table->AppendLive(out) ? VOR::eOk : VOR::eFileError;
}

// 2002 when any required text is empty, 2001 when another live row has an equal unique text.
template <class T, class Texts>
VOR::ErrorStatus CheckRow(const CVorDPMTable* table, const T* row, Texts&& uniqueTexts) {
    if (!row) return VOR::eFail;
    const QStringList own = uniqueTexts(*row);
    for (const QString& text : own)
        if (text.trimmed().isEmpty()) return VOR::eRequiredEmpty;
    for (const CVorDPMObject* other : table->AllRows()) {
        if (other == row || other->IsDeleted()) continue;
        const QStringList theirs = uniqueTexts(*static_cast<const T*>(other));
        for (int i = 0; i < own.size(); ++i)
            if (own[i].compare(theirs[i], Qt::CaseInsensitive) == 0) return VOR::eNameExists;
    }
    return VOR::eOk;
}

}  // namespace

CVorDPMDPDBase::CVorDPMDPDBase(CVorDPMStorage* storage, const QString& library, const QString& name,
                               quint32 applicationId)
    : CVorDPMDBBase(storage, library, name, applicationId) {
    m_properties = AddTable(CVorDPM_DPD_Property::ClassInfo());
    m_images = AddTable(CVorDPM_DPD_Image::ClassInfo());
    m_shapes = AddTable(CVorDPM_DPD_Shape::ClassInfo());
    m_products = AddTable(CVorDPM_DPD_Product::ClassInfo());
    m_serials = AddTable(CVorDPM_DPD_Serial::ClassInfo());
    m_serials->IndexByKey([](const CVorDPMObject& row) {
        return static_cast<const CVorDPM_DPD_Serial&>(row).GetKey();
    });
    m_scripts = AddTable(CVorDPM_DPD_Dps::ClassInfo());
}

VOR::ErrorStatus CVorDPMDPDBase::GetImage(int id, CVorDPM_DPD_Image*& out, int) {
    return FindRow(m_images, id, out);
}
VOR::ErrorStatus CVorDPMDPDBase::GetAllImage(CKZList<CVorDPM_DPD_Image*>& out, int) {
    return AllRows(m_images, out);
}
VOR::ErrorStatus CVorDPMDPDBase::AddImage(CVorDPM_DPD_Image* row) {
    return m_images->Add(row);
}

VOR::ErrorStatus CVorDPMDPDBase::GetProduct(int id, CVorDPM_DPD_Product*& out, int) {
    return FindRow(m_products, id, out);
}
VOR::ErrorStatus CVorDPMDPDBase::GetAllProduct(CKZList<CVorDPM_DPD_Product*>& out, int) {
    return AllRows(m_products, out);
}
VOR::ErrorStatus CVorDPMDPDBase::AddProduct(CVorDPM_DPD_Product* row) {
    return m_products->Add(row);
}

VOR::ErrorStatus CVorDPMDPDBase::GetProperty(int id, CVorDPM_DPD_Property*& out, int) {
    return FindRow(m_properties, id, out);
}
VOR::ErrorStatus CVorDPMDPDBase::GetAllProperty(CKZList<CVorDPM_DPD_Property*>& out, int) {
    return AllRows(m_properties, out);
}
VOR::ErrorStatus CVorDPMDPDBase::AddProperty(CVorDPM_DPD_Property* row) {
    return m_properties->Add(row);
}

VOR::ErrorStatus CVorDPMDPDBase::GetSerial(const QString& key, CVorDPM_DPD_Serial*& out, int) {
    CVorDPMObject* row = m_serials->FindByKey(key);
    if (!row) return VOR::eNotFound;
    out = static_cast<CVorDPM_DPD_Serial*>(row);
    return VOR::eOk;
}
VOR::ErrorStatus CVorDPMDPDBase::GetSerial(int id, CVorDPM_DPD_Serial*& out, int) {
    return FindRow(m_serials, id, out);
}
VOR::ErrorStatus CVorDPMDPDBase::GetAllSerial(CKZList<CVorDPM_DPD_Serial*>& out, int) {
    return AllRows(m_serials, out);
}
VOR::ErrorStatus CVorDPMDPDBase::AddSerial(CVorDPM_DPD_Serial* row) {
    if (row && !row->GetTable() && row->GetKey().isEmpty()) row->SetKey(VOR::CreateGuid());
    return m_serials->Add(row);
}

VOR::ErrorStatus CVorDPMDPDBase::GetShape(int id, CVorDPM_DPD_Shape*& out, int) {
    return FindRow(m_shapes, id, out);
}
VOR::ErrorStatus CVorDPMDPDBase::GetAllShape(CKZList<CVorDPM_DPD_Shape*>& out, int) {
    return AllRows(m_shapes, out);
}
VOR::ErrorStatus CVorDPMDPDBase::AddShape(CVorDPM_DPD_Shape* row) {
    return m_shapes->Add(row);
}

VOR::ErrorStatus CVorDPMDPDBase::GetDps(int id, CVorDPM_DPD_Dps*& out, int) {
    return FindRow(m_scripts, id, out);
}
VOR::ErrorStatus CVorDPMDPDBase::GetAllDps(CKZList<CVorDPM_DPD_Dps*>& out, int) {
    return AllRows(m_scripts, out);
}
VOR::ErrorStatus CVorDPMDPDBase::AddDps(CVorDPM_DPD_Dps* row) {
    return m_scripts->Add(row);
}

VOR::ErrorStatus CVorDPMDPDBase::IsValid(CVorDPM_DPD_Property* row) {
    return CheckRow(m_properties, row, [](const CVorDPM_DPD_Property& p) {
        return QStringList{p.GetPropertyAlias(), p.GetParamAlias()};
    });
}

VOR::ErrorStatus CVorDPMDPDBase::IsValid(CVorDPM_DPD_Image* row) {
    return CheckRow(m_images, row,
                    [](const CVorDPM_DPD_Image& i) { return QStringList{i.GetName()}; });
}

VOR::ErrorStatus CVorDPMDPDBase::IsValid(CVorDPM_DPD_Shape* row) {
    return CheckRow(m_shapes, row,
                    [](const CVorDPM_DPD_Shape& s) { return QStringList{s.GetName()}; });
}

VOR::ErrorStatus CVorDPMDPDBase::IsValid(CVorDPM_DPD_Product* row) {
    return CheckRow(m_products, row,
                    [](const CVorDPM_DPD_Product& p) { return QStringList{p.GetName()}; });
}

VOR::ErrorStatus CVorDPMDPDBase::IsValid(CVorDPM_DPD_Serial* row) {
    if (!row) return VOR::eFail;
    if (!m_products->Find(row->GetProductId())) return VOR::eRequiredEmpty;
    if (row->GetKey().isEmpty()) return VOR::eOk;
    return CheckRow(m_serials, row,
                    [](const CVorDPM_DPD_Serial& s) { return QStringList{s.GetKey()}; });
}
