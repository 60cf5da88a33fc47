// Group of the built-in parameter table.
#pragma once

#include "CVorDPMObject.h"

class VORDPM_API CVorDPM_DPOINNERPARAM_Group : public CVorDPMObject {
    VORDPM_DECLARE_ROW(CVorDPM_DPOINNERPARAM_Group)

    VORDPM_FIELD(QString, Name)

public:
    template <class Self, class Visitor>
    static void VisitFields(Self& self, Visitor&& visit) {
        visit(self.m_Name);
    }
};
