// Built-in parameter of the common tables.
#pragma once

#include "CVorDPMObject.h"

class VORDPM_API CVorDPM_DPOINNERPARAM_Content : public CVorDPMObject {
    VORDPM_DECLARE_ROW(CVorDPM_DPOINNERPARAM_Content)

    VORDPM_FIELD(QString, Name)
    VORDPM_FIELD(int, GroupId)
    VORDPM_FIELD(QString, Description)

public:
    template <class Self, class Visitor>
    static void VisitFields(Self& self, Visitor&& visit) {
        visit(self.m_Name);
        visit(self.m_GroupId);
        visit(self.m_Description);
    }
};
