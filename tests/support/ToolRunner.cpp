#include "support/ToolRunner.h"

#include <QProcess>

QStringList ToolRun::OutLines() const {
    return out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

bool ToolRun::HasOneErrorLine() const {
    return err.startsWith(QStringLiteral("vordpm: ")) && err.count(QLatin1Char('\n')) == 1 &&
           err.endsWith(QLatin1Char('\n'));
}

QString ToolRunner::Program() {
    return qEnvironmentVariable("VORDPM_BUILD_DIR") + QStringLiteral("/tools/vordpm");
}

ToolRun ToolRunner::Run(const QStringList& arguments) {
    QProcess process;
    process.start(Program(), arguments);
    ToolRun run;
    if (!process.waitForFinished(120000) || process.exitStatus() != QProcess::NormalExit) {
        process.kill();
        run.err = QStringLiteral("did not finish: ") + process.errorString();
        return run;
    }
    run.exitCode = process.exitCode();
    run.rawOut = process.readAllStandardOutput();
    run.out = QString::fromUtf8(run.rawOut);
    run.err = QString::fromUtf8(process.readAllStandardError());
    return run;
}
