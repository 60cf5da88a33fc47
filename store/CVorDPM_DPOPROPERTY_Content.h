// Standard property of the common property table.
#pragma once

#include "CVorDPMObject.h"

class VORDPM_API CVorDPM_DPOPROPERTY_Content : public CVorDPMObject {
    VORDPM_DECLARE_ROW(CVorDPM_DPOPROPERTY_Content)

    VORDPM_FIELD(QString, Name)
    VORDPM_FIELD(int, GroupId)
    VORDPM_FIELD(emVorDPM_VALUETYPE, ValueType)
    VORDPM_FIELD(QString, Unit)
    VORDPM_FIELD(QString, DefaultValue)
    VORDPM_FIELD(QString, Description)

public:
    template <class Self, class Visitor>
    static void VisitFields(Self& self, Visitor&& visit) {
        visit(self.m_Name);
        visit(self.m_GroupId);
        visit(self.m_ValueType);
        visit(self.m_Unit);
        visit(self.m_DefaultValue);
        visit(self.m_Description);
    }
};
