// Internal: the store files of one kind in one place of the root (a library's catalogs, say),
// listed by name and loaded on first use. Where and how they are kept is the shelf's business.
#pragma once

#include <QHash>
#include <QStringList>
#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

#include "CVorDPMShelf.h"
#include "VorDPMLastError.h"
#include "VorDPMNames.h"
#include "VorDPMReasons.h"
#include "VorDPMTypes.h"

template <class T>
class CVorDPMFileSet {
public:
    using Factory = std::function<std::unique_ptr<T>(const QString& name)>;

    CVorDPMFileSet(std::unique_ptr<CVorDPMShelf> shelf, Factory factory)
        : m_shelf(std::move(shelf)), m_factory(std::move(factory)) {}

    // Sorted as every listing of the store (VorDPMNames::Less).
    const QStringList& Names() const {
        Scan();
        return m_names;
    }
    bool Has(const QString& name) const { return ByFoldedName().contains(name.toCaseFolded()); }
    QString PathOf(const QString& name) const { return m_shelf->PathOf(name); }
    void RemoveLeftovers() { m_shelf->RemoveLeftovers(); }

    // The file's object; its tables are read when they are first used.
    VOR::ErrorStatus Get(const QString& name, T*& out) {
        // Callers mostly pass the name as listed: a loaded file is then found in one look-up.
        const auto exact = m_loaded.find(name);
        if (exact != m_loaded.end()) {
            out = exact->second.get();
            return VOR::eOk;
        }
        const QString canonical = Canonical(name);
        if (canonical.isEmpty()) return VOR::eNotFound;
        auto loaded = m_loaded.find(canonical);
        if (loaded == m_loaded.end())
            loaded = m_loaded.emplace(canonical, m_factory(canonical)).first;
        out = loaded->second.get();
        return VOR::eOk;
    }

    // Creates the file at once; with a pattern its rows are copied in.
    VOR::ErrorStatus Create(const QString& name, T*& out, const CVorDPMDBBase* pattern = nullptr,
                            bool withVersions = false) {
        VorDPMLastError::Clear();
        const VOR::ErrorStatus usable = CheckNewName(name);
        if (usable != VOR::eOk) return usable;
        if (pattern && !pattern->EnsureLoaded()) return VOR::eFileError;
        std::unique_ptr<T> file = m_factory(name);
        file->MarkLoaded();
        if (pattern) file->CopyContentFrom(*pattern, withVersions);
        const VOR::ErrorStatus written = m_shelf->Create(*file);
        if (written != VOR::eOk) return written;
        out = file.get();
        m_loaded.emplace(name, std::move(file));
        AddName(name);
        return VOR::eOk;
    }

    VOR::ErrorStatus Copy(const QString& from, const QString& to) {
        T* source = nullptr;
        const VOR::ErrorStatus found = Get(from, source);
        if (found != VOR::eOk) return found;
        T* copy = nullptr;
        return Create(to, copy, source, true);
    }

    // Moves the file to the trash. The object stays alive (callers may still hold it).
    VOR::ErrorStatus Remove(const QString& name) {
        VorDPMLastError::Clear();
        const QString canonical = Canonical(name);
        if (canonical.isEmpty()) return VorDPMReasons::NotFound(name);
        const VOR::ErrorStatus removed = m_shelf->Remove(canonical);
        if (removed != VOR::eOk) return removed;
        Retire(canonical);
        RemoveName(canonical);
        return VOR::eOk;
    }

