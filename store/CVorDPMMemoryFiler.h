// Filer over an in-memory list of values; used to copy fields between two objects.
#pragma once

#include <QVariant>
#include <vector>

#include "CVorDPMFiler.h"

class CVorDPMMemoryFiler : public CVorDPMFiler {
public:
    int ReadInt() override { return Next().toInt(); }
    double ReadDouble() override { return Next().toDouble(); }
    QString ReadString() override { return Next().toString(); }
    QByteArray ReadBytes() override { return Next().toByteArray(); }

    void WriteInt(int value) override { m_values.emplace_back(value); }
    void WriteDouble(double value) override { m_values.emplace_back(value); }
    void WriteString(const QString& value) override { m_values.emplace_back(value); }
    void WriteBytes(const QByteArray& value) override { m_values.emplace_back(value); }

    // The values written so far, in order.
    const std::vector<QVariant>& Values() const { return m_values; }

private:
    QVariant Next() { return m_read < m_values.size() ? m_values[m_read++] : QVariant(); }

    std::vector<QVariant> m_values;
    size_t m_read = 0;
};
