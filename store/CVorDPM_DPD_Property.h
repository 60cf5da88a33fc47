// Property definition row of a product definition.
#pragma once

#include "CVorDPMObject.h"

class VORDPM_API CVorDPM_DPD_Property : public CVorDPMObject {
    VORDPM_DECLARE_ROW(CVorDPM_DPD_Property)

    VORDPM_FIELD(int, PropertyId)
    VORDPM_FIELD(QString, PropertyAlias)
    VORDPM_FIELD(QString, ParamAlias)
    VORDPM_FIELD(QString, Chapter)
    VORDPM_FIELD(QString, Unit)
    VORDPM_FIELD(QString, DefValue)
    VORDPM_FIELD(int, SerialCheck)
    VORDPM_FIELD(int, SystemProperty)
    VORDPM_FIELD(QString, Description)

public:
    template <class Self, class Visitor>
    static void VisitFields(Self& self, Visitor&& visit) {
        visit(self.m_PropertyId);
        visit(self.m_PropertyAlias);
        visit(self.m_ParamAlias);
        visit(self.m_Chapter);
        visit(self.m_Unit);
        visit(self.m_DefValue);
        visit(self.m_SerialCheck);
        visit(self.m_SystemProperty);
        visit(self.m_Description);
    }
};
