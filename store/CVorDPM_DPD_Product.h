// Product row of a product definition with its naming rule.
#pragma once

#include "CVorDPMObject.h"

class VORDPM_API CVorDPM_DPD_Product : public CVorDPMObject {
    VORDPM_DECLARE_ROW(CVorDPM_DPD_Product)

    VORDPM_FIELD(QString, Name)
    VORDPM_FIELD(QString, NameRule)
    VORDPM_FIELD(QString, Description)

public:
    template <class Self, class Visitor>
    static void VisitFields(Self& self, Visitor&& visit) {
        visit(self.m_Name);
        visit(self.m_NameRule);
        visit(self.m_Description);
    }
};
