// Internal: the store files of one kind in one folder, listed by name and loaded on first use.
#pragma once

#include <QDir>
#include <QFile>
#include <QStringList>
#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "CVorDPMFileStore.h"
#include "VorDPMLastError.h"
#include "VorDPMNames.h"
#include "VorDPMTrash.h"
#include "VorDPMTypes.h"

template <class T>
class CVorDPMFileSet {
public:
    using Factory = std::function<std::unique_ptr<T>(const QString& name, const QString& path)>;

    CVorDPMFileSet(const QString& folder, const QString& extension, const QString& root,
                   Factory factory)
        : m_folder(folder), m_extension(extension), m_root(root), m_factory(std::move(factory)) {
        Scan();
    }

    const QStringList& Names() const { return m_names; }
    bool Has(const QString& name) const { return VorDPMNames::IndexOf(m_names, name) >= 0; }
    QString PathOf(const QString& name) const {
        return QDir(m_folder).filePath(name + m_extension);
    }

    VOR::ErrorStatus Get(const QString& name, T*& out) {
        const int index = VorDPMNames::IndexOf(m_names, name);
        if (index < 0) return VOR::eNotFound;
        const QString canonical = m_names[index];
        auto loaded = m_loaded.find(canonical);
        if (loaded != m_loaded.end()) {
            out = loaded->second.get();
            return VOR::eOk;
        }
        std::unique_ptr<T> file = m_factory(canonical, PathOf(canonical));
        QString error;
        if (!CVorDPMFileStore::Load(*file, error)) return VOR::eFileError;
        out = file.get();
        m_loaded.emplace(canonical, std::move(file));
        return VOR::eOk;
    }

    // Creates the file on disk at once; with a pattern its rows are copied in.
    VOR::ErrorStatus Create(const QString& name, T*& out, const CVorDPMDBBase* pattern = nullptr,
                            bool withVersions = false) {
        const VOR::ErrorStatus usable = CheckNewName(name);
        if (usable != VOR::eOk) return usable;
        if (!QDir().mkpath(m_folder)) {
            VorDPMLastError::Set(QStringLiteral("%1: cannot create the folder").arg(m_folder));
            return VOR::eFileError;
        }
        std::unique_ptr<T> file = m_factory(name, PathOf(name));
        if (pattern) file->CopyContentFrom(*pattern, withVersions);
        if (!CVorDPMFileStore::WriteNew(*file)) return VOR::eFileError;
        out = file.get();
        m_loaded.emplace(name, std::move(file));
        m_names.append(name);
        VorDPMNames::Sort(m_names);
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
        const int index = VorDPMNames::IndexOf(m_names, name);
        if (index < 0) return VOR::eNotFound;
        const QString canonical = m_names[index];
        if (!VorDPMTrash::Move(PathOf(canonical), m_root)) return VOR::eFileError;
        Retire(canonical);
        m_names.removeAt(index);
        return VOR::eOk;
    }

    VOR::ErrorStatus Rename(const QString& from, const QString& to) {
        const int index = VorDPMNames::IndexOf(m_names, from);
        if (index < 0) return VOR::eNotFound;
        const QString canonical = m_names[index];
        const bool caseOnly = canonical.compare(to, Qt::CaseInsensitive) == 0;
        const VOR::ErrorStatus usable = caseOnly ? CheckName(to) : CheckNewName(to);
        if (usable != VOR::eOk) return usable;
        if (!QFile::rename(PathOf(canonical), PathOf(to))) {
            VorDPMLastError::Set(QStringLiteral("%1: cannot be renamed").arg(PathOf(canonical)));
            return VOR::eFileError;
        }
        auto loaded = m_loaded.find(canonical);
        if (loaded != m_loaded.end()) {
            std::unique_ptr<T> file = std::move(loaded->second);
            m_loaded.erase(loaded);
            file->SetLocation(to, PathOf(to));
            m_loaded.emplace(to, std::move(file));
        }
        m_names[index] = to;
        VorDPMNames::Sort(m_names);
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
    void Scan() {
        QStringList names;
        const QStringList files =
            QDir(m_folder).entryList({QLatin1Char('*') + m_extension}, QDir::Files);
        for (const QString& file : files) names.append(file.left(file.size() - m_extension.size()));
        VorDPMNames::Sort(names);
        m_names = names;
    }

    VOR::ErrorStatus CheckName(const QString& name) const {
        if (VorDPMNames::IsValidName(name)) return VOR::eOk;
        VorDPMLastError::Set(QStringLiteral("\"%1\" cannot be used as a name").arg(name));
        return VOR::eInvalidName;
    }

    VOR::ErrorStatus CheckNewName(const QString& name) const {
        const VOR::ErrorStatus usable = CheckName(name);
        if (usable != VOR::eOk) return usable;
        if (!Has(name) && !QFile::exists(PathOf(name))) return VOR::eOk;
        VorDPMLastError::Set(QStringLiteral("\"%1\" exists already").arg(name));
        return VOR::eNameExists;
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
    Factory m_factory;
    QStringList m_names;
    std::map<QString, std::unique_ptr<T>> m_loaded;
    // Removed files' objects: kept so that pointers handed out earlier stay valid.
    std::vector<std::unique_ptr<T>> m_retired;
};
