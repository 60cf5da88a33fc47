#include "ShowCommand.h"

#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

#include "CVorDPMLibraryManager.h"
#include "CVorDPMStoredRows.h"
#include "DefinitionTables.h"
#include "JsonStreamWriter.h"
#include "ToolLookup.h"

namespace {

const QString kJson = QStringLiteral("json");
const QString kValues = QStringLiteral("values");

// Indexes of `keys` in the order in which QJsonObject lists them (plain code-unit order), a
// key given twice once, at its last index (a later insert replaces the earlier one).
std::vector<qsizetype> KeyOrder(const QStringList& keys) {
    std::vector<qsizetype> order;
    for (qsizetype i = keys.size() - 1; i >= 0; --i)
        if (std::none_of(order.cbegin(), order.cend(),
                         [&](qsizetype j) { return keys[j] == keys[i]; }))
            order.push_back(i);
    std::sort(order.begin(), order.end(),
              [&](qsizetype a, qsizetype b) { return keys[a] < keys[b]; });
    return order;
}

// One row of a table as a JSON object: its own columns, and for series rows the property
// values in an object "values".
class JsonRowLayout {
public:
    explicit JsonRowLayout(const DefinitionTables::Table& table) {
        const qsizetype split =
            table.valueColumnsFrom >= 0 ? table.valueColumnsFrom : table.columns.size();
        QStringList keys = table.columns.mid(0, split);
        if (table.valueColumnsFrom >= 0) keys.append(kValues);
        m_ownOrder = KeyOrder(keys);
        m_valuesFrom = split;
        const QStringList valueKeys = table.columns.mid(split);
        m_valueOrder = KeyOrder(valueKeys);
        for (const QString& key : std::as_const(keys)) m_keys.append(JsonStreamWriter::Quoted(key));
        for (const QString& key : valueKeys) m_valueKeys.append(JsonStreamWriter::Quoted(key));
    }

    void Write(JsonStreamWriter& json, const QVariantList& cells) const {
        json.BeginObject();
        for (const qsizetype i : m_ownOrder) {
            json.QuotedKey(m_keys[i]);
            if (i < m_valuesFrom)
                json.Value(cells[i]);
            else
                WriteValues(json, cells);
        }
        json.EndObject();
    }

private:
    void WriteValues(JsonStreamWriter& json, const QVariantList& cells) const {
        json.BeginObject();
        for (const qsizetype i : m_valueOrder) {
            json.QuotedKey(m_valueKeys[i]);
            json.Value(cells[m_valuesFrom + i]);
        }
        json.EndObject();
    }

    // Encoded once for every row.
    QByteArrayList m_keys;
    std::vector<qsizetype> m_ownOrder;
    qsizetype m_valuesFrom = 0;
    QByteArrayList m_valueKeys;
    std::vector<qsizetype> m_valueOrder;
};

bool WriteTable(JsonStreamWriter& json, const DefinitionTables::Table& table) {
    const JsonRowLayout layout(table);
    json.BeginArray();
    if (!table.forEachRow([&](const QVariantList& cells) { layout.Write(json, cells); }))
        return false;
    json.EndArray();
    return true;
}

}  // namespace

QString ShowCommand::Summary() const {
    return QStringLiteral(
        "Prints the properties, pictures, shapes, products and series rows of the product\n"
        "definition PRODUCT: per table a line \"[name]\", a header line and one line per row,\n"
        "fields separated by tabs (tab, newline and backslash escaped as \\t, \\n, \\\\).\n"
        "Pictures show their sizes in bytes; series rows one column per parameter.");
}

QList<QCommandLineOption> ShowCommand::Options() const {
    return {{kJson, QStringLiteral("print one JSON object instead")}};
}

int ShowCommand::Execute(const QCommandLineParser& parser, ToolConsole& console) {
    const QStringList arguments = parser.positionalArguments();
    ToolLookup lookup(console);
    CVorDPMDPD* dpd = nullptr;
    const std::unique_ptr<CVorDPMStoredRows> rows =
        lookup.DefinitionRows(arguments[0], arguments[1], dpd);
    if (!rows) return ToolConsole::NotFound;
    const DefinitionTables tables(*rows,
                                  [&console](const QString& message) { console.Warn(message); });
    if (!tables.IsRead()) return lookup.Unreadable(*rows, *dpd);
    const bool printed = parser.isSet(kJson)
                             ? PrintJson(dpd->GetVorDPMLibraryManager()->GetLibraryName(),
                                         dpd->GetDPDName(), tables, console.Out())
                             : PrintText(tables, console.Out());
    return printed ? ToolConsole::Success : lookup.Unreadable(*rows, *dpd);
}

bool ShowCommand::PrintText(const DefinitionTables& tables, QTextStream& out) {
    bool first = true;
    for (const DefinitionTables::Table& table : tables.Tables()) {
        if (!first) out << '\n';
        first = false;
        out << '[' << table.name << "]\n" << ToolConsole::Record(table.columns);
        const bool read = table.forEachRow([&](const QVariantList& row) {
            QStringList cells;
            for (const QVariant& value : row) cells.append(value.toString());
            out << ToolConsole::Record(cells);
        });
        if (!read) return false;
    }
    return true;
}

// Written as it is made, the members in the order a QJsonObject keeps them, so that the
// output is the indented QJsonDocument of the same object, without holding it in memory.
bool ShowCommand::PrintJson(const QString& library, const QString& product,
                            const DefinitionTables& tables, QTextStream& out) {
    std::vector<std::pair<QString, std::function<bool(JsonStreamWriter&)>>> members{
        {QStringLiteral("library"),
         [&](JsonStreamWriter& json) {
             json.Value(library);
             return true;
         }},
        {QStringLiteral("product"), [&](JsonStreamWriter& json) {
             json.Value(product);
             return true;
         }}};
    for (const DefinitionTables::Table& table : tables.Tables())
        members.emplace_back(table.name,
                             [&table](JsonStreamWriter& json) { return WriteTable(json, table); });
    std::sort(members.begin(), members.end(),
              [](const auto& a, const auto& b) { return a.first < b.first; });
    out.flush();
    JsonStreamWriter json(*out.device());
    json.BeginObject();
    for (const auto& [key, write] : members) {
        json.Key(key);
        if (!write(json)) return false;
    }
    json.EndObject();
    return true;
}
