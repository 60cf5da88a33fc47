#include "CVorDPMStoredRows.h"

#include "CVorDPMClassInfo.h"
#include "CVorDPMDBBase.h"
#include "CVorDPMObject.h"
#include "CVorDPMRowSource.h"
#include "CVorDPMStorage.h"

CVorDPMStoredRows::CVorDPMStoredRows(const CVorDPMDBBase& file)
    : m_rows(file.Storage()->OpenRows(file, m_error)) {}

// The read transaction ends with the row source.
CVorDPMStoredRows::~CVorDPMStoredRows() = default;

bool CVorDPMStoredRows::ForEachObject(const CVorDPMClassInfo& info,
                                      const std::function<void(const CVorDPMObject&)>& visit) {
    if (!m_error.isEmpty()) return false;
    const std::unique_ptr<CVorDPMObject> row(info.create());
    return m_rows->ReadRows(
        info, [&]() -> CVorDPMObject& { return *row; },
        [&](CVorDPMObject& read, int) { visit(read); }, m_error);
}
