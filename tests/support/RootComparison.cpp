#include "support/RootComparison.h"

#include <QVariant>
#include <memory>
#include <vector>

#include "CVorDPMClassInfo.h"
#include "CVorDPMDBBase.h"
#include "CVorDPMMemoryFiler.h"
#include "CVorDPMShelf.h"
#include "CVorDPMStorage.h"
#include "VorDPMContainers.h"
#include "VorDPMFileKinds.h"
#include "VorDPMNames.h"

namespace {

using namespace VorDPMFileKinds;

// Where containers live: each library holds its information, catalogs, definitions and
// templates; the root its own templates and the three common tables. Kept apart from the
// copy's own list on purpose, so that a kind the copy forgets shows up here.
const quint32 kInLibrary[] = {kLibraryInfo, kCatalog, kDefinition, kTemplate};
const quint32 kAtRoot[] = {kTemplate, kCommonProperty, kCommonUnit, kCommonInnerParam};

bool HasFixedName(quint32 kind) {
    return kind != kCatalog && kind != kDefinition && kind != kTemplate;
}

QStringList Names(CVorDPMStorage& storage, const QString& library, quint32 kind) {
    QStringList names;
    if (HasFixedName(kind)) {
        const auto file = VorDPMContainers::Make(&storage, library, kind, QString());
        if (storage.Exists(*file)) names.append(file->GetName());
        return names;
    }
    storage.Shelf(library, kind)->ListNames(names);
    VorDPMNames::Sort(names);
    return names;
}

QStringList Libraries(CVorDPMStorage& storage) {
    QStringList names;
    storage.ListLibraries(names);
    VorDPMNames::Sort(names);
    return names;
}

// The id and field values of every live row, in table order.
std::vector<std::pair<int, std::vector<QVariant>>> Rows(const CVorDPMTable& table) {
    std::vector<std::pair<int, std::vector<QVariant>>> rows;
    for (const CVorDPMObject* row : table.AllRows()) {
        if (row->IsDeleted()) continue;
        CVorDPMMemoryFiler fields;
        row->VorDPMOutFields(&fields);
        rows.emplace_back(row->GetObjectId(), fields.Values());
    }
    return rows;
}

class Comparison {
public:
    Comparison(const QString& left, const QString& right)
        : m_left(CVorDPMStorage::ForRoot(left)), m_right(CVorDPMStorage::ForRoot(right)) {}

    QStringList Run() {
        const QStringList libraries = Libraries(*m_left);
        Same(QStringLiteral("libraries"), libraries, Libraries(*m_right));
        for (const QString& library : libraries)
            for (quint32 kind : kInLibrary) Place(library, kind);
        for (quint32 kind : kAtRoot) Place(QString(), kind);
        return m_differences;
    }

private:
    bool Same(const QString& what, const QStringList& left, const QStringList& right) {
        if (left == right) return true;
        m_differences << QStringLiteral("%1: %2 against %3")
                             .arg(what, left.join(QLatin1Char(',')), right.join(QLatin1Char(',')));
        return false;
    }

    void Place(const QString& library, quint32 kind) {
        const QStringList names = Names(*m_left, library, kind);
        const QString place = m_left->PathOf(library, kind, QStringLiteral("*"));
        if (!Same(place, names, Names(*m_right, library, kind))) return;
        for (const QString& name : names) Container(library, kind, name);
    }

    void Container(const QString& library, quint32 kind, const QString& name) {
        const auto left = VorDPMContainers::Make(m_left.get(), library, kind, name);
        const auto right = VorDPMContainers::Make(m_right.get(), library, kind, name);
        if (!left->EnsureLoaded() || !right->EnsureLoaded()) {
            m_differences << QStringLiteral("%1: cannot be read: %2%3")
                                 .arg(left->GetFilePath(), left->GetLoadError(),
                                      right->GetLoadError());
            return;
        }
        for (size_t t = 0; t < left->Tables().size(); ++t) {
            const CVorDPMTable& table = *left->Tables()[t];
            if (Rows(table) != Rows(*right->Tables()[t]))
                m_differences << QStringLiteral("%1: table %2 differs")
                                     .arg(left->GetFilePath(),
                                          QString::fromLatin1(table.Info().tableName));
        }
    }

    std::unique_ptr<CVorDPMStorage> m_left;
    std::unique_ptr<CVorDPMStorage> m_right;
    QStringList m_differences;
};

}  // namespace

QStringList RootComparison::Differences(const QString& left, const QString& right) {
    return Comparison(left, right).Run();
}

int RootComparison::ContainerCount(const QString& root) {
    const auto storage = CVorDPMStorage::ForRoot(root);
    qsizetype count = 0;
    for (const QString& library : Libraries(*storage))
        for (quint32 kind : kInLibrary) count += Names(*storage, library, kind).size();
    for (quint32 kind : kAtRoot) count += Names(*storage, QString(), kind).size();
    return static_cast<int>(count);
}
