// The script parameters as the script editor's parameter report holds them: category texts,
// test values read by value type, the two maps handed to the host's preview and the three
// joined texts that the shape row keeps.
#pragma once

#include <QString>
#include <QStringList>
#include <map>

#include "VorDPMParam.h"
#include "tagVorDPM_Value.h"

class CVorDPMReportModel;

class CVorDPMScriptParams {
public:
    // Columns of the parameter report.
    enum Column : int { NameColumn = 0, CategoryColumn = 1, OrderColumn = 2, TestValueColumn = 3 };
    enum : int { ColumnCount = 4 };

    // The texts of the two categories a user can choose, in the order they are offered.
    static QStringList CategoryChoices();
    // -1 "Unkonw Parameters", 0 "Design Parameters", 1 "Component parameters"; any other code
    // has no text.
    static QString CategoryText(int code);
    // 0 and 1 for the two category texts exactly as shown (case counts), -1 for anything else.
    static int CategoryCode(const QString& text);

    // The number at the start of `text` after blanks ("12abc" is 12); 0 when there is none.
    static int ReadInteger(const QString& text);
    static double ReadReal(const QString& text);
    // The test value of a parameter: by `valueType` (1 integer, 2 real, 3 text) read from
    // `text`; an empty value for any other type.
    static tagVorDPM_Value TestValue(const QString& text, int valueType);

    // What the preview receives: name -> {category, order} and order -> test value, from the
    // rows with at least four items. A row with a negative order is left out; when two rows
    // share a name or an order, the first row's entry stays.
    struct PreviewMaps {
        std::map<QString, _struParam> params;
        std::map<int, tagVorDPM_Value> values;
    };
    static PreviewMaps CollectPreview(const CVorDPMReportModel& report);

    // What OK writes into the shape row: the rows with exactly four items, by name in plain
    // text order (a repeated name keeps its first row), as names, category codes and the order
    // texts as typed, each joined with ",".
    struct ShapeSettings {
        QString names;
        QString categories;
        QString orders;
    };
    static ShapeSettings CollectShapeSettings(const CVorDPMReportModel& report);
};
