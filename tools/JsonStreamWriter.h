// Writes JSON piece by piece to a device, laid out exactly as QJsonDocument writes an indented
// document, so that a large document is never held in memory whole. The caller gives the
// members of each object in key order (QJsonObject's order: plain code-unit order).
#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QString>
#include <QVariant>
#include <vector>

class JsonStreamWriter {
public:
    explicit JsonStreamWriter(QIODevice& out);
    // Writes what is buffered.
    ~JsonStreamWriter();
    JsonStreamWriter(const JsonStreamWriter&) = delete;
    JsonStreamWriter& operator=(const JsonStreamWriter&) = delete;

    void BeginObject();
    void EndObject();
    void BeginArray();
    void EndArray();
    // The key of the next member of the open object.
    void Key(const QString& key);
    // The same with the key as Quoted() gives it: keys repeated in every row are encoded once.
    void QuotedKey(const QByteArray& quoted);
    // A text as a JSON string in UTF-8, with its quotes.
    static QByteArray Quoted(const QString& text);
    void Value(const QString& text);
    void Value(qint64 number);
    // A text in UTF-8.
    void Utf8Value(const QByteArray& text);
    // A text (QString, or QByteArray in UTF-8) or a whole number.
    void Value(const QVariant& value);
    // Writes what is buffered; the document ends with a newline after its outermost value.
    void Flush();

private:
    // Before a value: the separator and indentation of an array element (a member's key has
    // done this already).
    void BeginValue();
    void Open(char bracket);
    void Close(char bracket);
    void Indent(size_t depth);
    static void AppendString(const QString& text, QByteArray& out);
    // Escapes the UTF-8 bytes from `start` on in place and adds the closing quote.
    static void EscapeAndClose(qsizetype start, QByteArray& out);
    void FlushWhenFull();

    QIODevice& m_out;
    QByteArray m_buffer;
    // Per open container: whether it has an element yet.
    std::vector<bool> m_hasElement;
    bool m_afterKey = false;
};
