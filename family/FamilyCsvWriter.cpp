#include "FamilyCsvWriter.h"

#include <QIODevice>

namespace {

// Written in blocks: one write per row would make 100,000 system calls.
constexpr qsizetype kBlock = 1 << 20;

template <class Text, class Char>
bool NeedsQuotes(const Text& field, Char delimiter) {
    for (const Char c : field)
        if (c == delimiter || c == Char('"') || c == Char('\n') || c == Char('\r')) return true;
    return false;
}

template <class Text, class Char>
void AppendField(Text& out, const Text& field, Char delimiter) {
    if (!NeedsQuotes(field, delimiter)) {
        out += field;
        return;
    }
    const Char quote('"');
    out += quote;
    for (const Char c : field) {
        if (c == quote) out += quote;
        out += c;
    }
    out += quote;
}

}  // namespace

FamilyCsvWriter::FamilyCsvWriter(QIODevice& device, char delimiter)
    : m_device(device), m_delimiter(delimiter), m_buffer("\xEF\xBB\xBF") {}

bool FamilyCsvWriter::WriteRow(const std::vector<QByteArray>& cells) {
    for (size_t i = 0; i < cells.size(); ++i) {
        if (i > 0) m_buffer += m_delimiter;
        AppendField(m_buffer, cells[i], m_delimiter);
    }
    m_buffer += "\r\n";
    return m_buffer.size() < kBlock || Flush();
}

bool FamilyCsvWriter::Finish() {
    return Flush();
}

bool FamilyCsvWriter::Flush() {
    if (m_device.write(m_buffer) != m_buffer.size())
        return Fail(tr("写入失败: %1").arg(m_device.errorString()));
    m_buffer.clear();
    return true;
}

QString FamilyCsvWriter::Line(const QStringList& cells, QChar delimiter) {
    QString line;
    for (qsizetype i = 0; i < cells.size(); ++i) {
        if (i > 0) line += delimiter;
        AppendField(line, cells[i], delimiter);
    }
    return line;
}
