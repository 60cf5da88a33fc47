// Reading and damaging store files behind the store's back, as another program or a broken
// disk would: whole contents, and SQL run on the file directly.
#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <QByteArray>
#include <QFile>
#include <QString>

inline QByteArray ReadAll(const QString& path) {
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    return file.readAll();
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
