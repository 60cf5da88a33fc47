#include "ChildProcess.h"

#include <QProcess>

namespace {

// Building the example host is the slowest child; it takes seconds, not minutes.
constexpr int kTimeoutMs = 300'000;

}  // namespace

ChildProcess ChildProcess::Run(const QString& program, const QStringList& arguments,
                               const QProcessEnvironment& environment,
                               const QString& workingDirectory) {
    QProcess process;
    process.setProcessEnvironment(environment);
    if (!workingDirectory.isEmpty()) process.setWorkingDirectory(workingDirectory);
    process.start(program, arguments);
    ChildProcess result;
    if (!process.waitForStarted()) {
        result.err = process.errorString();
        return result;
    }
    if (!process.waitForFinished(kTimeoutMs)) process.kill();
    process.waitForFinished();
    result.out = QString::fromUtf8(process.readAllStandardOutput());
    result.err = QString::fromUtf8(process.readAllStandardError());
    if (process.exitStatus() == QProcess::NormalExit) result.exitCode = process.exitCode();
    return result;
}

std::string ChildProcess::Output() const {
    return QStringLiteral("exit %1\n--- stdout ---\n%2\n--- stderr ---\n%3")
        .arg(exitCode)
        .arg(out, err)
        .toStdString();
}
