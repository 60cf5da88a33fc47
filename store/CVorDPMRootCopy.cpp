#include "CVorDPMRootCopy.h"

#include <algorithm>
#include <span>

#include "CVorDPMDBBase.h"
#include "CVorDPMShelf.h"
#include "CVorDPMStorage.h"
#include "VorDPMContainers.h"
#include "VorDPMFileKinds.h"
#include "VorDPMLastError.h"
#include "VorDPMNames.h"

namespace {

// The step that makes a library in the target before its containers are copied.
constexpr quint32 kMakeLibrary = 0;

constexpr quint32 kLibraryPlaces[] = {VorDPMFileKinds::kCatalog, VorDPMFileKinds::kDefinition,
                                      VorDPMFileKinds::kTemplate};
constexpr quint32 kCommonTables[] = {VorDPMFileKinds::kCommonProperty, VorDPMFileKinds::kCommonUnit,
                                     VorDPMFileKinds::kCommonInnerParam};

bool OneOf(std::span<const quint32> kinds, quint32 kind) {
    return std::ranges::find(kinds, kind) != kinds.end();
}

bool IsCommonTable(quint32 kind) {
    return OneOf(kCommonTables, kind);
}

// Kinds whose new containers are made on their shelf (which may have to make their place, such
// as a library's templates); the library information and the common tables are written straight
// by the storage, as the store makes them on first use.
bool LivesOnShelf(quint32 kind) {
    return OneOf(kLibraryPlaces, kind);
}

qint64 LiveRows(const CVorDPMDBBase& file) {
    qint64 rows = 0;
    for (const auto& table : file.Tables()) rows += table->LiveCount();
    return rows;
}

}  // namespace

CVorDPMRootCopy::CVorDPMRootCopy(const QString& from, const QString& to)
    : m_from(CVorDPMStorage::ForRoot(from)), m_to(CVorDPMStorage::ForRoot(to)) {}

CVorDPMRootCopy::~CVorDPMRootCopy() = default;

QString CVorDPMRootCopy::From() const {
    return m_from->Root();
}

QString CVorDPMRootCopy::To() const {
    return m_to->Root();
}

CVorDPMRootCopy::Result CVorDPMRootCopy::Run() {
    m_counts = {};
    m_error.clear();
    VorDPMLastError::Clear();
    if (m_from->Root() == m_to->Root()) return SameRoot;
    std::vector<Item> items;
    if (!m_from->Open(false) || !PlanLibraries(items)) {
        m_error = VorDPMLastError::Get();
        return Unusable;
    }
    PlanPlace(QString(), VorDPMFileKinds::kTemplate, items);
    PlanCommonTables(items);
    if (items.empty()) return m_counts.failed ? Incomplete : NothingToCopy;
    if (!m_to->Open(true)) {
        m_error = VorDPMLastError::Get();
        return Unusable;
    }
    if (!m_merge && TargetHoldsData(items)) return m_error.isEmpty() ? TargetNotEmpty : Unusable;
    QString skippedLibrary;  // a library that could not be made: its containers are not copied
    const int total = static_cast<int>(items.size());
    for (int done = 0; done < total; ++done) {
        if (m_progress && !m_progress(done, total)) return Cancelled;
        const Item& item = items[static_cast<size_t>(done)];
        if (item.kind == kMakeLibrary) {
            skippedLibrary = MakeLibrary(item.library) ? QString() : item.library;
        } else if (skippedLibrary.isEmpty() || item.library != skippedLibrary) {
            CopyContainer(item);
        }
    }
    if (m_progress) m_progress(total, total);
    return m_counts.failed ? Incomplete : Copied;
}

// Names are listed as the store lists them, so that the copy goes in a predictable order.
bool CVorDPMRootCopy::PlanLibraries(std::vector<Item>& items) {
    QStringList libraries;
    if (!m_from->ListLibraries(libraries)) return false;
    VorDPMNames::Sort(libraries);
    for (const QString& library : libraries) {
        items.push_back({library, kMakeLibrary, QString()});
        items.push_back(
            {library, VorDPMFileKinds::kLibraryInfo, VorDPMFileKinds::LibraryInfoName()});
        for (quint32 kind : kLibraryPlaces) PlanPlace(library, kind, items);
    }
    return true;
}

void CVorDPMRootCopy::PlanPlace(const QString& library, quint32 kind, std::vector<Item>& items) {
    QStringList names;
    VorDPMLastError::Clear();
    if (!m_from->Shelf(library, kind)->ListNames(names)) {
        Note(Unreadable, m_from->PathOf(library, kind, QStringLiteral("*")),
             VorDPMLastError::Get());
        return;
    }
    VorDPMNames::Sort(names);
    for (const QString& name : names) items.push_back({library, kind, name});
}

