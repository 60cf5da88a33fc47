#include "CVorDPMPropertPageBase.h"

#include "common/VorDPMTabOrder.h"

CVorDPMPropertPageBase::CVorDPMPropertPageBase(int templateId, const QString& caption,
                                               QWidget* parent)
    : QWidget(parent), m_templateId(templateId), m_caption(caption), m_resizer(this) {
    // A page shown on its own orders its controls itself; in the sheet the dialog orders them
    // again with its own, to the same result.
    VorDPMTabOrder::FollowLayout(this);
}

int CVorDPMPropertPageBase::SetCurrentPath(const QString&) {
    return 1;
}

void CVorDPMPropertPageBase::InitialiseOnce() {
    if (m_initialised) return;
    m_initialised = true;
    OnInitDialog();
}

void CVorDPMPropertPageBase::SetResize(QWidget* control, QPointF topLeft, QPointF bottomRight) {
    m_resizer.SetResize(control, topLeft, bottomRight);
}

void CVorDPMPropertPageBase::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    m_resizer.Apply();
}
