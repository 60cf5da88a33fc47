#include "CVorDPMContentAdder.h"

#include <memory>

#include "CVorDPMDPC.h"
#include "query/CVorDPMData.h"

CVorDPMContentAdder::CVorDPMContentAdder(CVorDPMDPC* catalog, const QString& class1,
                                         const QString& class2, const QString& class3)
    : m_catalog(catalog), m_classes{class1, class2, class3} {}

CVorDPMContentAdder::Result CVorDPMContentAdder::Add(const QString& product) const {
    if (!m_catalog) return Failed;
    auto row = std::make_unique<CVorDPM_DPC_Content>();
    row->SetDPD(product);
    row->SetType(CVorDPM_DPC_Content::FirstType, m_classes[0]);
    row->SetType(CVorDPM_DPC_Content::SecondType, m_classes[1]);
    row->SetType(CVorDPM_DPC_Content::ThirdType, m_classes[2]);
    if (CVorDPMData::HasDPCRecord(m_catalog, row.get())) return AlreadyPresent;
    // The catalog owns the row from here on, whether or not it takes it.
    return m_catalog->AddContent(row.release()) == VOR::eOk ? Added : Failed;
}
