// Result codes and value-type enumeration shared by the store, the editor and the host.
#pragma once

namespace VOR {

// Result of every store operation. Callers compare with eOk only; 2001 and 2002 select a message.
enum ErrorStatus {
    eFail = 0,
    eOk = 1,
    eNameExists = 2001,
    eRequiredEmpty = 2002,
    eNotFound = 2003,
    eInvalidName = 2004,
    eFileError = 2005,
};

}  // namespace VOR

// Type of a parameter or common-property value.
enum emVorDPM_VALUETYPE {
    emVorDPM_VALUETYPE_UNKNOWN = 0,
    emVorDPM_VALUETYPE_INT = 1,
    emVorDPM_VALUETYPE_DOUBLE = 2,
    emVorDPM_VALUETYPE_STRING = 3,
};
