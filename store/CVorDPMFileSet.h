// Internal: the store files of one kind in one folder, listed by name and loaded on first use.
#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QStringList>
#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

#include "CVorDPMFileStore.h"
#include "VorDPMFolderListing.h"
#include "VorDPMLastError.h"
#include "VorDPMNames.h"
#include "VorDPMNoReplace.h"
#include "VorDPMReasons.h"
#include "VorDPMRootBoundary.h"
#include "VorDPMTrash.h"
#include "VorDPMTypes.h"

template <class T>
class CVorDPMFileSet {
public:
    using Factory = std::function<std::unique_ptr<T>(const QString& name, const QString& path)>;

    // A set whose folder is optional (templates) makes it for its first file; a library's
    // folder is never made again once it is gone.
    enum FolderUse { FolderMustExist, FolderMadeOnDemand };

    CVorDPMFileSet(const QString& folder, const QString& extension, const QString& root,
                   FolderUse folderUse, Factory factory)
        : m_folder(folder),
          m_extension(extension),
          m_root(root),
          m_folderUse(folderUse),
          m_factory(std::move(factory)) {}

    // Sorted as every listing of the store (VorDPMNames::Less).
    const QStringList& Names() const {
        Scan();
        return m_names;
    }
    bool Has(const QString& name) const { return ByFoldedName().contains(name.toCaseFolded()); }
    QString PathOf(const QString& name) const {
        return QDir(m_folder).filePath(name + m_extension);
    }

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
            loaded = m_loaded.emplace(canonical, m_factory(canonical, PathOf(canonical))).first;
        out = loaded->second.get();
        return VOR::eOk;
    }

    // Creates the file on disk at once; with a pattern its rows are copied in.
    VOR::ErrorStatus Create(const QString& name, T*& out, const CVorDPMDBBase* pattern = nullptr,
                            bool withVersions = false) {
        VorDPMLastError::Clear();
        const VOR::ErrorStatus usable = CheckNewName(name);
        if (usable != VOR::eOk) return usable;
        const VOR::ErrorStatus folder = CheckFolder(m_folderUse);
        if (folder != VOR::eOk) return folder;
        if (pattern && !pattern->EnsureLoaded()) return VOR::eFileError;
        std::unique_ptr<T> file = m_factory(name, PathOf(name));
        file->MarkLoaded();
        if (pattern) file->CopyContentFrom(*pattern, withVersions);
        const VOR::ErrorStatus written = CVorDPMFileStore::WriteNew(*file);
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
        const VOR::ErrorStatus folder = CheckFolder(FolderMustExist);
        if (folder != VOR::eOk) return folder;
        if (!VorDPMTrash::Move(PathOf(canonical), m_root)) return VOR::eFileError;
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
        const VOR::ErrorStatus folder = CheckFolder(FolderMustExist);
        if (folder != VOR::eOk) return folder;
        const VOR::ErrorStatus moved = VorDPMNoReplace::Rename(PathOf(canonical), PathOf(to));
        if (moved != VOR::eOk) return moved;
        auto loaded = m_loaded.find(canonical);
        if (loaded != m_loaded.end()) {
            std::unique_ptr<T> file = std::move(loaded->second);
            m_loaded.erase(loaded);
            file->SetLocation(to, PathOf(to));
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

    // Saves every loaded file with changes; false when any of them failed.
    bool Save() {
        bool ok = true;
        for (const auto& [name, file] : m_loaded) ok = file->Save() == VOR::eOk && ok;
        return ok;
    }

    template <class Visitor>
    void ForEachLoaded(Visitor&& visit) const {
        for (const auto& [name, file] : m_loaded) visit(file.get());
    }

private:
    // Lists the folder on the first question about names, not when the set is made: a search
    // of a library's catalogs never pays for the names of its many definitions. The folder is
    // read unsorted and sorted once.
    void Scan() const {
        if (m_scanned) return;
        m_scanned = true;
        m_names = VorDPMFolderListing::FileNames(m_folder, m_extension);
        VorDPMNames::Sort(m_names);
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
        if (!Has(name) && !QFile::exists(PathOf(name))) return VOR::eOk;
        return VorDPMReasons::NameExists(name);
    }

    // Checked before anything in the folder changes: it leads nowhere outside the root (the
    // files of a linked folder would be moved or written there), and it is still there.
    VOR::ErrorStatus CheckFolder(FolderUse use) const {
        if (!VorDPMRootBoundary::Check(m_folder)) return VOR::eFileError;
        if (QFileInfo(m_folder).isDir()) return VOR::eOk;
        if (use == FolderMadeOnDemand) {
            const VOR::ErrorStatus made = VorDPMNoReplace::MakeFolder(m_folder);
            return made == VOR::eNameExists && QFileInfo(m_folder).isDir() ? VOR::eOk : made;
        }
        return VorDPMReasons::FolderGone(m_folder);
    }

    void Retire(const QString& canonical) {
        auto loaded = m_loaded.find(canonical);
        if (loaded == m_loaded.end()) return;
        m_retired.push_back(std::move(loaded->second));
        m_loaded.erase(loaded);
    }

    QString m_folder;
    QString m_extension;
    QString m_root;
    FolderUse m_folderUse;
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
