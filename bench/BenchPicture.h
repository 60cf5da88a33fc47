// Pictures for the benchmarks' definitions, as the store keeps them.
#pragma once

#include <QByteArray>

class QImage;

namespace BenchPicture {

// The image as the bytes of a PNG file.
QByteArray PngBytes(const QImage& image);

}  // namespace BenchPicture
