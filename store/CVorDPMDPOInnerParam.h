// The common table of built-in parameters, in groups.
#pragma once

#include "CVorDPMGroupedTable.h"
#include "CVorDPM_DPOINNERPARAM_Content.h"
#include "CVorDPM_DPOINNERPARAM_Group.h"

class VORDPM_API CVorDPMDPOInnerParam
    : public CVorDPMGroupedTable<CVorDPM_DPOINNERPARAM_Group, CVorDPM_DPOINNERPARAM_Content> {
public:
    explicit CVorDPMDPOInnerParam(CVorDPMStorage* storage);

    VOR::ErrorStatus GetAllContent(CKZList<CVorDPM_DPOINNERPARAM_Content*>& out, int = 0) {
        return AllRows(out);
    }
    VOR::ErrorStatus AddContent(CVorDPM_DPOINNERPARAM_Content* row) { return AddRow(row); }
};
