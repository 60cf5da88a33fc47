// What "vordpm import" prints of a compared file: the columns and how they were matched, the
// numbers of added, changed, unchanged and missing rows, each change, and the cells refused;
// as text, or as one JSON object. Both are made before the change is applied, since applying
// it changes (or removes) the rows they describe.
#pragma once

#include <QJsonObject>
#include <QString>

class FamilyImport;

namespace ImportReport {

QString Text(const FamilyImport& import);
QJsonObject Json(const FamilyImport& import);
// The last line: refused, no changes, written (when `written`) or a dry run.
QString Outcome(const FamilyImport& import, bool written);

}  // namespace ImportReport
