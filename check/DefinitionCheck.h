// Checks one product definition from its file as saved: its five tables, its naming rules, the
// references between its rows and the values of its series, and prepares the runs of its
// scripts. The file is read in one pass; nothing of it is kept afterwards but what the script
// runs need.
#pragma once

#include <QCoreApplication>
#include <QHash>
#include <QString>
#include <map>
#include <memory>
#include <set>
#include <vector>

#include "CheckFileReport.h"
#include "CheckPictures.h"
#include "CheckScriptRuns.h"
#include "LuaPreviewScript.h"

class CVorDPMDPDBase;
class CVorDPM_DPD_Serial;
class CheckCommonTables;
class CheckedFile;

// What the checks of the definitions of one run share.
struct DefinitionCheckContext {
    const CheckCommonTables& common;
    // How each parameter name reaches a script, by name: the sandbox is asked once for each.
    QHash<QString, LuaPreviewScript::ParameterName>& parameterNames;
    // The product names met so far in the library (case-folded) and the definition that has
    // each; null when the definition is checked on its own.
    QHash<QString, QString>* libraryProducts;
    bool scripts;
};

class DefinitionCheck {
    Q_DECLARE_TR_FUNCTIONS(DefinitionCheck)

public:
    DefinitionCheck(const DefinitionCheckContext& context, CheckFileReport& report);

    void Run(const CVorDPMDPDBase& dpd);
    // The script runs the definition needs; null when there are none.
    std::unique_ptr<CheckScriptRuns> TakeScriptRuns();
    // Its pictures, to decode; null when there are none.
    std::unique_ptr<CheckPictures> TakePictures();

private:
    struct Property {
        int id;
        QString param;
        emVorDPM_VALUETYPE type;
        bool required;
        QString defaultValue;
        // A library's or drawing call's name: a fault once a shape passes it to its script.
        bool nameTaken;
    };

    bool ReadProperties(CheckedFile& file);
    bool ReadProducts(CheckedFile& file);
    bool ReadPictures(CheckedFile& file);
    bool ReadScripts(CheckedFile& file);
    bool ReadShapes(CheckedFile& file);
    bool ReadSeries(CheckedFile& file);
    void CheckRule(int product, const QString& name, const QString& rule);
    void CheckProductName(int product, const QString& name);
    void CheckSeriesRow(const CVorDPM_DPD_Serial& row);
    void CheckValue(const Property& property, const QString& value, int row,
                    const QString& product);
    void AddRun(const CheckScriptRuns::Shape& shape, int row, int product,
                const QStringList& values);
    void AddDefaultRuns();
    LuaPreviewScript::ParameterName NameUse(const QString& param);
    // Reports a property whose name a script cannot use, once, when a shape passes it on.
    void CheckPassedName(size_t property);
    // The property whose parameter name is `param` without regard to case; null when none.
    const Property* PropertyNamed(const QString& param) const;

    const DefinitionCheckContext& m_context;
    CheckFileReport& m_report;
    std::vector<Property> m_properties;
    std::vector<int> m_propertyIds;
    QHash<QString, int> m_paramIndex;  // case-folded parameter name -> property index
    QHash<int, QString> m_products;
    std::set<int> m_pictures;
    std::set<int> m_scripts;
    std::map<int, CheckScriptRuns::Shape> m_shapes;
    // For each shape's parameters, the index of the property it reads (-1 when none).
    std::map<int, std::vector<int>> m_shapeProperties;
    std::set<int> m_shapesInUse;
    std::set<size_t> m_reportedTakenNames;
    std::unique_ptr<CheckScriptRuns> m_runs;
    std::unique_ptr<CheckPictures> m_pictureData;
};
