#include "query/CVorDPMData.h"

#include <QRegularExpression>
#include <QTreeWidget>

#include "CVorDPMDPC.h"
#include "CVorDPMDPD.h"
#include "CVorDPMManager.h"
#include "query/CVorDPMNamePattern.h"
#include "query/CVorDPMNameRule.h"
#include "query/VorDPMCatalogued.h"

namespace {

const QString kAnyValue = QStringLiteral("*");
const QString kPathDelimiters = QStringLiteral("/");

// Unlinks every non-null entry for which `drop` holds; the entries themselves are untouched.
template <class Predicate>
void UnlinkEntries(CKZList<CVorDPM_DPC_Content*>& list, Predicate&& drop) {
    for (auto it = list.begin(); it != list.end();) {
        if (*it && drop(**it))
            it = list.RemoveAt(it);
        else
            ++it;
    }
}

}  // namespace

CVorDPMData::CVorDPMData() = default;
CVorDPMData& CVorDPMData::operator=(const CVorDPMData&) {
    return *this;
}
CVorDPMData::~CVorDPMData() = default;

int CVorDPMData::IsEqual(const QString& text, const QString& pattern) {
    return CVorDPMNamePattern(pattern).Matches(text) ? 1 : 0;
}

int CVorDPMData::IsExist(const QString& text, const QString& part) {
    return text.indexOf(part) >= 0 ? 1 : 0;
}

int CVorDPMData::IsExistWildcard(const QString& pattern) {
    return pattern.contains(QLatin1Char('*')) || pattern.contains(QLatin1Char('?')) ? 0 : 1;
}

int CVorDPMData::TransformToRegex(QString& pattern) {
    if (pattern.contains(QLatin1Char('*'))) {
        pattern.replace(QLatin1Char('*'), QStringLiteral(".*"));
        return 1;
    }
    if (pattern.contains(QLatin1Char('?'))) {
        pattern.replace(QLatin1Char('?'), QLatin1Char('.'));
        return 1;
    }
    return 0;
}

int CVorDPMData::IsRegexEqual(const QString& text, const QString& regex) {
    // Lists are filtered by calling this once per entry with the same expression, so the last
    // compiled one is kept rather than compiled again each time. Both start empty, and agree.
    thread_local QString lastPattern;
    thread_local QRegularExpression lastCompiled;
    if (lastPattern != regex) {
        lastCompiled.setPattern(regex);
        lastPattern = regex;
    }
    if (!lastCompiled.isValid()) return 0;
    return lastCompiled.match(text).hasMatch() ? 1 : 0;
}

void CVorDPMData::ParseString(const QString& text, const QString& delimiters, QStringList& out) {
    const auto isDelimiter = [&](QChar c) { return delimiters.contains(c); };
    qsizetype pos = 0;
    const qsizetype size = text.size();
    while (true) {
        while (pos < size && isDelimiter(text[pos])) ++pos;
        const qsizetype start = pos;
        while (pos < size && !isDelimiter(text[pos])) ++pos;
        if (pos == start) return;
        out.append(text.mid(start, pos - start));
    }
}

int CVorDPMData::_DeletSuffix(QString& name) {
    const qsizetype dot = name.lastIndexOf(QLatin1Char('.'));
    if (dot >= 0) name.truncate(dot);
    return 1;
}

int CVorDPMData::ParseProductNameRule(CVorDPMDPD* dpd, CVorDPM_DPD_Serial* serial, QString& name) {
    if (!dpd || !serial) return 0;
    CVorDPM_DPD_Product* product = nullptr;
    dpd->GetProduct(serial->GetProductId(), product, 0);
    if (!product) return 0;
    CVorDPMNameRule rule(product->GetNameRule());
    if (!rule.Names()) return 0;
    dpd->ForEachLiveRow<CVorDPM_DPD_Property>([&](const CVorDPM_DPD_Property* property) {
        rule.AddProperty(property->GetObjectId(), property->GetParamAlias());
    });
    rule.AppendName(*serial, name);
    return 1;
}

