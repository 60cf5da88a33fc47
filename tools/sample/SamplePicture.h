// Renders a sketch into a small labelled PNG picture for picture rows and library information.
#pragma once

#include <QByteArray>
#include <QRectF>

#include "SampleSketch.h"

class QPainter;

class SamplePicture {
public:
    // PNG bytes of the sketch fitted into the picture with its title as a caption. Texts are
    // drawn only when a QGuiApplication runs (fonts need one); the lines are drawn always.
    static QByteArray Png(const SampleSketch& sketch);

private:
    static QRectF Bounds(const QList<SampleSketch::Item>& items);
    static void Draw(QPainter& painter, const SampleSketch::Item& item, bool withText);
};
