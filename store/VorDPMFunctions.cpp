#include "VorDPMFunctions.h"

#include <QCoreApplication>
#include <QUuid>
#include <cstring>

void VOR::ParseString(const QString& text, const QString& delimiter, QStringList& out) {
    if (delimiter.isEmpty()) {
        if (!text.isEmpty()) out.append(text);
        return;
    }
    const QStringList parts = text.split(delimiter, Qt::SkipEmptyParts);
    out.append(parts);
}

QString VOR::TranslateType(emVorDPM_VALUETYPE type) {
    switch (type) {
        case emVorDPM_VALUETYPE_INT:
            return QCoreApplication::translate("VOR", "整型");
        case emVorDPM_VALUETYPE_DOUBLE:
            return QCoreApplication::translate("VOR", "实型");
        case emVorDPM_VALUETYPE_STRING:
            return QCoreApplication::translate("VOR", "字符串");
        default:
            return QCoreApplication::translate("VOR", "未知");
    }
}

QString VOR::CreateGuid() {
    return QUuid::createUuid().toString(QUuid::WithBraces).toUpper();
}

void VOR::MByteToWChar(const char* bytes, int length, QString& out) {
    if (!bytes || length <= 0) {
        out.clear();
        return;
    }
    out = QString::fromUtf8(bytes, length);
}

void VOR::WCharToMByte(const QString& text, char*& out, int& length) {
    const QByteArray bytes = text.toUtf8();
    length = static_cast<int>(bytes.size());
    out = new char[static_cast<size_t>(length) + 1];
    std::memcpy(out, bytes.constData(), static_cast<size_t>(length));
    out[length] = '\0';
}
