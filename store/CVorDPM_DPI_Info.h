// Information record of a library: company, texts, picture and product counts.
#pragma once

#include "CBinaryData.h"
#include "CVorDPMObject.h"

class VORDPM_API CVorDPM_DPI_Info : public CVorDPMObject {
    VORDPM_DECLARE_ROW(CVorDPM_DPI_Info)

    VORDPM_FIELD(QString, CompanyName)
    VORDPM_FIELD(QString, Description)
    VORDPM_FIELD(QString, Keyword)
    VORDPM_FIELD(QString, Author)
    VORDPM_FIELD(CBinaryData, Image)
    VORDPM_FIELD(int, ProductCount)
    VORDPM_FIELD(int, LocalProductCount)
    VORDPM_FIELD(int, IncludeProductCount)

public:
    template <class Self, class Visitor>
    static void VisitFields(Self& self, Visitor&& visit) {
        visit(self.m_CompanyName);
        visit(self.m_Description);
        visit(self.m_Keyword);
        visit(self.m_Author);
        visit(self.m_Image);
        visit(self.m_ProductCount);
        visit(self.m_LocalProductCount);
        visit(self.m_IncludeProductCount);
    }
};
