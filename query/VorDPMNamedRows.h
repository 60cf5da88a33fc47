// The series rows of a definition with the names their products' naming rules give them, read
// from any source of rows: the file as saved (CVorDPMStoredRows) or the rows held in memory
// (VorDPMNamedRows::LiveRows). A source offers `template <class Row> bool ForEach(visit)` that
// calls visit(const Row&) in table order and says whether the table could be read.
#pragma once

#include <QHash>
#include <QString>
#include <utility>
#include <vector>

#include "CVorDPMDBBase.h"
#include "CVorDPM_DPD_Product.h"
#include "CVorDPM_DPD_Property.h"
#include "CVorDPM_DPD_Serial.h"
#include "query/CVorDPMNameRule.h"

namespace VorDPMNamedRows {

// The rows of a file held in memory, as a source.
class LiveRows {
public:
    explicit LiveRows(const CVorDPMDBBase& file) : m_file(file) {}

    template <class Row, class Visitor>
    bool ForEach(Visitor&& visit) {
        if (!m_file.EnsureLoaded()) return false;
        m_file.ForEachLiveRow<Row>([&visit](const Row* row) { visit(*row); });
        return true;
    }

private:
    const CVorDPMDBBase& m_file;
};

// The naming rule of each product by its object id, made ready for the definition's properties.
template <class Source>
bool ReadRules(Source& rows, QHash<int, CVorDPMNameRule>& rules) {
    std::vector<std::pair<int, QString>> properties;
    const bool read =
        rows.template ForEach<CVorDPM_DPD_Property>([&](const CVorDPM_DPD_Property& row) {
            properties.emplace_back(row.GetObjectId(), row.GetParamAlias());
        });
    return read && rows.template ForEach<CVorDPM_DPD_Product>([&](const CVorDPM_DPD_Product& row) {
        CVorDPMNameRule rule(row.GetNameRule());
        for (const auto& [id, paramAlias] : properties) rule.AddProperty(id, paramAlias);
        rules.insert(row.GetObjectId(), std::move(rule));
    });
}

// Calls visit(const CVorDPM_DPD_Serial&, const QString& name) for each series row in table
// order; the name is empty where the rule gives none. One text is reused for every row.
template <class Source, class Visitor>
bool ForEachNamed(Source& rows, Visitor&& visit) {
    QHash<int, CVorDPMNameRule> rules;
    if (!ReadRules(rows, rules)) return false;
    QString name;
    return rows.template ForEach<CVorDPM_DPD_Serial>([&](const CVorDPM_DPD_Serial& row) {
        name.truncate(0);
        const auto rule = rules.constFind(row.GetProductId());
        if (rule != rules.cend()) rule->AppendName(row, name);
        visit(row, name);
    });
}

}  // namespace VorDPMNamedRows
