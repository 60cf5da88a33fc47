#include "ToolConsole.h"

#include <cstdio>

ToolConsole::ToolConsole() : m_out(stdout), m_err(stderr) {
    m_out.setEncoding(QStringConverter::Utf8);
    m_err.setEncoding(QStringConverter::Utf8);
}

QString ToolConsole::Record(const QStringList& fields) {
    QString line;
    for (qsizetype i = 0; i < fields.size(); ++i) {
        if (i > 0) line += QLatin1Char('\t');
        AppendEscaped(fields[i], line);
    }
    line += QLatin1Char('\n');
    return line;
}

// Copies the runs between special characters whole: most fields have none.
void ToolConsole::AppendEscaped(const QString& field, QString& line) {
    qsizetype start = 0;
    for (qsizetype i = 0; i < field.size(); ++i) {
        const char16_t c = field[i].unicode();
        const char* escape = c == u'\\'   ? "\\\\"
                             : c == u'\t' ? "\\t"
                             : c == u'\n' ? "\\n"
                             : c == u'\r' ? "\\r"
                                          : nullptr;
        if (!escape) continue;
        line += QStringView(field).mid(start, i - start);
        line += QLatin1String(escape);
        start = i + 1;
    }
    line += QStringView(field).mid(start);
}

int ToolConsole::Fail(int code, const QString& message) {
    m_out.flush();
    QString line = message;
    line.replace(QLatin1Char('\n'), QLatin1Char(' '));
    m_err << "vordpm: " << line << Qt::endl;
    return code;
}
