// The heading of a family table's column: a parameter name with its unit, written "D [mm]" by
// the export; "D (mm)", "D（mm）" and the "D##LENGTH##mm" of other CAD type catalogs are read
// too.
#pragma once

#include <QString>
#include <QStringView>

struct FamilyHeading {
    QString name;
    QString unit;
    bool hasUnit = false;

    // Splits a heading into its name and unit; a heading without either form is all name.
    static FamilyHeading Parse(QStringView text);
    // "name [unit]", or the name alone when the unit is empty.
    static QString Format(const QString& name, const QString& unit);
};
