// Runs the built vordpm tool as a child process and captures what it printed.
#pragma once

#include <gtest/gtest.h>

#include <QByteArray>
#include <QString>
#include <QStringList>

#include "support/TempRoot.h"

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

// Tests of the tool on a sample root that the tool itself creates in the test's scratch home.
class SampleRootToolTest : public ::testing::Test {
protected:
    // Runs the tool on the sample root.
    ToolRun Run(QStringList arguments) const {
        arguments << QStringLiteral("--root") << m_sample;
        return ToolRunner::Run(arguments);
    }

    void CreateSample() const {
        const ToolRun created = Run({"sample"});
        ASSERT_EQ(created.exitCode, 0) << created.err.toStdString();
    }

    TempRoot root;
    QString m_sample = root.Home() + QStringLiteral("/sample");
};
