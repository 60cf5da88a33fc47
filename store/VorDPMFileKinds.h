// Internal: the kinds of store container (each with the application id written into its file),
// the schema version, and where each kind lies under the library root.
#pragma once

#include <QString>
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

// The name of a library's information container ("library.DPI").
QString LibraryInfoName();
// The extension of a kind's files, with its dot: ".DPC", ".DPD", ".DPT", ".DPI", ".DPO".
QString Extension(quint32 kind);
// The folder, relative to the root, that holds the containers of a kind of `library` (empty
// for the root's own templates and common tables): "<library>", "<library>/templates",
// "templates" or "".
QString Folder(const QString& library, quint32 kind);
// Folder(library, kind) and "<name><extension>", joined.
QString RelativePath(const QString& library, quint32 kind, const QString& name);

}  // namespace VorDPMFileKinds
