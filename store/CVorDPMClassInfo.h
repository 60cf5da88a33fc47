// Run-time class record of a persistent row: its table, its columns and a factory.
#pragma once

#include <vector>

#include "VorDPMExport.h"

class CVorDPMObject;

struct CVorDPMColumn {
    const char* name;
    const char* sqlType;  // INTEGER, REAL, TEXT or BLOB
};

class VORDPM_API CVorDPMClassInfo {
public:
    const char* className;
    const char* tableName;
    // Field columns in the order VorDPMInFields reads them; the object id column comes first
    // in the file and is not listed here.
    std::vector<CVorDPMColumn> columns;
    CVorDPMObject* (*create)();
};
