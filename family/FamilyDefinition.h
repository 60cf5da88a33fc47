// What family-table work needs to know of a product definition, read once on the thread that
// owns the store: the properties whose values the series rows carry (with their units and the
// value types of their common properties), the names of its products, shapes and pictures, its
// live series rows and how a row is named. Another thread may read rows through it while
// nobody changes the definition.
#pragma once

#include <QCoreApplication>
#include <QHash>
#include <QString>
#include <vector>

#include "FamilyProblem.h"
#include "VorDPMTypes.h"
#include "query/CVorDPMNameRule.h"

class CVorDPMDPDBase;
class CVorDPM_DPD_Serial;

class FamilyDefinition {
    Q_DECLARE_TR_FUNCTIONS(FamilyDefinition)

public:
    struct Property {
        int id = 0;  // the property row's object id, which keys the series values
        QString param;
        QString alias;
        QString unit;
        emVorDPM_VALUETYPE type = emVorDPM_VALUETYPE_STRING;
    };

    explicit FamilyDefinition(CVorDPMDPDBase* dpd);

    // Set when the definition's file cannot be read: its tables are then empty.
    const FamilyProblem& Problem() const { return m_problem; }
    CVorDPMDPDBase* Dpd() const { return m_dpd; }
    QString Name() const;

    // In the order of the property list; properties with the property id -1 carry no values.
    const std::vector<Property>& Properties() const { return m_properties; }
    std::vector<int> PropertyIds() const;
    // The property whose parameter name, else whose alias, is `name` without regard to case;
    // -1 when none is.
    int FindProperty(QStringView name) const;

    const std::vector<CVorDPM_DPD_Serial*>& Rows() const { return m_rows; }
    void AppendRowName(const CVorDPM_DPD_Serial& row, QString& name) const;

    // Names of the rows a series row refers to; empty for an id that names none.
    QString ProductName(int id) const { return m_productNames.value(id); }
    QString ShapeName(int id) const { return m_shapeNames.value(id); }
    QString PictureName(int id) const { return m_pictureNames.value(id); }
    // The object id of the row of that exact name; 0 when there is none.
    int ProductId(const QString& name) const { return m_productIds.value(name); }
    int ShapeId(const QString& name) const { return m_shapeIds.value(name); }
    int PictureId(const QString& name) const { return m_pictureIds.value(name); }
    // The product that new rows get when nothing names one; 0 when the definition has none.
    int FirstProductId() const { return m_firstProduct; }

    // The value type of the common property with that id; text when there is none.
    static emVorDPM_VALUETYPE ValueTypeOf(int propertyId);

    // Whether two unit texts mean the same unit: equal without regard to case, or the name and
    // symbol of one row of the common unit table ("毫米" and "mm").
    bool SameUnit(const QString& a, const QString& b) const;

private:
    void ReadProperties();
    void ReadNamedRows();
    void ReadUnits();

    CVorDPMDPDBase* m_dpd;
    FamilyProblem m_problem;
    std::vector<Property> m_properties;
    std::vector<CVorDPM_DPD_Serial*> m_rows;
    QHash<int, CVorDPMNameRule> m_rules;
    QHash<int, QString> m_productNames, m_shapeNames, m_pictureNames;
    QHash<QString, int> m_productIds, m_shapeIds, m_pictureIds;
    int m_firstProduct = 0;
    // Lower-cased unit names and symbols of the common unit table, by unit row.
    QHash<QString, int> m_units;
};
