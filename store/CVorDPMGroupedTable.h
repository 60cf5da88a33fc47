// A common-table file of groups and the rows filed under them.
#pragma once

#include "CVorDPMDBBase.h"

template <class TGroup, class TRow>
class CVorDPMGroupedTable : public CVorDPMDBBase {
public:
    VOR::ErrorStatus GetAllGroup(CKZList<TGroup*>& out, int = 0) {
        return m_groups->AppendLive(out) ? VOR::eOk : VOR::eFileError;
    }
    VOR::ErrorStatus AddGroup(TGroup* group) { return m_groups->Add(group); }

protected:
    CVorDPMGroupedTable(CVorDPMStorage* storage, const QString& name, quint32 applicationId)
        : CVorDPMDBBase(storage, QString(), name, applicationId) {
        m_groups = AddTable(TGroup::ClassInfo());
        m_rows = AddTable(TRow::ClassInfo());
    }

    VOR::ErrorStatus AllRows(CKZList<TRow*>& out) {
        return m_rows->AppendLive(out) ? VOR::eOk : VOR::eFileError;
    }
    VOR::ErrorStatus RowById(int id, TRow*& out) {
        CVorDPMObject* row = m_rows->Find(id);
        if (!row) return VOR::eNotFound;
        out = static_cast<TRow*>(row);
        return VOR::eOk;
    }
    VOR::ErrorStatus AddRow(TRow* row) { return m_rows->Add(row); }

private:
    CVorDPMTable* m_groups;
    CVorDPMTable* m_rows;
};
