// Pictures for records and files: an image encoded as a picture file holds it, and a plain
// picture of one colour, which tests tell apart by that colour.
#pragma once

#include <QBuffer>
#include <QByteArray>
#include <QColor>
#include <QImage>

inline QByteArray Encoded(const QImage& image, const char* format = "PNG") {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes;
}

inline QImage Solid(int width, int height, const QColor& color) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(color);
    return image;
}
