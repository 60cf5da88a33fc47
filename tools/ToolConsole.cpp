#include "ToolConsole.h"

#include <cstdio>

namespace {

// Copies the runs between special characters whole: most fields have none.
void AppendEscaped(QStringView field, QString& line) {
    qsizetype start = 0;
    for (qsizetype i = 0; i < field.size(); ++i) {
        const char16_t c = field[i].unicode();
        if (c >= u' ' && c != u'\\') continue;
        const char* escape = c == u'\\'   ? "\\\\"
                             : c == u'\t' ? "\\t"
                             : c == u'\n' ? "\\n"
                             : c == u'\r' ? "\\r"
                                          : nullptr;
        if (!escape) continue;
        line += field.mid(start, i - start);
        line += QLatin1String(escape);
        start = i + 1;
    }
    line += field.mid(start);
}

template <class Fields>
void AppendRecord(const Fields& fields, QString& line) {
    bool first = true;
    for (const QStringView field : fields) {
        if (!first) line += QLatin1Char('\t');
        first = false;
        AppendEscaped(field, line);
    }
    line += QLatin1Char('\n');
}

}  // namespace

ToolConsole::ToolConsole() : m_out(stdout), m_err(stderr) {
    m_out.setEncoding(QStringConverter::Utf8);
    m_err.setEncoding(QStringConverter::Utf8);
}

QString ToolConsole::Record(const QStringList& fields) {
    // Sized once: escapes are rare, and a line grown field by field is copied as it grows.
    qsizetype size = fields.size();
    for (const QString& field : fields) size += field.size();
    QString line;
    line.reserve(size);
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
