#include "NamesCommand.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>
#include <vector>

#include "CVorDPMDPD.h"
#include "CVorDPMStoredRows.h"
#include "ToolLookup.h"
#include "query/VorDPMNamedRows.h"

namespace {

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
    // Read from the file row by row, so that a large table is never held in memory; the id's
    // text is kept from row to row, so that naming a large table makes no text per row.
    std::array<char16_t, 12> id;
    const bool read = VorDPMNamedRows::ForEachNamed(
        *rows, [&](const CVorDPM_DPD_Serial& row, const QString& name) {
            console.WriteRecord({IdText(row.GetObjectId(), id), row.GetKey(), name});
        });
    return read ? ToolConsole::Success : lookup.Unreadable(*rows, *dpd);
}
