#include "CVorDPMPictureCtrl.h"

#include <QPainter>

#include "CBinaryData.h"

CVorDPMPictureCtrl::CVorDPMPictureCtrl(QWidget* parent) : QWidget(parent) {}

int CVorDPMPictureCtrl::LoadFromBuffer(const CBinaryData& data) {
    if (data.GetSize() == 0) return 0;
    QImage image;
    image.loadFromData(data.Bytes());
    SetImage(image);
    return 1;
}

int CVorDPMPictureCtrl::Load(const QString& path) {
    QImage image;
    image.load(path);
    SetImage(image);
    return HasImage() ? 1 : 0;
}

void CVorDPMPictureCtrl::Clear() {
    SetImage(QImage());
}

void CVorDPMPictureCtrl::SetImage(const QImage& image) {
    m_image = image;
    // Loading does not repaint by itself; the new picture must show at once.
    update();
}

void CVorDPMPictureCtrl::paintEvent(QPaintEvent*) {
    if (m_image.isNull()) return;
    QPainter painter(this);
    // Stretched over the whole window, aspect ratio not kept, smoothly averaged; alpha blends.
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(rect(), m_image);
}
