// One fault that the library check found: where it lies (library, file, table, row, product)
// and what is wrong, in one sentence of the program's language.
#pragma once

#include <QString>

#include "CheckKind.h"

// What kind of store file a finding lies in, so that the editor can open it.
enum class CheckFileKind : quint8 { CommonTable, LibraryInfo, Catalog, Definition, Template };

// A store file being checked.
struct CheckPlace {
    QString library;  // empty for the root's own files
    QString file;     // path relative to the library root, "/"-separated
    CheckFileKind kind = CheckFileKind::Definition;
    QString name;  // the catalog, definition or template the file holds
};

struct CheckFinding {
    CheckKind kind = CheckKind::FileUnreadable;
    CheckPlace place;
    QString table;    // the store table ("serial", "content", ...); empty for the whole file
    int row = 0;      // the row's object id; 0 for none
    QString product;  // the product the row belongs to, where there is one
    QString message;

    CheckSeverity Severity() const { return CheckKinds::Severity(kind); }
};
