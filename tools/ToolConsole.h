// Standard output and error of the command-line tool, as UTF-8 text, and its exit codes.
#pragma once

#include <QString>
#include <QStringList>
#include <QTextStream>
#include <initializer_list>

class ToolConsole {
public:
    enum Exit { Success = 0, NotFound = 1, BadUsage = 2 };

    ToolConsole();

    QTextStream& Out() { return m_out; }
    // Fields joined by tabs and ended by a newline. Backslash, tab and line breaks inside a
    // field become \\, \t, \n and \r, every other control character \xHH, so that every
    // record keeps one line and its columns and nothing in it acts on a terminal.
    static QString Record(const QStringList& fields);
    // Writes such a record to standard output. Its line is made in a buffer that is kept, so
    // that printing a large table makes no text per row.
    void WriteRecord(std::initializer_list<QStringView> fields);
    // Writes "vordpm: <message>" as one line to standard error and returns `code`.
    int Fail(int code, const QString& message);
    // Writes "vordpm: warning: <message>" as one line to standard error; the command goes on.
    void Warn(const QString& message);

private:
    QString m_line;
    QTextStream m_out;
    QTextStream m_err;
};
