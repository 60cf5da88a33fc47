// Reading and damaging store files behind the store's back, as another program or a broken
// disk would: whole contents, SQL run on the file directly, and the store_writer helper that
// changes a root from a process of its own.
#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <QByteArray>
#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QString>
#include <QStringList>

#include "CVorDPMSQL.h"

inline QByteArray ReadAll(const QString& path) {
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    return file.readAll();
}

// The entries of `folder` itself, hidden ones included, in code-unit order of their names.
inline QStringList Entries(const QString& folder) {
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                                  QDir::Name);
}

// Every entry under `folder` (links not followed): its path relative to the folder and, for a
// file, a digest of its contents; sorted. Equal snapshots, equal trees.
inline QStringList Snapshot(const QString& folder) {
    QStringList entries;
    QDirIterator it(folder, QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        QString entry = QDir(folder).relativeFilePath(path);
        if (it.fileInfo().isFile() && !it.fileInfo().isSymLink())
            entry += QLatin1Char(' ') +
                     QString::fromLatin1(
                         QCryptographicHash::hash(ReadAll(path), QCryptographicHash::Sha1).toHex());
        entries.append(entry);
    }
    entries.sort();
    return entries;
}

inline void Write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(bytes);
}

inline void Exec(const QString& path, const char* sql) {
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open(QFile::encodeName(path).constData(), &db), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(db, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(db);
    sqlite3_close(db);
}

// The values of `column` that `sql` selects from a store file, read through the store's own
// cursor, as every reader of a store file does.
inline QStringList Column(const QString& path, const char* sql, const char* column) {
    QStringList values;
    CVorDPMSQL cursor;
    if (!cursor.open(path) || !cursor.execQuery(QString::fromUtf8(sql))) return values;
    for (; !cursor.eof(); cursor.nextRow())
        values.append(cursor.getStringField(QString::fromUtf8(column)));
    return values;
}

inline QString StoreWriter() {
    return qEnvironmentVariable("VORDPM_BUILD_DIR") + QStringLiteral("/tests/store_writer");
}

// Runs store_writer on the root to the end; its last line of output.
inline QString RunWriter(const QString& root, const QStringList& arguments) {
    QProcess child;
    child.start(StoreWriter(), QStringList{root} + arguments);
    child.waitForStarted();
    QByteArray output;
    while (child.state() != QProcess::NotRunning) {
        child.waitForReadyRead(100);
        output += child.readAllStandardOutput();
    }
    output += child.readAllStandardOutput();
    const QStringList lines = QString::fromUtf8(output).split('\n', Qt::SkipEmptyParts);
    return lines.isEmpty() ? QString() : lines.last();
}

// Starts store_writer on the root and waits for its first line: it has loaded what it changes.
// False when it did not start.
inline bool StartWriter(QProcess& child, const QString& root, const QStringList& arguments) {
    child.start(StoreWriter(), QStringList{root} + arguments);
    if (!child.waitForStarted()) return false;
    while (!child.canReadLine() && child.state() == QProcess::Running) child.waitForReadyRead(50);
    return true;
}