int CVorDPMData::ParseProductNameRule(CVorDPMDPD* dpd, const QString& key, QString& name) {
    if (!dpd) return 0;
    CVorDPM_DPD_Serial* serial = nullptr;
    dpd->GetSerial(key, serial, 0);
    return ParseProductNameRule(dpd, serial, name);
}

int CVorDPMData::ParseProductNameRule(CVorDPMDPD* dpd, int serialId, QString& name) {
    if (!dpd) return 0;
    CVorDPM_DPD_Serial* serial = nullptr;
    dpd->GetSerial(serialId, serial, 0);
    return ParseProductNameRule(dpd, serial, name);
}

int CVorDPMData::GetLibraryManger(const QString& library, CVorDPMLibraryManager*& out) {
    CVorDPMManager* manager = CVorDPMManager::GetVorDPMManager();
    if (!manager) return 0;
    manager->GetLibrary(library, out);
    return 1;
}

int CVorDPMData::GetDPCManger(const QString& library, const QString& catalog, CVorDPMDPC*& out) {
    CVorDPMLibraryManager* manager = nullptr;
    GetLibraryManger(library, manager);
    if (!manager) return 0;
    manager->GetDPC(catalog, out);
    return 1;
}

int CVorDPMData::GetDPIInfo(const QString& library, CVorDPM_DPI_Info*& out) {
    CVorDPMLibraryManager* manager = nullptr;
    GetLibraryManger(library, manager);
    if (!manager) return 0;
    CVorDPMDPI* info = manager->GetDPI();
    if (!info) return 0;
    info->GetInfo(out);
    return 1;
}

int CVorDPMData::GetDPOProperty(CVorDPMDPOProperty*& out) {
    CVorDPMManager* manager = CVorDPMManager::GetVorDPMManager();
    if (!manager || !manager->GetCommonManager()) return 0;
    out = manager->GetCommonManager()->GetPropertyDPO();
    return out ? 1 : 0;
}

int CVorDPMData::GetAllLibraryName(std::vector<QString>& out) {
    CVorDPMManager* manager = CVorDPMManager::GetVorDPMManager();
    if (!manager) return 0;
    QStringList names;
    manager->GetAllLibraryName(names);
    out.insert(out.end(), names.cbegin(), names.cend());
    return 1;
}

int CVorDPMData::GetAllDPCName(const QString& library, std::vector<QString>& out) {
    CVorDPMLibraryManager* manager = nullptr;
    GetLibraryManger(library, manager);
    if (!manager) return 0;
    QStringList names;
    manager->GetAllDPCName(names);
    out.insert(out.end(), names.cbegin(), names.cend());
    return 1;
}

int CVorDPMData::GetALLExteriorDPD(const QString& library, CKZList<CVorDPMDPD*>& out) {
    CVorDPMLibraryManager* manager = nullptr;
    GetLibraryManger(library, manager);
    if (!manager) return 0;
    for (const QString& name : VorDPMCatalogued::UncataloguedNames(*manager)) {
        CVorDPMDPD* dpd = nullptr;
        manager->GetDPD(name, dpd);
        if (dpd) out.AddTail(dpd);
    }
    return 1;
}

int CVorDPMData::GetDPCAllType(CVorDPMDPC* catalog, ProductType level, std::set<QString>& out) {
    if (!catalog) return 0;
    CKZList<CVorDPM_DPC_Content*> entries(10);
    catalog->GetAllContent(entries, 0);
    for (const CVorDPM_DPC_Content* entry : entries) {
        QString text = entry->GetType(level);
        if (!text.isEmpty()) out.insert(std::move(text));
    }
    return 1;
}

