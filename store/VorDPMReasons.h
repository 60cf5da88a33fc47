// Internal: the reasons that several parts of the store give for a refusal, each set as the
// last error (see VorDPMLastError) with the status that goes with it. Like every text of the
// store they are Chinese source texts in the context "VorDPMStore", translated by whatever
// translator the program installed (the editor's English catalog holds them).
#pragma once

#include <QString>
#include <initializer_list>

#include "VorDPMTypes.h"

namespace VorDPMReasons {

// A failure code of a library the store calls, with the store's text for it
// (QT_TRANSLATE_NOOP("VorDPMStore", ...)).
struct CodeText {
    int code;
    const char* text;
};

// The translated text of `code` in `table`; else `fallback` with the code for its %1.
QString TextOf(std::initializer_list<CodeText> table, int code, const char* fallback);

// eOk for a usable name (VorDPMNames::IsValidName); else eInvalidName, saying why.
VOR::ErrorStatus CheckName(const QString& name);
// eNameExists: a library, catalog, definition or template of that name exists.
VOR::ErrorStatus NameExists(const QString& name);
// eNotFound: there is none of that name.
VOR::ErrorStatus NotFound(const QString& name);
// eFileError: a folder the store listed is gone (another process removed or renamed it).
VOR::ErrorStatus FolderGone(const QString& folder);
// A container changed by another process since this one read it.
QString ChangedElsewhere(const QString& path);
// A container removed or renamed by another process since this one read it.
QString GoneElsewhere(const QString& path);
// Something other than a regular file (a folder, a named pipe) where a store file is expected.
QString NotARegularFile(const QString& path);

}  // namespace VorDPMReasons
