#include "CheckKind.h"

#include <QList>
#include <iterator>

namespace {

struct KindInfo {
    CheckKind kind;
    const char* code;
    CheckSeverity severity;
};

constexpr CheckSeverity E = CheckSeverity::Error;
constexpr CheckSeverity W = CheckSeverity::Warning;

// Indexed by the kind's value.
constexpr KindInfo kKinds[] = {
    {CheckKind::FileUnreadable, "file-unreadable", E},
    {CheckKind::FileDamaged, "file-damaged", E},
    {CheckKind::PictureUndecodable, "picture-undecodable", E},
    {CheckKind::RuleEmpty, "rule-empty", E},
    {CheckKind::RuleNoLiteral, "rule-no-literal", E},
    {CheckKind::RuleUnknownParameter, "rule-unknown-parameter", E},
    {CheckKind::ProductNameDuplicate, "product-name-duplicate", E},
    {CheckKind::ProductNameDuplicateInLibrary, "product-name-duplicate-in-library", W},
    {CheckKind::SeriesProductMissing, "series-product-missing", E},
    {CheckKind::SeriesShapeMissing, "series-shape-missing", E},
    {CheckKind::SeriesPictureMissing, "series-picture-missing", E},
    {CheckKind::ShapeScriptMissing, "shape-script-missing", E},
    {CheckKind::ShapeParameterUnknown, "shape-parameter-unknown", E},
    {CheckKind::ParameterDuplicate, "parameter-duplicate", E},
    {CheckKind::ParameterNotGlobal, "parameter-not-global", E},
    {CheckKind::ValueNotInteger, "value-not-integer", E},
    {CheckKind::ValueNotReal, "value-not-real", E},
    {CheckKind::ValueMissing, "value-missing", E},
    {CheckKind::UnitUnknown, "unit-unknown", W},
    {CheckKind::ContentDefinitionMissing, "content-definition-missing", E},
    {CheckKind::ContentDuplicate, "content-duplicate", E},
    {CheckKind::ContentLevelGap, "content-level-gap", E},
    {CheckKind::ReferenceLibraryMissing, "reference-library-missing", W},
    {CheckKind::ReferenceCatalogMissing, "reference-catalog-missing", W},
    {CheckKind::ScriptError, "script-error", E},
    {CheckKind::ScriptLimit, "script-limit", E},
    {CheckKind::ScriptDrawsNothing, "script-draws-nothing", E},
    {CheckKind::ScriptSandboxFailure, "script-sandbox-failure", E},
};

constexpr bool IndexedByKind() {
    for (std::size_t i = 0; i < std::size(kKinds); ++i)
        if (static_cast<std::size_t>(kKinds[i].kind) != i) return false;
    return std::size(kKinds) == static_cast<std::size_t>(CheckKind::ScriptSandboxFailure) + 1;
}
static_assert(IndexedByKind(), "one entry per kind, in the enumeration's order");

const KindInfo& InfoOf(CheckKind kind) {
    return kKinds[static_cast<int>(kind)];
}

}  // namespace

QString CheckKinds::Code(CheckKind kind) {
    return QString::fromLatin1(InfoOf(kind).code);
}

CheckSeverity CheckKinds::Severity(CheckKind kind) {
    return InfoOf(kind).severity;
}

const QList<CheckKind>& CheckKinds::All() {
    static const QList<CheckKind> all = [] {
        QList<CheckKind> kinds;
        for (const KindInfo& info : kKinds) kinds.append(info.kind);
        return kinds;
    }();
    return all;
}
