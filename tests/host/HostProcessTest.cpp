#include <gtest/gtest.h>

#include <QImage>
#include <QProcess>
#include <QSettings>
#include <QTemporaryDir>

#include "CVorDPMEditorSettings.h"

// The host run as a user runs it, unattended: it opens the editor, reports when the window is
// shown and closes it again. How it refuses an editor library is the loader's test; its exit
// code for a missing one is checked with the languages of its messages.
namespace {

QString BuildFile(const QString& relative) {
    return qEnvironmentVariable("VORDPM_BUILD_DIR") + QLatin1Char('/') + relative;
}

class HostProcessTest : public ::testing::Test {
protected:
    struct Outcome {
        int exitCode = -1;
        QString out;
        QString err;
    };

    // Settings and the default root go into a scratch folder, not the user's.
    Outcome RunHost(const QStringList& arguments) {
        QProcess host;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), scratch.filePath("config"));
        environment.insert(QStringLiteral("XDG_DATA_HOME"), scratch.filePath("data"));
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        environment.remove(QStringLiteral("VORDPM_ROOT"));
        environment.remove(QStringLiteral("VORDPM_EDITOR"));
        host.setProcessEnvironment(environment);
        host.start(BuildFile(QStringLiteral("host/vordpm-host")), arguments);
        EXPECT_TRUE(host.waitForFinished(60'000)) << "the host did not finish";
        return {host.exitStatus() == QProcess::NormalExit ? host.exitCode() : -1,
                QString::fromUtf8(host.readAllStandardOutput()),
                QString::fromUtf8(host.readAllStandardError())};
    }

    QString Root() const { return scratch.filePath(QStringLiteral("root")); }

    QTemporaryDir scratch;
};

// The host binds the editor built alongside it; --all-libraries turns the editor's option on
// before the editor runs.
TEST_F(HostProcessTest, OpensTheEditorOnTheRootAndReportsWhenItIsShown) {
    const Outcome run =
        RunHost({QStringLiteral("--root"), Root(), QStringLiteral("--all-libraries"),
                 QStringLiteral("--measure-startup")});
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_TRUE(run.out.contains(QStringLiteral("startup-ms: "))) << run.out.toStdString();
    const QSettings editor(scratch.filePath(QStringLiteral("config/VorDPM/VorDPMEditor.conf")),
                           QSettings::IniFormat);
    EXPECT_TRUE(editor.value(QLatin1String(CVorDPMEditorSettings::kShowAllLibraries)).toBool());
}

TEST_F(HostProcessTest, TakesAScreenshotOfTheEditorsWindow) {
    const QString file = scratch.filePath(QStringLiteral("editor.png"));
    const Outcome run =
        RunHost({QStringLiteral("--root"), Root(), QStringLiteral("--screenshot"), file});
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    const QImage image(file);
    EXPECT_GT(image.width(), 300);
    EXPECT_GT(image.height(), 200);
}

}  // namespace
