// Internal: the application ids and schema version written into every store file.
#pragma once

#include <QtGlobal>

namespace VorDPMFileKinds {

constexpr quint32 MakeId(char a, char b, char c, char d) {
    return (quint32(quint8(a)) << 24) | (quint32(quint8(b)) << 16) | (quint32(quint8(c)) << 8) |
           quint32(quint8(d));
}

constexpr quint32 kLibraryInfo = MakeId('V', 'D', 'P', 'I');
constexpr quint32 kCatalog = MakeId('V', 'D', 'P', 'C');
constexpr quint32 kDefinition = MakeId('V', 'D', 'P', 'D');
constexpr quint32 kTemplate = MakeId('V', 'D', 'P', 'T');
constexpr quint32 kCommonProperty = MakeId('V', 'O', 'P', 'R');
constexpr quint32 kCommonUnit = MakeId('V', 'O', 'U', 'N');
constexpr quint32 kCommonInnerParam = MakeId('V', 'O', 'I', 'P');

// Files with a higher schema version come from a newer program and are refused.
constexpr int kSchemaVersion = 1;

}  // namespace VorDPMFileKinds
