// Group of the common property table.
#pragma once

#include "CVorDPMObject.h"

class VORDPM_API CVorDPM_DPOPROPERTY_Group : public CVorDPMObject {
    VORDPM_DECLARE_ROW(CVorDPM_DPOPROPERTY_Group)

    VORDPM_FIELD(QString, Name)

public:
    template <class Self, class Visitor>
    static void VisitFields(Self& self, Visitor&& visit) {
        visit(self.m_Name);
    }
};
