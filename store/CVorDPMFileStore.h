// A store file on SQLite: reads it into memory and writes its changes back. `root` is the library
// root the file must lie in (see VorDPMRootBoundary).
#pragma once

#include <QString>
#include <functional>

#include "VorDPMTypes.h"

class CVorDPMClassInfo;
class CVorDPMDBBase;
class CVorDPMObject;
class CVorDPMSQLiteConnection;

class CVorDPMFileStore {
public:
    // Reads every table of the file; false with a reason when the file cannot be used.
    static bool Load(CVorDPMDBBase& file, const QString& root, QString& error);
    // Writes the changed rows in one transaction and clears the change marks on success. Writes
    // nothing when the file on disk is no longer the one that was loaded (another process
    // changed, removed or renamed it): the changes stay and the last error names the conflict.
    static bool WriteChanges(CVorDPMDBBase& file, const QString& root);
    // Writes a complete new file (schema and every live row) next to the target and moves it
    // into place, so that a half-written file never appears under the target name; eNameExists
    // when a file of that name appeared meanwhile, which is never replaced.
    static VOR::ErrorStatus WriteNew(CVorDPMDBBase& file, const QString& root);
    // Opens the file of `file` in a read transaction, having checked that it lies in the root,
    // is of the file's kind and not newer than this program; false with a reason otherwise.
    static bool OpenForReading(CVorDPMSQLiteConnection& db, const CVorDPMDBBase& file,
                               const QString& root, QString& error);
    // Reads the rows of the table of `info` in id order: each into the object `nextRow` gives,
    // which `take` then gets with its id set. False with a reason when a row cannot be read.
    static bool ReadRows(CVorDPMSQLiteConnection& db, const CVorDPMClassInfo& info,
                         const QString& path, const std::function<CVorDPMObject&()>& nextRow,
                         const std::function<void(CVorDPMObject&, int)>& take, QString& error);
    // Milliseconds a writer waits for another process's lock before giving up.
    static constexpr int kBusyTimeoutMs = 10000;
};
