// Makes the property of a column that is new to a definition. It stands for a common property
// of the same name and a value type its column fits: one the common property table has, else
// one that the table gains in the group "导入的属性", so that the type guessed from the column
// is kept where the editor looks for the types of properties.
#pragma once

#include <QCoreApplication>
#include <QString>

#include "FamilyProblem.h"
#include "VorDPMTypes.h"

class CVorDPMDPDBase;
class CVorDPM_DPD_Property;

class FamilyNewProperty {
    Q_DECLARE_TR_FUNCTIONS(FamilyNewProperty)

public:
    // Adds the property (and the common property) within the open command; null, with
    // `problem`, when the store refuses it.
    static CVorDPM_DPD_Property* Add(CVorDPMDPDBase* dpd, const QString& name, const QString& unit,
                                     emVorDPM_VALUETYPE type, FamilyProblem& problem);
    // The parameter name for a column named `name`: the characters that separate the tokens of
    // a naming rule ("%", blank, "*") become "_".
    static QString ParamName(const QString& name);
};
