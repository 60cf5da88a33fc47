#include "ImportReport.h"

#include <QJsonArray>
#include <QJsonObject>

#include "CVorDPM_DPD_Serial.h"
#include "FamilyDefinition.h"
#include "FamilyImport.h"
#include "ToolConsole.h"

namespace {

// A text from the file or the store, with control characters escaped as a record shows them.
QString Shown(const QString& text) {
    return ToolConsole::Record({text}).chopped(1);
}

QString RoleText(const FamilyImport& import, int column) {
    const FamilyImportColumn& mapped = import.Columns()[size_t(column)];
    const auto& properties = import.Definition().Properties();
    switch (mapped.role) {
        case FamilyImportColumn::Blank:
            return QStringLiteral("blank");
        case FamilyImportColumn::Fixed:
            return mapped.fixed == FamilyFixedColumns::Name ? QStringLiteral("name (read only)")
                                                            : QStringLiteral("fixed");
        case FamilyImportColumn::Property:
            return QStringLiteral("property %1").arg(properties[size_t(mapped.property)].param);
        case FamilyImportColumn::UnitMismatch:
            return QStringLiteral("skipped: the unit of property %1 is \"%2\"")
                .arg(properties[size_t(mapped.property)].param,
                     properties[size_t(mapped.property)].unit);
        case FamilyImportColumn::Unmatched:
            return QStringLiteral("skipped: no such property");
        case FamilyImportColumn::Added:
            return QStringLiteral("new property");
    }
    return QString();
}

QString KindText(FamilyRowChange::Kind kind) {
    switch (kind) {
        case FamilyRowChange::Added:
            return QStringLiteral("added");
        case FamilyRowChange::Changed:
            return QStringLiteral("changed");
        case FamilyRowChange::Missing:
            return QStringLiteral("missing");
    }
    return QString();
}

QString MissingText(const FamilyImport& import) {
    return import.Options().removeMissing ? QStringLiteral("removed") : QStringLiteral("kept");
}

}  // namespace

QString ImportReport::Outcome(const FamilyImport& import, bool written) {
    if (!import.CanApply()) return QStringLiteral("refused: nothing written");
    if (!import.HasChanges()) return QStringLiteral("no changes");
    return written ? QStringLiteral("written") : QStringLiteral("dry run: nothing written");
}

QString ImportReport::Text(const FamilyImport& import) {
    const FamilyTableLayout& layout = import.Layout();
    QString text;
    QTextStream out(&text);
    out << "header row " << layout.HeaderRow() + 1 << ", key column "
        << Shown(layout.HeadingText(import.KeyColumn())) << "\n";
    for (int column = 0; column < layout.ColumnCount(); ++column)
        if (!layout.IsBlank(column))
            out << "  " << Shown(layout.HeadingText(column)) << ": " << RoleText(import, column)
                << "\n";
    out << "added " << import.AddedCount() << ", changed " << import.ChangedCount()
        << ", unchanged " << import.UnchangedCount() << ", missing " << import.MissingCount()
        << " (" << MissingText(import) << ")\n";
    for (const FamilyRowChange& change : import.Changes()) {
        out << "  " << KindText(change.kind);
        if (change.sheetRow >= 0) out << " row " << change.sheetRow + 1;
        out << ": " << Shown(import.KeyText(change));
        for (size_t i = 0; i < change.columns.size(); ++i) {
            const int column = change.columns[i];
            out << (i == 0 ? ": " : ", ") << Shown(layout.Heading(column).name) << " "
                << Shown(import.StoredText(*change.serial, column)) << " -> "
                << Shown(import.CellValue(change.sheetRow, column));
        }
        out << "\n";
    }
    for (const FamilyProblem& misfit : import.Misfits()) out << "  " << misfit.Message() << "\n";
    if (import.MisfitCount() > int(import.Misfits().size()))
        out << "  ... " << import.MisfitCount() << " cells refused in all\n";
    out.flush();
    return text;
}

QJsonObject ImportReport::Json(const FamilyImport& import) {
    const FamilyTableLayout& layout = import.Layout();
    QJsonArray columns;
    for (int column = 0; column < layout.ColumnCount(); ++column)
        columns.append(QJsonObject{{QStringLiteral("column"), column + 1},
                                   {QStringLiteral("heading"), layout.HeadingText(column)},
                                   {QStringLiteral("match"), RoleText(import, column)}});
    QJsonArray rows;
    for (const FamilyRowChange& change : import.Changes()) {
        QJsonArray cells;
        for (int column : change.columns)
            cells.append(
                QJsonObject{{QStringLiteral("column"), layout.Heading(column).name},
                            {QStringLiteral("before"), import.StoredText(*change.serial, column)},
                            {QStringLiteral("after"), import.CellValue(change.sheetRow, column)}});
        QJsonObject row{{QStringLiteral("kind"), KindText(change.kind)},
                        {QStringLiteral("key"), import.KeyText(change)}};
        if (change.sheetRow >= 0) row.insert(QStringLiteral("row"), change.sheetRow + 1);
        if (!cells.isEmpty()) row.insert(QStringLiteral("cells"), cells);
        rows.append(row);
    }
    QJsonArray problems;
    for (const FamilyProblem& misfit : import.Misfits())
        problems.append(QJsonObject{{QStringLiteral("row"), misfit.row},
                                    {QStringLiteral("column"), misfit.column},
                                    {QStringLiteral("text"), misfit.text}});
    return QJsonObject{{QStringLiteral("headerRow"), layout.HeaderRow() + 1},
                       {QStringLiteral("keyColumn"), import.KeyColumn() + 1},
                       {QStringLiteral("columns"), columns},
                       {QStringLiteral("added"), import.AddedCount()},
                       {QStringLiteral("changed"), import.ChangedCount()},
                       {QStringLiteral("unchanged"), import.UnchangedCount()},
                       {QStringLiteral("missing"), import.MissingCount()},
                       {QStringLiteral("removeMissing"), import.Options().removeMissing},
                       {QStringLiteral("rows"), rows},
                       {QStringLiteral("refused"), import.MisfitCount()},
                       {QStringLiteral("problems"), problems}};
}
