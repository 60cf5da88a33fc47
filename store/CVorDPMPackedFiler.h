// Internal: a row's fields packed into one byte string, as the server root keeps a row: each
// field a tag ('i' int32, 'd' double, 's' UTF-8 text, 'b' bytes), then its value in network
// byte order, texts and bytes after their 32-bit length. A row is then one server row, however
// many fields it has, and reads back exactly as written (texts, blobs and packed values alike).
#pragma once

#include <QByteArrayView>

#include "CVorDPMFiler.h"
#include "VorDPMExport.h"

class VORDPM_API CVorDPMPackedFiler : public CVorDPMFiler {
public:
    // Writing: the fields are appended to Packed().
    CVorDPMPackedFiler() = default;
    // Reading the packed fields of one row; the bytes must outlive the filer.
    CVorDPMPackedFiler(const char* data, qsizetype size) : m_data(data), m_size(size) {}

    int ReadInt() override;
    double ReadDouble() override;
    QString ReadString() override;
    QByteArray ReadBytes() override;

    void WriteInt(int value) override;
    void WriteDouble(double value) override;
    void WriteString(const QString& value) override;
    void WriteBytes(const QByteArray& value) override;

    const QByteArray& Packed() const { return m_packed; }
    // False when a field was missing, of another type than asked, or cut short: the row is
    // damaged and must not be taken.
    bool Intact() const { return m_intact; }

private:
    // The `length` bytes of a field tagged `tag`; null (and not intact) when they are not there.
    const char* Take(char tag, qsizetype length);
    // The bytes of a text or bytes field tagged `tag`, in the packed row.
    QByteArrayView TakeSized(char tag);
    void PutSized(char tag, const char* bytes, qsizetype size);

    QByteArray m_packed;
    const char* m_data = nullptr;
    qsizetype m_size = 0;
    qsizetype m_next = 0;
    bool m_intact = true;
};
