// The common unit table: units with symbols and conversion factors, in groups.
#pragma once

#include "CVorDPMGroupedTable.h"
#include "CVorDPM_DPOUNIT_Group.h"
#include "CVorDPM_DPOUNIT_Unit.h"

class VORDPM_API CVorDPMDPOUnit
    : public CVorDPMGroupedTable<CVorDPM_DPOUNIT_Group, CVorDPM_DPOUNIT_Unit> {
public:
    explicit CVorDPMDPOUnit(CVorDPMStorage* storage);

    VOR::ErrorStatus GetAllUnit(CKZList<CVorDPM_DPOUNIT_Unit*>& out, int = 0) {
        return AllRows(out);
    }
    VOR::ErrorStatus AddUnit(CVorDPM_DPOUNIT_Unit* row) { return AddRow(row); }
};
