#include "CatalogCheck.h"

#include "CVorDPMDPC.h"
#include "CVorDPMLibraryManager.h"
#include "CVorDPMManager.h"
#include "CheckedFile.h"

namespace {

const QString kEntry = QStringLiteral("content");
const QString kReference = QStringLiteral("include_ref");

}  // namespace

CatalogCheck::CatalogCheck(CVorDPMLibraryManager& library, CheckFileReport& report)
    : m_library(library), m_report(report) {}

void CatalogCheck::Run(const CVorDPMDPC& catalog) {
    CheckedFile file(catalog, m_report);
    QHash<QString, int> entries;
    const bool read = file.ForEach<CVorDPM_DPC_Content>(
        [&](const CVorDPM_DPC_Content& entry) { CheckEntry(entry, entries); });
    if (read)
        file.ForEach<CVorDPM_DPC_Include>(
            [this](const CVorDPM_DPC_Include& reference) { CheckReference(reference); });
}

void CatalogCheck::CheckEntry(const CVorDPM_DPC_Content& entry, QHash<QString, int>& entries) {
    const int id = entry.GetObjectId();
    const QString& product = entry.GetDPD();
    if (!m_library.HasDPD(product))
        m_report.Add(CheckKind::ContentDefinitionMissing, kEntry, id, product,
                     tr("本库没有产品定义\"%1\"").arg(product));
    const QString levels[] = {entry.GetType0(), entry.GetType1(), entry.GetType2()};
    for (int level = 1; level < 3; ++level)
        if (!levels[level].isEmpty() && levels[level - 1].isEmpty())
            m_report.Add(CheckKind::ContentLevelGap, kEntry, id, product,
                         tr("第 %1 级分类\"%2\"之上没有第 %3 级分类")
                             .arg(level + 1)
                             .arg(levels[level])
                             .arg(level));
    // The same product under the same classification, as adding products refuses it: the
    // product's name without regard to case, the classification texts exactly.
    const QString key = product.toCaseFolded() + QChar(0x1f) + levels[0] + QChar(0x1f) + levels[1] +
                        QChar(0x1f) + levels[2];
    if (const auto first = entries.constFind(key); first != entries.cend())
        m_report.Add(CheckKind::ContentDuplicate, kEntry, id, product,
                     tr("与条目 %1 重复：同一产品在同一分类下").arg(*first));
    else
        entries.insert(key, id);
}

void CatalogCheck::CheckReference(const CVorDPM_DPC_Include& reference) {
    const int id = reference.GetObjectId();
    const QString target = reference.GetLibraryName() + QLatin1Char('/') + reference.GetDPCName();
    CVorDPMLibraryManager* library = nullptr;
    CVorDPMManager::GetVorDPMManager()->GetLibrary(reference.GetLibraryName(), library);
    if (!library)
        return m_report.Add(
            CheckKind::ReferenceLibraryMissing, kReference, id, QString(),
            tr("引用的目录\"%1\"无效：没有产品库\"%2\"").arg(target, reference.GetLibraryName()));
    CVorDPMDPC* catalog = nullptr;
    library->GetDPC(reference.GetDPCName(), catalog);
    if (!catalog)
        m_report.Add(CheckKind::ReferenceCatalogMissing, kReference, id, QString(),
                     tr("引用的目录\"%1\"无效：产品库\"%2\"中没有目录\"%3\"")
                         .arg(target, reference.GetLibraryName(), reference.GetDPCName()));
}
