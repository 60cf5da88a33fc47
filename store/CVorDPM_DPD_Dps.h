// Parametric shape script of a product definition; the text is kept as UTF-8 bytes.
#pragma once

#include "CBinaryData.h"
#include "CVorDPMObject.h"

class VORDPM_API CVorDPM_DPD_Dps : public CVorDPMObject {
    VORDPM_DECLARE_ROW(CVorDPM_DPD_Dps)

    VORDPM_FIELD(QString, Name)
    VORDPM_FIELD(QString, Description)
    VORDPM_FIELD(CBinaryData, Content)

public:
    template <class Self, class Visitor>
    static void VisitFields(Self& self, Visitor&& visit) {
        visit(self.m_Name);
        visit(self.m_Description);
        visit(self.m_Content);
    }
};
