// The common property table: standard properties with value types and units, in groups.
#pragma once

#include "CVorDPMGroupedTable.h"
#include "CVorDPM_DPOPROPERTY_Content.h"
#include "CVorDPM_DPOPROPERTY_Group.h"

class VORDPM_API CVorDPMDPOProperty
    : public CVorDPMGroupedTable<CVorDPM_DPOPROPERTY_Group, CVorDPM_DPOPROPERTY_Content> {
public:
    explicit CVorDPMDPOProperty(CVorDPMStorage* storage);

    VOR::ErrorStatus GetAllContent(CKZList<CVorDPM_DPOPROPERTY_Content*>& out, int = 0) {
        return AllRows(out);
    }
    VOR::ErrorStatus GetContent(int id, CVorDPM_DPOPROPERTY_Content*& out, int = 0) {
        return RowById(id, out);
    }
    VOR::ErrorStatus AddContent(CVorDPM_DPOPROPERTY_Content* row) { return AddRow(row); }
};
