#include "BenchPicture.h"

#include <QBuffer>
#include <QImage>

QByteArray BenchPicture::PngBytes(const QImage& image) {
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return png;
}
