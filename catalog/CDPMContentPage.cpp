#include "CDPMContentPage.h"

CDPMContentPage::CDPMContentPage(QWidget* parent)
    : CVorDPMPropertPageBase(IDD, tr("产品目录"), parent) {}

int CDPMContentPage::SetCurrentPath(const QString& path) {
    m_currentPath = path;
    return 1;
}
