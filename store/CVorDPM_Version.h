// Version record of a library, catalog, template or product definition.
#pragma once

#include "CVorDPMObject.h"

class VORDPM_API CVorDPM_Version : public CVorDPMObject {
    VORDPM_DECLARE_ROW(CVorDPM_Version)

    VORDPM_FIELD(double, Version)
    VORDPM_FIELD(QString, Author)
    VORDPM_FIELD(QString, Time)
    VORDPM_FIELD(QString, Description)

public:
    template <class Self, class Visitor>
    static void VisitFields(Self& self, Visitor&& visit) {
        visit(self.m_Version);
        visit(self.m_Author);
        visit(self.m_Time);
        visit(self.m_Description);
    }
};
