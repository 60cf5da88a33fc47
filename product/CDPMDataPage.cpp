#include "CDPMDataPage.h"

CDPMDataPage::CDPMDataPage(QWidget* parent) : CVorDPMPropertPageBase(IDD, tr("产品数据"), parent) {}

int CDPMDataPage::SetCurrentPath(const QString& path) {
    m_currentPath = path;
    return 1;
}
