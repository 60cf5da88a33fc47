// Internal: the rows of one stored container, read table by table in id order inside one read
// transaction, as they are stored (what is only in memory is not seen).
#pragma once

#include <QString>
#include <functional>

class CVorDPMClassInfo;
class CVorDPMObject;

class CVorDPMRowSource {
public:
    virtual ~CVorDPMRowSource();

    // Reads the rows of the table of `info` in id order: each into the object `nextRow` gives,
    // which `take` then gets with its id set. False with a reason when a row cannot be read.
    virtual bool ReadRows(const CVorDPMClassInfo& info,
                          const std::function<CVorDPMObject&()>& nextRow,
                          const std::function<void(CVorDPMObject&, int)>& take, QString& error) = 0;
};
