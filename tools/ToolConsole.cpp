#include "ToolConsole.h"

#include <cstdio>

namespace {

// Whether a character is written escaped: the backslash itself, and every control character
// (C0, DEL and C1), which would end a record's line, move a terminal's cursor or clear its
// screen, or cut the text short for a program reading it as a C string.
bool NeedsEscape(char16_t c) {
    return c < 0xa0 && (c < 0x20 || c == u'\\' || c >= 0x7f);
}

// Writes the escape of such a character: \\, \t, \n and \r for the common ones, \xHH for every
// other. Returns the position after it.
char16_t* WriteEscape(char16_t c, char16_t* out) {
    static constexpr char16_t kHex[] = u"0123456789abcdef";
    *out++ = u'\\';
    switch (c) {
        case u'\\':
            *out++ = u'\\';
            return out;
        case u'\t':
            *out++ = u't';
            return out;
        case u'\n':
            *out++ = u'n';
            return out;
        case u'\r':
            *out++ = u'r';
            return out;
        default:
            *out++ = u'x';
            *out++ = kHex[c >> 4];
            *out++ = kHex[c & 0xf];
            return out;
    }
}

// Writes the fields joined by tabs, escaped, and a newline at the end of `line`. The line is
// sized once for the worst case and written through a pointer: appending a short field piece
// by piece costs more than copying it.
template <class Fields>
void AppendRecord(const Fields& fields, QString& line) {
    qsizetype worst = 1;
    for (const QStringView field : fields) worst += 4 * field.size() + 1;
    const qsizetype start = line.size();
    line.resize(start + worst);
    char16_t* const begin = reinterpret_cast<char16_t*>(line.data());
    char16_t* out = begin + start;
    bool first = true;
    for (const QStringView field : fields) {
        if (!first) *out++ = u'\t';
        first = false;
        for (const QChar character : field) {
            const char16_t c = character.unicode();
            if (NeedsEscape(c))
                out = WriteEscape(c, out);
            else
                *out++ = c;
        }
    }
    *out++ = u'\n';
    line.truncate(out - begin);
}

}  // namespace

ToolConsole::ToolConsole() : m_out(stdout), m_err(stderr) {
    m_out.setEncoding(QStringConverter::Utf8);
    m_err.setEncoding(QStringConverter::Utf8);
}

QString ToolConsole::Record(const QStringList& fields) {
    QString line;
    AppendRecord(fields, line);
    return line;
}

void ToolConsole::WriteRecord(std::initializer_list<QStringView> fields) {
    // Truncated, not cleared: clear() would give the buffer back.
    m_line.truncate(0);
    AppendRecord(fields, m_line);
    m_out << m_line;
}

int ToolConsole::Fail(int code, const QString& message) {
    m_out.flush();
    m_err << "vordpm: " << Record({message}) << Qt::flush;
    return code;
}

void ToolConsole::Warn(const QString& message) {
    m_err << "vordpm: warning: " << Record({message}) << Qt::flush;
}
