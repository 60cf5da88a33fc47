#include "ToolConsole.h"

#include <cstdio>

namespace {

// The letter after the backslash for a character that a field cannot hold as it is, or 0.
char16_t EscapeOf(char16_t c) {
    switch (c) {
        case u'\\':
            return u'\\';
        case u'\t':
            return u't';
        case u'\n':
            return u'n';
        case u'\r':
            return u'r';
        default:
            return 0;
    }
}

// Writes the fields joined by tabs, escaped, and a newline at the end of `line`. The line is
// sized once for the worst case and written through a pointer: appending a short field piece
// by piece costs more than copying it.
template <class Fields>
void AppendRecord(const Fields& fields, QString& line) {
    qsizetype worst = 1;
    for (const QStringView field : fields) worst += 2 * field.size() + 1;
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
            const char16_t escape = c <= u'\\' ? EscapeOf(c) : 0;
            if (escape) *out++ = u'\\';
            *out++ = escape ? escape : c;
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
    QString line = message;
    line.replace(QLatin1Char('\n'), QLatin1Char(' '));
    m_err << "vordpm: " << line << Qt::endl;
    return code;
}