int CVorDPMData::GetAllMatchContent(CVorDPMDPC* catalog, const QString& level0,
                                    const QString& level1, const QString& level2,
                                    CKZList<CVorDPM_DPC_Content*>& out) {
    if (!catalog) return 0;
    const QString* const filters[] = {&level0, &level1, &level2};
    const bool anyWildcard = std::any_of(std::begin(filters), std::end(filters),
                                         [](const QString* f) { return *f == kAnyValue; });
    if (!anyWildcard) {
        catalog->GetAllContent(level0, level1, level2, out, 0);
        return 1;
    }
    catalog->GetAllContent(out, 0);
    for (int level = CVorDPM_DPC_Content::FirstType; level <= CVorDPM_DPC_Content::ThirdType;
         ++level) {
        if (*filters[level] != kAnyValue)
            FiltrateContentLst(static_cast<ProductType>(level), *filters[level], out);
    }
    return 1;
}

int CVorDPMData::GetAllMatchContent(CVorDPMDPC* catalog, const QString& name, const QString& level0,
                                    const QString& level1, const QString& level2,
                                    CKZList<CVorDPM_DPC_Content*>& out) {
    if (!catalog) return 0;
    GetAllMatchContent(catalog, level0, level1, level2, out);
    if (name == kAnyValue) return 1;
    const CVorDPMNamePattern pattern(name);
    UnlinkEntries(
        out, [&](const CVorDPM_DPC_Content& entry) { return !pattern.Matches(entry.GetDPD()); });
    return 1;
}

int CVorDPMData::FiltrateContentLst(ProductType level, const QString& text,
                                    CKZList<CVorDPM_DPC_Content*>& list) {
    UnlinkEntries(list, [&](const CVorDPM_DPC_Content& entry) {
        return entry.GetType(level).compare(text, Qt::CaseInsensitive) != 0;
    });
    return 1;
}

int CVorDPMData::HasDPCRecord(CVorDPMDPC* catalog, CVorDPM_DPC_Content* entry) {
    if (!catalog || !entry) return 0;
    CKZList<CVorDPM_DPC_Content*> same;
    catalog->GetAllContent(entry->GetType(CVorDPM_DPC_Content::FirstType),
                           entry->GetType(CVorDPM_DPC_Content::SecondType),
                           entry->GetType(CVorDPM_DPC_Content::ThirdType), same, 0);
    return std::any_of(same.begin(), same.end(),
                       [entry](const CVorDPM_DPC_Content* other) {
                           return other->GetDPD().compare(entry->GetDPD(), Qt::CaseInsensitive) ==
                                  0;
                       })
               ? 1
               : 0;
}

CVorDPMData::ProductType CVorDPMData::GetDPCType(const QString& path, QString& catalog,
                                                 QString& level0, QString& level1,
                                                 QString& level2) {
    QStringList parts;
    ParseString(path, kPathDelimiters, parts);
    QString* const targets[] = {&catalog, &level0, &level1, &level2};
    const qsizetype used = std::min<qsizetype>(parts.size(), std::size(targets));
    for (qsizetype i = 0; i < used; ++i) *targets[i] = parts[i];
    // The catalog name is not a classification: one token means no level at all.
    return used <= 1 ? CVorDPM_DPC_Content::NoType : static_cast<ProductType>(used - 2);
}

void CVorDPMData::GetTypes(QTreeWidget& tree, QTreeWidgetItem* item, QString& level0,
                           QString& level1, QString& level2) {
    if (!item) return;
    // The walk ends at the first root, or wherever no parent is left for an item outside it.
    const QTreeWidgetItem* const root = tree.topLevelItem(0);
    QStringList texts{item->text(0)};
    for (const QTreeWidgetItem* node = item; node != root && node->parent();) {
        node = node->parent();
        texts.append(node->text(0));
    }
    QString* const targets[] = {&level0, &level1, &level2};
    const qsizetype levels = texts.size() - 1;
    if (levels < 1 || levels > static_cast<qsizetype>(std::size(targets))) return;
    // texts runs from the item up to the root: the item's own level comes first.
    for (qsizetype i = 0; i < levels; ++i) *targets[levels - 1 - i] = texts[i];
}
