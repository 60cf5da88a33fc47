#include "tagVorDPM_Value.h"

tagVorDPM_Value& tagVorDPM_Value::operator=(int value) {
    type = emVorDPM_VALUETYPE_INT;
    intValue = value;
    return *this;
}

tagVorDPM_Value& tagVorDPM_Value::operator=(double value) {
    type = emVorDPM_VALUETYPE_DOUBLE;
    doubleValue = value;
    return *this;
}

tagVorDPM_Value& tagVorDPM_Value::operator=(const QString& value) {
    type = emVorDPM_VALUETYPE_STRING;
    stringValue = value;
    return *this;
}
