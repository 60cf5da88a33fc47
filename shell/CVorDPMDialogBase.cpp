#include "CVorDPMDialogBase.h"

#include <QFontMetrics>
#include <QSettings>

#include "CVorDPMEditorSettings.h"
#include "common/VorDPMTabOrder.h"

CVorDPMDialogBase::CVorDPMDialogBase(int templateId, QWidget* parent)
    : QDialog(parent), m_templateId(templateId), m_resizer(this) {
    // Set before the first show: changing the flags of a window that is being shown hides it
    // again, which leaves a dialog run by exec() invisible and impossible to close.
    setWindowFlags(windowFlags() | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                   Qt::WindowMinimizeButtonHint | Qt::WindowMaximizeButtonHint);
    VorDPMTabOrder::FollowLayout(this);
}

QRect CVorDPMDialogBase::MapDialogRect(const QRect& units) const {
    return MapDialogRect(*this, units);
}

QRect CVorDPMDialogBase::MapDialogRect(const QWidget& widget, const QRect& units) {
    const QFontMetrics metrics(widget.font());
    const double x = metrics.averageCharWidth() / 4.0;
    const double y = metrics.height() / 8.0;
    return QRect(qRound(units.x() * x), qRound(units.y() * y), qRound(units.width() * x),
                 qRound(units.height() * y));
}

bool CVorDPMDialogBase::OnInitDialog() {
    setSizeGripEnabled(true);
    return true;
}

void CVorDPMDialogBase::SetResize(QWidget* control, QPointF topLeft, QPointF bottomRight) {
    m_resizer.SetResize(control, topLeft, bottomRight);
}

void CVorDPMDialogBase::AutoLoadPlacement(const QString& key) {
    m_placementKey = key;
    QSettings settings = CVorDPMEditorSettings::Open();
    const QByteArray geometry = settings.value(key + QStringLiteral("/Placement")).toByteArray();
    if (!geometry.isEmpty()) restoreGeometry(geometry);
}

void CVorDPMDialogBase::setVisible(bool visible) {
    if (visible && !m_initialised) {
        m_initialised = true;
        OnInitDialog();
    }
    QDialog::setVisible(visible);
}

void CVorDPMDialogBase::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    m_resizer.Apply();
}

void CVorDPMDialogBase::done(int result) {
    if (!m_placementKey.isEmpty()) {
        QSettings settings = CVorDPMEditorSettings::Open();
        settings.setValue(m_placementKey + QStringLiteral("/Placement"), saveGeometry());
    }
    QDialog::done(result);
}