    VOR::ErrorStatus Rename(const QString& from, const QString& to) {
        VorDPMLastError::Clear();
        const QString canonical = Canonical(from);
        if (canonical.isEmpty()) return VorDPMReasons::NotFound(from);
        const bool caseOnly = canonical.compare(to, Qt::CaseInsensitive) == 0;
        const VOR::ErrorStatus usable = caseOnly ? VorDPMReasons::CheckName(to) : CheckNewName(to);
        if (usable != VOR::eOk) return usable;
        const VOR::ErrorStatus moved = m_shelf->Rename(canonical, to);
        if (moved != VOR::eOk) return moved;
        auto loaded = m_loaded.find(canonical);
        if (loaded != m_loaded.end()) {
            std::unique_ptr<T> file = std::move(loaded->second);
            m_loaded.erase(loaded);
            file->Rename(to);
            m_loaded.emplace(to, std::move(file));
        }
        RemoveName(canonical);
        AddName(to);
        return VOR::eOk;
    }

    bool IsChanged() const {
        for (const auto& [name, file] : m_loaded)
            if (file->IsChanged()) return true;
        return false;
    }

    // Appends every loaded file with changes.
    void CollectChanged(std::vector<CVorDPMDBBase*>& out) const {
        for (const auto& [name, file] : m_loaded)
            if (file->IsChanged()) out.push_back(file.get());
    }

    template <class Visitor>
    void ForEachLoaded(Visitor&& visit) const {
        for (const auto& [name, file] : m_loaded) visit(file.get());
    }

private:
    // Lists the place on the first question about names, not when the set is made: a search
    // of a library's catalogs never pays for the names of its many definitions. The names are
    // read unsorted and sorted once; a listing that failed is tried again on the next question.
    void Scan() const {
        if (m_scanned) return;
        QStringList names;
        if (!m_shelf->ListNames(names)) return;
        m_scanned = true;
        m_names = names;
        VorDPMNames::Sort(m_names);
        m_byFoldedName.clear();
    }

    // Names by their case-folded form, made on the first look-up by name: a listing alone
    // does not need it.
    const QHash<QString, QString>& ByFoldedName() const {
        Scan();
        if (m_byFoldedName.isEmpty() && !m_names.isEmpty()) {
            m_byFoldedName.reserve(m_names.size());
            for (const QString& name : std::as_const(m_names))
                m_byFoldedName.insert(name.toCaseFolded(), name);
        }
        return m_byFoldedName;
    }

    // The name as the file is called, found without regard to case; empty when there is none.
    QString Canonical(const QString& name) const {
        return ByFoldedName().value(name.toCaseFolded());
    }

    void AddName(const QString& name) {
        ByFoldedName();
        VorDPMNames::InsertSorted(m_names, name);
        m_byFoldedName.insert(name.toCaseFolded(), name);
    }

    void RemoveName(const QString& canonical) {
        ByFoldedName();
        VorDPMNames::RemoveSorted(m_names, canonical);
        m_byFoldedName.remove(canonical.toCaseFolded());
    }

    VOR::ErrorStatus CheckNewName(const QString& name) const {
        const VOR::ErrorStatus usable = VorDPMReasons::CheckName(name);
        if (usable != VOR::eOk) return usable;
        if (!Has(name) && !m_shelf->Taken(name)) return VOR::eOk;
        return VorDPMReasons::NameExists(name);
    }

    void Retire(const QString& canonical) {
        auto loaded = m_loaded.find(canonical);
        if (loaded == m_loaded.end()) return;
        m_retired.push_back(std::move(loaded->second));
        m_loaded.erase(loaded);
    }

    std::unique_ptr<CVorDPMShelf> m_shelf;
    Factory m_factory;
    mutable bool m_scanned = false;
    mutable QStringList m_names;
    mutable QHash<QString, QString> m_byFoldedName;
    // Hashes names for m_loaded. Not noexcept on purpose: the standard map then keeps each
    // entry's hash and does not hash the names of a bucket's entries again on every look-up.
    struct NameHash {
        size_t operator()(const QString& name) const { return qHash(name); }
    };

    // By canonical name; hashed, since building a tree looks up every definition of a library.
    std::unordered_map<QString, std::unique_ptr<T>, NameHash> m_loaded;
    // Removed files' objects: kept so that pointers handed out earlier stay valid.
    std::vector<std::unique_ptr<T>> m_retired;
};
