#include "CDPMSeriesModel.h"

#include "CVorDPMDPD.h"
#include "product/VorDPMDefinitionTable.h"
#include "query/CVorDPMNameRule.h"

CDPMSeriesModel::CDPMSeriesModel(QObject* parent) : QAbstractTableModel(parent) {}

bool CDPMSeriesModel::SetDefinition(CVorDPMDPD* dpd) {
    beginResetModel();
    m_dpd = dpd;
    const bool read = Read();
    endResetModel();
    return read;
}

bool CDPMSeriesModel::Read() {
    m_rows.clear();
    m_names.clear();
    m_properties.clear();
    m_heads = QStringList{tr("产品")};
    if (!m_dpd) return true;
    CKZList<CVorDPM_DPD_Property*> properties;
    CKZList<CVorDPM_DPD_Serial*> serials;
    if (m_dpd->GetAllProperty(properties, 0) != VOR::eOk ||
        m_dpd->GetAllSerial(serials, 0) != VOR::eOk)
        return false;
    for (const CVorDPM_DPD_Property* property : properties) {
        if (!VorDPMDefinitionTables::IsValueProperty(*property)) continue;
        m_properties.push_back(property->GetObjectId());
        m_heads.append(property->GetPropertyAlias());
    }
    const QHash<int, CVorDPMNameRule> rules = NameRules(properties);
    m_rows.reserve(static_cast<size_t>(serials.GetCount()));
    m_names.reserve(static_cast<size_t>(serials.GetCount()));
    for (CVorDPM_DPD_Serial* serial : serials) {
        QString name;
        const auto rule = rules.constFind(serial->GetProductId());
        if (rule != rules.cend()) rule->AppendName(*serial, name);
        m_rows.push_back(serial);
        m_names.push_back(name);
    }
    return true;
}

// Each product's naming rule, prepared once for all of its rows, by the product's object id.
QHash<int, CVorDPMNameRule> CDPMSeriesModel::NameRules(
    const CKZList<CVorDPM_DPD_Property*>& properties) const {
    CKZList<CVorDPM_DPD_Product*> products;
    m_dpd->GetAllProduct(products, 0);
    QHash<int, CVorDPMNameRule> rules;
    for (const CVorDPM_DPD_Product* product : products) {
        CVorDPMNameRule rule(product->GetNameRule());
        for (const CVorDPM_DPD_Property* property : properties)
            rule.AddProperty(property->GetObjectId(), property->GetParamAlias());
        rules.insert(product->GetObjectId(), std::move(rule));
    }
    return rules;
}

CVorDPM_DPD_Serial* CDPMSeriesModel::GetSerial(int row) const {
    if (row < 0 || row >= rowCount()) return nullptr;
    return m_rows[static_cast<size_t>(row)];
}

int CDPMSeriesModel::RowOf(int serialId) const {
    for (size_t row = 0; row < m_rows.size(); ++row)
        if (m_rows[row]->GetObjectId() == serialId) return static_cast<int>(row);
    return -1;
}

int CDPMSeriesModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int CDPMSeriesModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_heads.size());
}

QVariant CDPMSeriesModel::data(const QModelIndex& index, int role) const {
    if (role != Qt::DisplayRole || !index.isValid()) return {};
    const auto row = static_cast<size_t>(index.row());
    if (index.column() == 0) return m_names[row];
    return m_rows[row]->GetValue(m_properties[static_cast<size_t>(index.column() - 1)]);
}

QVariant CDPMSeriesModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    if (section < 0 || section >= m_heads.size()) return {};
    return m_heads[section];
}
