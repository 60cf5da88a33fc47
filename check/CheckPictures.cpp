#include "CheckPictures.h"

#include <QImage>

void CheckPictures::Add(const QString& table, int row, const QString& what,
                        const QByteArray& bytes) {
    if (!bytes.isEmpty()) m_pictures.append({table, row, what, bytes});
}

QVector<CheckFinding> CheckPictures::Decode() const {
    CheckFileReport report(m_place);
    for (const Picture& picture : m_pictures) {
        if (!QImage::fromData(picture.bytes).isNull()) continue;
        report.Add(CheckKind::PictureUndecodable, picture.table, picture.row, QString(),
                   tr("%1无法解码（%2 字节）").arg(picture.what).arg(picture.bytes.size()));
    }
    return report.Take();
}
