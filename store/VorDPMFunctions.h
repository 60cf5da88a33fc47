// Free helper functions of the store: splitting, type names, GUIDs and text conversion.
#pragma once

#include <QString>
#include <QStringList>

#include "VorDPMExport.h"
#include "VorDPMTypes.h"

namespace VOR {

// Appends the parts of `text` between occurrences of the `delimiter` string; empty parts are
// skipped.
VORDPM_API void ParseString(const QString& text, const QString& delimiter, QStringList& out);
VORDPM_API QString TranslateType(emVorDPM_VALUETYPE type);
VORDPM_API QString CreateGuid();
// Script texts are stored as UTF-8 bytes.
VORDPM_API void MByteToWChar(const char* bytes, int length, QString& out);
// `out` is allocated with new[] and zero-terminated; `length` excludes the terminator.
VORDPM_API void WCharToMByte(const QString& text, char*& out, int& length);

}  // namespace VOR
