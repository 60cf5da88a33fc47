#include "CVorDPM_DPC_Content.h"

#include "VorDPMFieldIO.h"

VORDPM_DEFINE_ROW(CVorDPM_DPC_Content, "content",
                  {{"dpd", "TEXT"},
                   {"type0", "TEXT"},
                   {"type1", "TEXT"},
                   {"type2", "TEXT"},
                   {"description", "TEXT"}})

QString CVorDPM_DPC_Content::GetType(ProductType level) const {
    switch (level) {
        case FirstType:
            return m_Type0;
        case SecondType:
            return m_Type1;
        case ThirdType:
            return m_Type2;
        default:
            return {};
    }
}

void CVorDPM_DPC_Content::SetType(ProductType level, const QString& text) {
    switch (level) {
        case FirstType:
            SetType0(text);
            break;
        case SecondType:
            SetType1(text);
            break;
        case ThirdType:
            SetType2(text);
            break;
        default:
            break;
    }
}
