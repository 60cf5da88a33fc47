#include "NamesCommand.h"

#include <QHash>
#include <algorithm>
#include <array>
#include <charconv>
#include <utility>
#include <vector>

#include "CVorDPMDPD.h"
#include "CVorDPMStoredRows.h"
#include "ToolLookup.h"
#include "query/CVorDPMNameRule.h"

namespace {

// The naming rule of each product by its object id, made ready for the definition's properties.
// Read from the file as the series rows are, so that a large table is never held in memory.
bool ReadRules(CVorDPMStoredRows& rows, QHash<int, CVorDPMNameRule>& rules) {
    std::vector<std::pair<int, QString>> properties;
    const bool read = rows.ForEach<CVorDPM_DPD_Property>([&](const CVorDPM_DPD_Property& row) {
        properties.emplace_back(row.GetObjectId(), row.GetParamAlias());
    });
    return read && rows.ForEach<CVorDPM_DPD_Product>([&](const CVorDPM_DPD_Product& row) {
        CVorDPMNameRule rule(row.GetNameRule());
        for (const auto& [id, paramAlias] : properties) rule.AddProperty(id, paramAlias);
        rules.insert(row.GetObjectId(), std::move(rule));
    });
}

// The id as text in a buffer of the caller's, so that naming a large table makes no text per id.
QStringView IdText(int id, std::array<char16_t, 12>& buffer) {
    char digits[12];
    const char* end = std::to_chars(digits, digits + sizeof digits, id).ptr;
    std::copy(static_cast<const char*>(digits), end, buffer.begin());
    return QStringView(buffer.data(), end - digits);
}

}  // namespace

QString NamesCommand::Summary() const {
    return QStringLiteral(
        "Prints ID, KEY and NAME of every series row of the product definition PRODUCT,\n"
        "separated by tabs, in table order. NAME is empty where the naming rule gives none.");
}

int NamesCommand::Execute(const QCommandLineParser& parser, ToolConsole& console) {
    const QStringList arguments = parser.positionalArguments();
    ToolLookup lookup(console);
    CVorDPMDPD* dpd = nullptr;
    const std::unique_ptr<CVorDPMStoredRows> rows =
        lookup.DefinitionRows(arguments[0], arguments[1], dpd);
    if (!rows) return ToolConsole::NotFound;
    QHash<int, CVorDPMNameRule> rules;
    if (!ReadRules(*rows, rules)) return lookup.Unreadable(*rows, *dpd);
    // Kept from row to row, so that naming a large table makes no text per row.
    std::array<char16_t, 12> id;
    QString name;
    const bool read = rows->ForEach<CVorDPM_DPD_Serial>([&](const CVorDPM_DPD_Serial& row) {
        name.truncate(0);
        const auto rule = rules.constFind(row.GetProductId());
        if (rule != rules.cend()) rule->AppendName(row, name);
        console.WriteRecord({IdText(row.GetObjectId(), id), row.GetKey(), name});
    });
    return read ? ToolConsole::Success : lookup.Unreadable(*rows, *dpd);
}
