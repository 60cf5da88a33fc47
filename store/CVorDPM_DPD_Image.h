// Picture row of a product definition, with its drawing blocks.
#pragma once

#include "CBinaryData.h"
#include "CVorDPMObject.h"

class VORDPM_API CVorDPM_DPD_Image : public CVorDPMObject {
    VORDPM_DECLARE_ROW(CVorDPM_DPD_Image)

    VORDPM_FIELD(QString, Name)
    VORDPM_FIELD(QString, Description)
    VORDPM_FIELD(CBinaryData, Image)
    VORDPM_FIELD(CBinaryData, Block2d)
    VORDPM_FIELD(CBinaryData, Block3d)
    VORDPM_FIELD(CBinaryData, BlockSys)
    VORDPM_FIELD(int, IsUsingBlock)

public:
    template <class Self, class Visitor>
    static void VisitFields(Self& self, Visitor&& visit) {
        visit(self.m_Name);
        visit(self.m_Description);
        visit(self.m_Image);
        visit(self.m_Block2d);
        visit(self.m_Block3d);
        visit(self.m_BlockSys);
        visit(self.m_IsUsingBlock);
    }
};
