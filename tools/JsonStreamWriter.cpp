#include "JsonStreamWriter.h"

#include <QStringEncoder>
#include <algorithm>
#include <charconv>
#include <cstring>

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

// Appends by copying into room made at the end: QByteArray::append of another array goes
// through its general insert, which costs more than the copy for the short pieces of JSON.
void Append(QByteArray& out, QByteArrayView bytes) {
    if (bytes.isEmpty()) return;  // an empty text may have no bytes to copy from at all
    const qsizetype at = out.size();
    out.resize(at + bytes.size());
    std::memcpy(out.data() + at, bytes.data(), size_t(bytes.size()));
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
    QuotedKey(Quoted(key));
}

void JsonStreamWriter::QuotedKey(const QByteArray& quoted) {
    BeginValue();
    Append(m_buffer, quoted);
    Append(m_buffer, ": ");
    m_afterKey = true;
}

QByteArray JsonStreamWriter::Quoted(const QString& text) {
    QByteArray quoted;
    AppendString(text, quoted);
    return quoted;
}

void JsonStreamWriter::Value(const QString& text) {
    BeginValue();
    AppendString(text, m_buffer);
    FlushWhenFull();
}

void JsonStreamWriter::Value(qint64 number) {
    BeginValue();
    char digits[24];
    const char* end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    Append(m_buffer, QByteArrayView(digits, end));
    FlushWhenFull();
}

void JsonStreamWriter::Value(const QVariant& value) {
    if (value.typeId() == QMetaType::QString)
        Value(*static_cast<const QString*>(value.constData()));
    else if (value.typeId() == QMetaType::QByteArray)
        Utf8Value(*static_cast<const QByteArray*>(value.constData()));
    else
        Value(value.toLongLong());
}

void JsonStreamWriter::Utf8Value(const QByteArray& text) {
    BeginValue();
    m_buffer.append('"');
    const qsizetype start = m_buffer.size();
    Append(m_buffer, text);
    EscapeAndClose(start, m_buffer);
    FlushWhenFull();
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
    if (m_hasElement.back()) Append(m_buffer, ",\n");
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
    if (depth == 0) return;
    const qsizetype at = m_buffer.size();
    m_buffer.resize(at + static_cast<qsizetype>(4 * depth));
    std::memset(m_buffer.data() + at, ' ', 4 * depth);
}

void JsonStreamWriter::AppendString(const QString& text, QByteArray& out) {
    out.append('"');
    const qsizetype start = out.size();
    // Encoded in place: a UTF-16 code unit takes at most three UTF-8 bytes.
    out.resize(start + 3 * text.size());
    QStringEncoder encoder(QStringEncoder::Utf8);
    char* end = encoder.appendToBuffer(out.data() + start, text);
    out.truncate(end - out.constData());
    EscapeAndClose(start, out);
}

void JsonStreamWriter::EscapeAndClose(qsizetype start, QByteArray& out) {
    // Nearly every text needs no escape; those that do are written again, escaped.
    // Through a lambda, which the compiler inlines into the search, unlike a function pointer.
    const auto first =
        std::find_if(out.cbegin() + start, out.cend(), [](char c) { return NeedsEscape(c); });
    if (first != out.cend()) {
        const QByteArray plain = out.mid(start);
        out.truncate(start);
        for (const char c : plain) {
            if (NeedsEscape(c))
                AppendEscaped(out, c);
            else
                out.append(c);
        }
    }
    out.append('"');
}

void JsonStreamWriter::FlushWhenFull() {
    if (m_buffer.size() >= kFlushSize) Flush();
}
