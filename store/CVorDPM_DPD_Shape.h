// Parametric shape row of a product definition: its script and the script's parameters.
#pragma once

#include "CVorDPMObject.h"

class VORDPM_API CVorDPM_DPD_Shape : public CVorDPMObject {
    VORDPM_DECLARE_ROW(CVorDPM_DPD_Shape)

    VORDPM_FIELD(QString, Name)
    VORDPM_FIELD(QString, Description)
    VORDPM_FIELD(int, DPSId)
    // Parameter names, their kind codes and their positions, each joined by ",".
    VORDPM_FIELD(QString, Param)
    VORDPM_FIELD(QString, ParamType)
    VORDPM_FIELD(QString, ParamIndex)

public:
    // Kind code of one parameter; -1 when the shape has no such parameter.
    int GetParamType(const QString& name) const;
    // Position of one parameter; -1 when the shape has no such parameter.
    int GetParamIndex(const QString& name) const;
    // Sets the position of one parameter; 1 on success, 0 when there is no such parameter.
    int SetParamIndex(const QString& name, int index);

    template <class Self, class Visitor>
    static void VisitFields(Self& self, Visitor&& visit) {
        visit(self.m_Name);
        visit(self.m_Description);
        visit(self.m_DPSId);
        visit(self.m_Param);
        visit(self.m_ParamType);
        visit(self.m_ParamIndex);
    }

private:
    int ParamPosition(const QString& name) const;
    int IntAt(const QString& joined, int position) const;
};
