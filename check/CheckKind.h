// The kinds of fault the library check finds: each with a stable code, for scripts and for the
// list of findings in docs/library-check.md, and its severity.
#pragma once

#include <QString>

enum class CheckSeverity : quint8 { Error, Warning };

enum class CheckKind : quint8 {
    // Files
    FileUnreadable,
    FileDamaged,
    PictureUndecodable,
    // Naming
    RuleEmpty,
    RuleNoLiteral,
    RuleUnknownParameter,
    ProductNameDuplicate,
    ProductNameDuplicateInLibrary,
    // Rows
    SeriesProductMissing,
    SeriesShapeMissing,
    SeriesPictureMissing,
    ShapeScriptMissing,
    ShapeParameterUnknown,
    ParameterDuplicate,
    ParameterNotGlobal,
    ValueNotInteger,
    ValueNotReal,
    ValueMissing,
    UnitUnknown,
    // Catalogs
    ContentDefinitionMissing,
    ContentDuplicate,
    ContentLevelGap,
    ReferenceLibraryMissing,
    ReferenceCatalogMissing,
    // Scripts
    ScriptError,
    ScriptLimit,
    ScriptDrawsNothing,
    ScriptSandboxFailure,
};

namespace CheckKinds {

// The code written in the tool's output, e.g. "series-product-missing".
QString Code(CheckKind kind);
CheckSeverity Severity(CheckKind kind);
// Every kind, in the order above.
const QList<CheckKind>& All();

}  // namespace CheckKinds
