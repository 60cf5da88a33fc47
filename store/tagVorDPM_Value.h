// Tagged parameter value handed from the editor to the host's preview.
#pragma once

#include <QString>

#include "VorDPMExport.h"
#include "VorDPMTypes.h"

struct VORDPM_API tagVorDPM_Value {
    tagVorDPM_Value() = default;
    tagVorDPM_Value& operator=(int value);
    tagVorDPM_Value& operator=(double value);
    tagVorDPM_Value& operator=(const QString& value);

    emVorDPM_VALUETYPE type = emVorDPM_VALUETYPE_UNKNOWN;
    int intValue = 0;
    double doubleValue = 0.0;
    QString stringValue;
};
