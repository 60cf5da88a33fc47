// A library root in a fresh temporary folder, with the user's settings and trash redirected
// into it, made the store's current root for the life of the object.
#pragma once

#include <QString>
#include <QTemporaryDir>

class TempRoot {
public:
    TempRoot();
    ~TempRoot();

    QString Path() const { return m_dir.path() + QStringLiteral("/root"); }
    QString File(const QString& relative) const { return Path() + QLatin1Char('/') + relative; }
    QString Home() const { return m_dir.path(); }
    // Writes `bytes` to the file `name` in the home folder, beside the root; returns its path.
    QString Write(const QString& name, const QByteArray& bytes) const;

private:
    QTemporaryDir m_dir;
};
