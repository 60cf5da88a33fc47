// Catalog entry: one product definition placed under up to three classification levels.
#pragma once

#include "CVorDPMObject.h"

class VORDPM_API CVorDPM_DPC_Content : public CVorDPMObject {
    VORDPM_DECLARE_ROW(CVorDPM_DPC_Content)

public:
    // Classification level of an entry; -1 (NoType) is used by callers for "no level".
    enum ProductType { NoType = -1, FirstType = 0, SecondType = 1, ThirdType = 2 };

    VORDPM_FIELD(QString, DPD)
    VORDPM_FIELD(QString, Type0)
    VORDPM_FIELD(QString, Type1)
    VORDPM_FIELD(QString, Type2)
    VORDPM_FIELD(QString, Description)

public:
    // Classification text of one level; empty for a level outside 0 to 2.
    QString GetType(ProductType level) const;
    void SetType(ProductType level, const QString& text);

    template <class Self, class Visitor>
    static void VisitFields(Self& self, Visitor&& visit) {
        visit(self.m_DPD);
        visit(self.m_Type0);
        visit(self.m_Type1);
        visit(self.m_Type2);
        visit(self.m_Description);
    }
};
