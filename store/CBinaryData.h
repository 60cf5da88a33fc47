// Growable byte buffer that carries pictures, drawing blocks and script texts.
#pragma once

#include <QByteArray>
#include <QString>

#include "VorDPMExport.h"

class VORDPM_API CBinaryData {
public:
    explicit CBinaryData(int initialSize = 0);
    explicit CBinaryData(const QByteArray& bytes);

    void Empty();
    void Append(const char* bytes, int length);
    char* GetPtr();
    const char* GetPtr() const;
    int GetSize() const;
    // Nonzero on success; a failed load leaves the buffer as it was.
    int LoadFromFile(const QString& path);
    int SaveToFile(const QString& path) const;

    const QByteArray& Bytes() const { return m_bytes; }
    bool operator==(const CBinaryData& other) const { return m_bytes == other.m_bytes; }

private:
    QByteArray m_bytes;
};
