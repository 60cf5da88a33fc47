// External catalog reference of a catalog: a catalog of another library.
#pragma once

#include "CVorDPMObject.h"

class VORDPM_API CVorDPM_DPC_Include : public CVorDPMObject {
    VORDPM_DECLARE_ROW(CVorDPM_DPC_Include)

    VORDPM_FIELD(QString, LibraryName)
    VORDPM_FIELD(QString, DPCName)

public:
    template <class Self, class Visitor>
    static void VisitFields(Self& self, Visitor&& visit) {
        visit(self.m_LibraryName);
        visit(self.m_DPCName);
    }
};
