#include "CBinaryData.h"

#include <QFile>
#include <QSaveFile>

CBinaryData::CBinaryData(int initialSize) {
    m_bytes.reserve(initialSize > 0 ? initialSize : 0);
}

CBinaryData::CBinaryData(const QByteArray& bytes) : m_bytes(bytes) {}

void CBinaryData::Empty() {
    m_bytes.clear();
}

void CBinaryData::Append(const char* bytes, int length) {
    if (bytes && length > 0) m_bytes.append(bytes, length);
}

char* CBinaryData::GetPtr() {
    return m_bytes.data();
}

const char* CBinaryData::GetPtr() const {
    return m_bytes.constData();
}

int CBinaryData::GetSize() const {
    return static_cast<int>(m_bytes.size());
}

int CBinaryData::LoadFromFile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return 0;
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError) return 0;
    m_bytes = bytes;
    return 1;
}

int CBinaryData::SaveToFile(const QString& path) const {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) return 0;
    file.write(m_bytes);
    return file.commit() ? 1 : 0;
}
