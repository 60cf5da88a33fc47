#include "CVorDPMCacheTableManger.h"

#include "CVorDPMDPDBase.h"

CVorDPMCacheTableManger::CVorDPMCacheTableManger(CVorDPMDPDBase& definition) {
    CKZList<CVorDPM_DPD_Property*> properties;
    definition.GetAllProperty(properties);
    std::vector<int> propertyIds;
    for (const CVorDPM_DPD_Property* property : properties) {
        m_columns.append(property->GetParamAlias());
        propertyIds.push_back(property->GetObjectId());
    }
    CKZList<CVorDPM_DPD_Serial*> serials;
    definition.GetAllSerial(serials);
    m_rows.reserve(serials.GetCount());
    for (const CVorDPM_DPD_Serial* serial : serials) {
        m_rowByKey.insert(serial->GetKey(), static_cast<int>(m_rows.size()));
        m_rows.push_back(serial->GetValues(propertyIds));
    }
}

int CVorDPMCacheTableManger::FindRow(const QString& serialKey) const {
    return m_rowByKey.value(serialKey, -1);
}

QString CVorDPMCacheTableManger::GetValue(int row, const QString& paramAlias) const {
    if (row < 0 || row >= GetRowCount()) return {};
    for (int column = 0; column < m_columns.size(); ++column)
        if (m_columns[column].compare(paramAlias, Qt::CaseInsensitive) == 0)
            return m_rows[row].value(column);
    return {};
}
