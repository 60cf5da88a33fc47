#include "CVorDPMPackedFiler.h"

#include <QtEndian>
#include <cstring>

const char* CVorDPMPackedFiler::Take(char tag, qsizetype length) {
    if (!m_intact || m_next + 1 + length > m_size || m_data[m_next] != tag) {
        m_intact = false;
        return nullptr;
    }
    const char* value = m_data + m_next + 1;
    m_next += 1 + length;
    return value;
}

QByteArrayView CVorDPMPackedFiler::TakeSized(char tag) {
    const char* header = Take(tag, 4);
    if (!header) return {};
    const qint64 length = qFromBigEndian<quint32>(header);
    if (length > m_size - m_next) {
        m_intact = false;
        return {};
    }
    const QByteArrayView bytes(m_data + m_next, static_cast<qsizetype>(length));
    m_next += static_cast<qsizetype>(length);
    return bytes;
}

int CVorDPMPackedFiler::ReadInt() {
    const char* value = Take('i', 4);
    return value ? qFromBigEndian<qint32>(value) : 0;
}

double CVorDPMPackedFiler::ReadDouble() {
    const char* value = Take('d', 8);
    if (!value) return 0.0;
    const quint64 bits = qFromBigEndian<quint64>(value);
    double number = 0.0;
    std::memcpy(&number, &bits, sizeof number);
    return number;
}

QString CVorDPMPackedFiler::ReadString() {
    return QString::fromUtf8(TakeSized('s'));
}

QByteArray CVorDPMPackedFiler::ReadBytes() {
    return TakeSized('b').toByteArray();
}

void CVorDPMPackedFiler::WriteInt(int value) {
    char bytes[5] = {'i'};
    qToBigEndian<qint32>(value, bytes + 1);
    m_packed.append(bytes, 5);
}

void CVorDPMPackedFiler::WriteDouble(double value) {
    quint64 bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    char bytes[9] = {'d'};
    qToBigEndian<quint64>(bits, bytes + 1);
    m_packed.append(bytes, 9);
}

void CVorDPMPackedFiler::WriteString(const QString& value) {
    const QByteArray utf8 = value.toUtf8();
    PutSized('s', utf8.constData(), utf8.size());
}

void CVorDPMPackedFiler::WriteBytes(const QByteArray& value) {
    PutSized('b', value.constData(), value.size());
}

void CVorDPMPackedFiler::PutSized(char tag, const char* bytes, qsizetype size) {
    char header[5] = {tag};
    qToBigEndian<quint32>(static_cast<quint32>(size), header + 1);
    m_packed.append(header, 5);
    m_packed.append(bytes, size);
}
