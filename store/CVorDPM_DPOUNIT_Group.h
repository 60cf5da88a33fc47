// Group of the common unit table.
#pragma once

#include "CVorDPMObject.h"

class VORDPM_API CVorDPM_DPOUNIT_Group : public CVorDPMObject {
    VORDPM_DECLARE_ROW(CVorDPM_DPOUNIT_Group)

    VORDPM_FIELD(QString, Name)

public:
    template <class Self, class Visitor>
    static void VisitFields(Self& self, Visitor&& visit) {
        visit(self.m_Name);
    }
};
