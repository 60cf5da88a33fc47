#include "ToolConsole.h"

#include <cstdio>

ToolConsole::ToolConsole() : m_out(stdout), m_err(stderr) {
    m_out.setEncoding(QStringConverter::Utf8);
    m_err.setEncoding(QStringConverter::Utf8);
}

QString ToolConsole::Record(const QStringList& fields) {
    QStringList escaped;
    for (QString field : fields) {
        field.replace(QLatin1Char('\\'), QStringLiteral("\\\\"));
        field.replace(QLatin1Char('\t'), QStringLiteral("\\t"));
        field.replace(QLatin1Char('\n'), QStringLiteral("\\n"));
        field.replace(QLatin1Char('\r'), QStringLiteral("\\r"));
        escaped.append(field);
    }
    return escaped.join(QLatin1Char('\t')) + QLatin1Char('\n');
}

int ToolConsole::Fail(int code, const QString& message) {
    m_out.flush();
    QString line = message;
    line.replace(QLatin1Char('\n'), QLatin1Char(' '));
    m_err << "vordpm: " << line << Qt::endl;
    return code;
}