void CVorDPMRootCopy::PlanCommonTables(std::vector<Item>& items) {
    for (quint32 kind : kCommonTables) {
        const auto table = VorDPMContainers::Make(m_from.get(), QString(), kind, QString());
        if (m_from->Exists(*table)) items.push_back({QString(), kind, table->GetName()});
    }
}

// Data is anything a copy would have to merge with: a library (or something taking the name
// of one to be copied), a template of the root, a row in a common table. The common tables
// that the store makes empty on first use do not count.
bool CVorDPMRootCopy::TargetHoldsData(const std::vector<Item>& items) {
    QStringList names;
    if (!m_to->ListLibraries(names) ||
        !m_to->Shelf(QString(), VorDPMFileKinds::kTemplate)->ListNames(names)) {
        m_error = VorDPMLastError::Get();
        return true;
    }
    if (!names.isEmpty()) return true;
    for (const Item& item : items) {
        if (item.kind == kMakeLibrary && m_to->LibraryTaken(item.library)) return true;
        if (!IsCommonTable(item.kind)) continue;
        const auto table = VorDPMContainers::Make(m_to.get(), QString(), item.kind, QString());
        if (m_to->Exists(*table) && (!table->EnsureLoaded() || LiveRows(*table) > 0)) return true;
    }
    return false;
}

// In a merge, a library the target has already gets what it lacks.
bool CVorDPMRootCopy::MakeLibrary(const QString& name) {
    if (m_merge && m_to->LibraryTaken(name)) return true;
    VorDPMLastError::Clear();
    const VOR::ErrorStatus made = m_to->CreateLibrary(name);
    if (made == VOR::eOk) {
        ++m_counts.libraries;
        return true;
    }
    Note(Unwritable, m_to->LibraryPath(name), VorDPMLastError::Get());
    return false;
}

void CVorDPMRootCopy::CopyContainer(const Item& item) {
    const auto source = VorDPMContainers::Make(m_from.get(), item.library, item.kind, item.name);
    if (!source->EnsureLoaded()) {
        Note(Unreadable, source->GetFilePath(), source->GetLoadError());
        return;
    }
    const auto target = VorDPMContainers::Make(m_to.get(), item.library, item.kind, item.name);
    if (m_to->Exists(*target)) {
        if (!IsCommonTable(item.kind) || !FillEmptyCommonTable(*target, *source))
            Note(KeptTarget, target->GetFilePath(), QString());
        return;
    }
    target->MarkLoaded();
    target->CopyContentFrom(*source, true);
    Write(item, *target);
}

// The store makes a common table empty when it is first asked for: such a table in the target
// takes the source's rows, which overwrites nothing (and two empty ones are the same already).
// False when the table has rows of its own, or cannot be read: it is kept as it is.
bool CVorDPMRootCopy::FillEmptyCommonTable(CVorDPMDBBase& target, const CVorDPMDBBase& source) {
    if (!target.EnsureLoaded() || LiveRows(target) > 0) return false;
    if (LiveRows(source) == 0) return true;
    target.CopyContentFrom(source, true);
    VorDPMLastError::Clear();
    if (!m_to->WriteChanges({&target})) {
        Note(Unwritable, target.GetFilePath(), VorDPMLastError::Get());
        return true;
    }
    ++m_counts.containers;
    m_counts.rows += LiveRows(target);
    return true;
}

void CVorDPMRootCopy::Write(const Item& item, CVorDPMDBBase& target) {
    VorDPMLastError::Clear();
    const VOR::ErrorStatus written = LivesOnShelf(item.kind)
                                         ? m_to->Shelf(item.library, item.kind)->Create(target)
                                         : m_to->WriteNew(target);
    if (written == VOR::eNameExists) {
        // Made in the target by someone else since the check: theirs stays.
        Note(KeptTarget, target.GetFilePath(), QString());
        return;
    }
    if (written != VOR::eOk) {
        Note(Unwritable, target.GetFilePath(), VorDPMLastError::Get());
        return;
    }
    ++m_counts.containers;
    m_counts.rows += LiveRows(target);
}

void CVorDPMRootCopy::Note(Problem problem, const QString& path, const QString& reason) {
    if (problem == KeptTarget)
        ++m_counts.kept;
    else
        ++m_counts.failed;
    if (m_report) m_report(problem, path, reason);
}
