// Fills the three common tables of the root (properties, units, built-in parameters) and
// tells the product definitions the id, unit and group of each common property.
#pragma once

#include <QHash>
#include <QString>

class CVorDPMCommonManager;

class SampleCommonTables {
public:
    struct Property {
        int id = 0;
        QString group;
        QString unit;
        QString description;
        int valueType = 0;
    };

    // Adds the groups and rows that the tables lack (matched by name), so that a root's own
    // common rows are kept and nothing is added twice. False with a reason.
    bool Write(CVorDPMCommonManager* common, QString& error);
    // The common property of that name, or null when the tables do not hold it.
    const Property* Find(const QString& name) const;

private:
    bool WriteProperties(CVorDPMCommonManager* common, QString& error);
    bool WriteUnits(CVorDPMCommonManager* common, QString& error);
    bool WriteInnerParams(CVorDPMCommonManager* common, QString& error);

    QHash<QString, Property> m_properties;
};
