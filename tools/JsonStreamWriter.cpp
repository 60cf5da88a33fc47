#include "JsonStreamWriter.h"

namespace {

constexpr qsizetype kFlushSize = 1 << 16;

bool NeedsEscape(char c) {
    return static_cast<unsigned char>(c) < 0x20 || c == '"' || c == '\\';
}

void AppendEscaped(QByteArray& out, char c) {
    static const char kHex[] = "0123456789abcdef";
    out.append('\\');
    switch (c) {
        case '"':
            out.append('"');
            return;
        case '\\':
            out.append('\\');
            return;
        case '\b':
            out.append('b');
            return;
        case '\f':
            out.append('f');
            return;
        case '\n':
            out.append('n');
            return;
        case '\r':
            out.append('r');
            return;
        case '\t':
            out.append('t');
            return;
        default:
            out.append("u00").append(kHex[(c >> 4) & 0xf]).append(kHex[c & 0xf]);
    }
}

}  // namespace

JsonStreamWriter::JsonStreamWriter(QIODevice& out) : m_out(out) {
    m_buffer.reserve(2 * kFlushSize);
}

JsonStreamWriter::~JsonStreamWriter() {
    Flush();
}

void JsonStreamWriter::BeginObject() {
    Open('{');
}

void JsonStreamWriter::EndObject() {
    Close('}');
}

void JsonStreamWriter::BeginArray() {
    Open('[');
}

void JsonStreamWriter::EndArray() {
    Close(']');
}

void JsonStreamWriter::Key(const QString& key) {
    BeginValue();
    AppendString(key);
    m_buffer.append(": ");
    m_afterKey = true;
}

void JsonStreamWriter::Value(const QString& text) {
    BeginValue();
    AppendString(text);
    FlushWhenFull();
}

void JsonStreamWriter::Value(qint64 number) {
    BeginValue();
    m_buffer.append(QByteArray::number(number));
    FlushWhenFull();
}

void JsonStreamWriter::Value(const QVariant& value) {
    if (value.typeId() == QMetaType::QString)
        Value(value.toString());
    else
        Value(value.toLongLong());
}

void JsonStreamWriter::Flush() {
    if (m_buffer.isEmpty()) return;
    m_out.write(m_buffer);
    m_buffer.clear();
}

void JsonStreamWriter::BeginValue() {
    if (m_afterKey) {
        m_afterKey = false;
        return;
    }
    if (m_hasElement.empty()) return;
    if (m_hasElement.back()) m_buffer.append(",\n");
    m_hasElement.back() = true;
    Indent(m_hasElement.size());
}

void JsonStreamWriter::Open(char bracket) {
    BeginValue();
    m_buffer.append(bracket).append('\n');
    m_hasElement.push_back(false);
}

void JsonStreamWriter::Close(char bracket) {
    if (m_hasElement.back()) m_buffer.append('\n');
    m_hasElement.pop_back();
    Indent(m_hasElement.size());
    m_buffer.append(bracket);
    if (m_hasElement.empty()) m_buffer.append('\n');
    FlushWhenFull();
}

void JsonStreamWriter::Indent(size_t depth) {
    m_buffer.append(static_cast<qsizetype>(4 * depth), ' ');
}

void JsonStreamWriter::AppendString(const QString& text) {
    m_buffer.append('"');
    const qsizetype start = m_buffer.size();
    m_buffer.append(text.toUtf8());
    // Nearly every text needs no escape; those that do are written again, escaped.
    const auto first = std::find_if(m_buffer.cbegin() + start, m_buffer.cend(), NeedsEscape);
    if (first != m_buffer.cend()) {
        const QByteArray plain = m_buffer.mid(start);
        m_buffer.truncate(start);
        for (const char c : plain) {
            if (NeedsEscape(c))
                AppendEscaped(m_buffer, c);
            else
                m_buffer.append(c);
        }
    }
    m_buffer.append('"');
}

void JsonStreamWriter::FlushWhenFull() {
    if (m_buffer.size() >= kFlushSize) Flush();
}
