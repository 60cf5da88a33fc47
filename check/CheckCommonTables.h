// What the root's common tables tell the check of a definition: the value type of each common
// property and the names and symbols of the units. Read once, as saved. A table file that exists
// but cannot be read is reported, and the checks that need it are left out; a root without the
// files (nothing made them yet) has nothing to report.
#pragma once

#include <QHash>
#include <QSet>
#include <QString>
#include <QVector>

#include "CheckFinding.h"
#include "VorDPMTypes.h"

class CheckCommonTables {
public:
    // Checks the three common tables of the store's root and reads the properties and units;
    // returns how many of them the root has.
    int Read(QVector<CheckFinding>& findings);

    // UNKNOWN when the common property table has no such row (or could not be read).
    emVorDPM_VALUETYPE TypeOf(int propertyId) const {
        return m_types.value(propertyId, emVorDPM_VALUETYPE_UNKNOWN);
    }
    // Whether the unit table was read: otherwise no unit can be judged.
    bool KnowsUnits() const { return m_unitsRead; }
    // Whether a unit of that name or symbol exists.
    bool HasUnit(const QString& unit) const { return m_units.contains(unit); }

private:
    QHash<int, emVorDPM_VALUETYPE> m_types;
    QSet<QString> m_units;
    bool m_unitsRead = false;
};
