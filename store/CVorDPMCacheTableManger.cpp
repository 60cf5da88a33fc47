#include "CVorDPMCacheTableManger.h"

#include "CVorDPMDPDBase.h"

CVorDPMCacheTableManger::CVorDPMCacheTableManger(CVorDPMDPDBase& definition) {
    CKZList<CVorDPM_DPD_Property*> properties;
    definition.GetAllProperty(properties);
    for (const CVorDPM_DPD_Property* property : properties) {
        m_columns.append(property->GetParamAlias());
        m_properties.push_back(property->GetObjectId());
    }
    CKZList<CVorDPM_DPD_Serial*> serials;
    definition.GetAllSerial(serials);
    m_rows.reserve(serials.GetCount());
    m_keys.reserve(serials.GetCount());
    for (const CVorDPM_DPD_Serial* serial : serials) {
        m_keys.push_back(serial->GetKey());
        m_rows.push_back(serial->GetPackedValues());
    }
}

int CVorDPMCacheTableManger::FindRow(const QString& serialKey) const {
    if (m_rowByKey.isEmpty()) {
        m_rowByKey.reserve(static_cast<qsizetype>(m_keys.size()));
        for (size_t row = 0; row < m_keys.size(); ++row)
            m_rowByKey.insert(m_keys[row], static_cast<int>(row));
    }
    return m_rowByKey.value(serialKey, -1);
}

QString CVorDPMCacheTableManger::GetValue(int row, const QString& paramAlias) const {
    if (row < 0 || row >= GetRowCount()) return {};
    for (int column = 0; column < m_columns.size(); ++column)
        if (m_columns[column].compare(paramAlias, Qt::CaseInsensitive) == 0)
            return CVorDPM_DPD_Serial::ValueIn(m_rows[row], m_properties[column]);
    return {};
}
