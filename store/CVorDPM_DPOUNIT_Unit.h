// Unit of the common unit table: symbol and factor to the group's base unit.
#pragma once

#include "CVorDPMObject.h"

class VORDPM_API CVorDPM_DPOUNIT_Unit : public CVorDPMObject {
    VORDPM_DECLARE_ROW(CVorDPM_DPOUNIT_Unit)

    VORDPM_FIELD(QString, Name)
    VORDPM_FIELD(int, GroupId)
    VORDPM_FIELD(QString, Symbol)
    VORDPM_FIELD(double, Conversion)
    VORDPM_FIELD(QString, Description)

public:
    template <class Self, class Visitor>
    static void VisitFields(Self& self, Visitor&& visit) {
        visit(self.m_Name);
        visit(self.m_GroupId);
        visit(self.m_Symbol);
        visit(self.m_Conversion);
        visit(self.m_Description);
    }
};
