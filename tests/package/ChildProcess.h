// Runs a program to its end and keeps what it printed, for tests that check the installed
// programs and the build's tools the way a user or a script runs them.
#pragma once

#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <string>

struct ChildProcess {
    int exitCode = -1;  // -1 when the program could not start, crashed or timed out
    QString out;
    QString err;

    // The test's own environment; tests add or remove variables on a copy.
    static QProcessEnvironment Environment() { return QProcessEnvironment::systemEnvironment(); }
    static ChildProcess Run(const QString& program, const QStringList& arguments,
                            const QProcessEnvironment& environment = Environment(),
                            const QString& workingDirectory = QString());

    // The command's output, for failure messages.
    std::string Output() const;
};
