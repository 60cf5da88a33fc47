// Runs the built vordpm tool as a child process and captures what it printed.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

struct ToolRun {
    int exitCode = -1;
    QByteArray rawOut;  // standard output as written
    QString out;
    QString err;

    QStringList OutLines() const;
    // True when standard error holds exactly one line, as every failure must print.
    bool HasOneErrorLine() const;
};

class ToolRunner {
public:
    // The tool as built next to the tests: $VORDPM_BUILD_DIR/tools/vordpm.
    static QString Program();
    static ToolRun Run(const QStringList& arguments);
};
