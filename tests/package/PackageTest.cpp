#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryDir>

#include "ChildProcess.h"

// The build installed into a fresh prefix and packed into Debian packages (by the setup test
// package.stage), checked as a host developer and a user meet them.
namespace {

const QString kStage = QStringLiteral(VORDPM_STAGE_DIR);
const QString kLibDir = QStringLiteral(VORDPM_LIBDIR);
const QString kVersion = QStringLiteral(VORDPM_VERSION);

QString Prefix(const QString& relative = QString()) {
    return kStage + QStringLiteral("/prefix/") + relative;
}

// The package file for this version, whatever the machine's architecture.
QString DebFile(const QString& package) {
    const QDir debs(kStage + QStringLiteral("/deb"));
    const QStringList files = debs.entryList({package + "_" + kVersion + "_*.deb"}, QDir::Files);
    EXPECT_EQ(files.size(), 1) << package.toStdString();
    return files.isEmpty() ? QString() : debs.filePath(files.constFirst());
}

// Nothing of the test's own surroundings may help a program find its libraries or settings.
QProcessEnvironment CleanEnvironment(const QString& home) {
    QProcessEnvironment environment = ChildProcess::Environment();
    environment.remove(QStringLiteral("LD_LIBRARY_PATH"));
    environment.remove(QStringLiteral("VORDPM_ROOT"));
    environment.remove(QStringLiteral("VORDPM_EDITOR"));
    environment.insert(QStringLiteral("HOME"), home);
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), home + QStringLiteral("/config"));
    environment.insert(QStringLiteral("XDG_DATA_HOME"), home + QStringLiteral("/data"));
    return environment;
}

// The dynamic section of an ELF file, as readelf prints it.
QString DynamicSection(const QString& file) {
    const ChildProcess readelf = ChildProcess::Run(QStringLiteral("readelf"), {"-d", file});
    EXPECT_EQ(readelf.exitCode, 0) << readelf.Output();
    return readelf.out;
}

TEST(InstalledPrefix, HoldsTheProgramsVersionedLibrariesHeadersAndCMakePackage) {
    const QStringList expected = {
        "bin/vordpm",
        "bin/vordpm-host",
        "libexec/vordpm/vordpm-preview",
        kLibDir + "/libVorDPM.so.0",
        kLibDir + "/libVorDPM.so",
        kLibDir + "/libVorDPMEditor.so.0",
        kLibDir + "/libVorDPMEditor.so",
        kLibDir + "/cmake/VorDPM/VorDPMConfig.cmake",
        kLibDir + "/cmake/VorDPM/VorDPMConfigVersion.cmake",
        "include/VorDPM/CVorDPMManager.h",
        "include/VorDPM/query/CVorDPMData.h",
        "include/VorDPM/shell/ExportVorDPMEditor.h",
        "include/VorDPM/shell/CVorDPMEditorSettings.h",
        "include/VorDPM/shell/CVorDPMTreeCtrlEx.h",
        "include/VorDPM/shell/CVorDPMReportCtrlBase.h",
        "share/applications/org.vordpm.Editor.desktop",
        "share/man/man1/vordpm.1.gz",
    };
    for (const QString& relative : expected)
        EXPECT_TRUE(QFileInfo::exists(Prefix(relative))) << relative.toStdString();
    // The store's SQLite internals stay private: a host needs no SQLite headers.
    EXPECT_FALSE(QFileInfo::exists(Prefix("include/VorDPM/CVorDPMSQLiteConnection.h")));
    const QString soname = DynamicSection(Prefix(kLibDir + "/libVorDPMEditor.so.0"));
    EXPECT_TRUE(soname.contains("Library soname: [libVorDPMEditor.so.0]")) << soname.toStdString();
}

TEST(InstalledPrefix, ProgramsFindTheirLibrariesWithoutALibraryPath) {
    QTemporaryDir home;
    for (const QString& program : {QStringLiteral("vordpm"), QStringLiteral("vordpm-host")}) {
        const ChildProcess run = ChildProcess::Run(Prefix("bin/" + program), {"--version"},
                                                   CleanEnvironment(home.path()));
        EXPECT_EQ(run.exitCode, 0) << run.Output();
        EXPECT_EQ(run.out.trimmed(), program + " " + kVersion) << run.Output();
    }
}

// The loader reports every library it maps: the editor must come from the prefix, not from the
// build folder the host was built beside.
TEST(InstalledPrefix, HostOpensTheEditorInstalledBesideIt) {
    QTemporaryDir home;
    QProcessEnvironment environment = CleanEnvironment(home.path());
    environment.insert(QStringLiteral("LD_DEBUG"), QStringLiteral("files"));
    const ChildProcess run =
        ChildProcess::Run(Prefix("bin/vordpm-host"),
                          {"--root", home.filePath("root"), "--measure-startup"}, environment);
    EXPECT_EQ(run.exitCode, 0) << run.Output();
    EXPECT_TRUE(run.out.contains("startup-ms: ")) << run.Output();
    const QString installedEditor = QDir::cleanPath(Prefix(kLibDir + "/libVorDPMEditor.so.0"));
    EXPECT_TRUE(run.err.contains("file=" + installedEditor)) << run.Output();
}

TEST(ExampleHost, BuildsAgainstTheInstalledPackage) {
    QTemporaryDir build;
    const ChildProcess configure = ChildProcess::Run(
        VORDPM_CMAKE, {"-S", VORDPM_SOURCE_DIR "/examples/minimal-host", "-B", build.path(), "-G",
                       VORDPM_GENERATOR, "-DCMAKE_MAKE_PROGRAM=" VORDPM_MAKE_PROGRAM,
                       "-DCMAKE_CXX_COMPILER=" VORDPM_CXX, "-DCMAKE_CXX_FLAGS=" VORDPM_CXX_FLAGS,
                       "-DCMAKE_PREFIX_PATH=" + Prefix()});
    ASSERT_EQ(configure.exitCode, 0) << configure.Output();
    const ChildProcess compile = ChildProcess::Run(VORDPM_CMAKE, {"--build", build.path()});
    ASSERT_EQ(compile.exitCode, 0) << compile.Output();
    // Linked by SONAME, with the prefix found through the package, not by hand.
    const QString dynamic = DynamicSection(build.filePath("minimal-host"));
    EXPECT_TRUE(dynamic.contains("Shared library: [libVorDPMEditor.so.0]"))
        << dynamic.toStdString();
    EXPECT_TRUE(dynamic.contains(Prefix(kLibDir))) << dynamic.toStdString();
}

// A Debian package unpacked into a temporary folder, as dpkg would lay it out under /.
class DebPackage : public ::testing::Test {
protected:
    void Unpack(const QString& package) {
        const ChildProcess unpack =
            ChildProcess::Run(QStringLiteral("dpkg-deb"), {"-x", DebFile(package), Root()});
        ASSERT_EQ(unpack.exitCode, 0) << unpack.Output();
    }

    QString Field(const QString& package, const QString& field) const {
        const ChildProcess query =
            ChildProcess::Run(QStringLiteral("dpkg-deb"), {"-f", DebFile(package), field});
        EXPECT_EQ(query.exitCode, 0) << query.Output();
        return query.out.trimmed();
    }

    QString Root(const QString& relative = QString()) const {
        return scratch.filePath(QStringLiteral("unpacked/") + relative);
    }

    // The unpacked programs find the unpacked libraries through LD_LIBRARY_PATH only.
    ChildProcess RunUnpacked(const QString& program, const QStringList& arguments) const {
        QProcessEnvironment environment =
            CleanEnvironment(scratch.filePath(QStringLiteral("home")));
        environment.insert(QStringLiteral("LD_LIBRARY_PATH"), Root("usr/" + kLibDir));
        return ChildProcess::Run(Root("usr/bin/" + program), arguments, environment);
    }

    QTemporaryDir scratch;
};

TEST_F(DebPackage, DependenciesComeFromTheLinkedLibraries) {
    const QString depends = Field("vordpm", "Depends");
    for (const char* library : {"libqt6widgets6", "libqt6core6", "libsqlite3-0", "liblua5.4-0"})
        EXPECT_TRUE(depends.contains(library)) << depends.toStdString();
    EXPECT_TRUE(Field("vordpm-dev", "Depends").contains("vordpm (= " + kVersion + ")"));
}

// The runtime package holds what a desktop install needs and passes Debian's rules for it: no
// search path of its own (the loader finds the libraries under /usr), desktop entry and AppStream
// data that validate, manual pages that name the version.
TEST_F(DebPackage, RuntimePackageHoldsWhatADesktopInstallNeeds) {
    Unpack("vordpm");
    QStringList expected = {
        "usr/bin/vordpm",
        "usr/bin/vordpm-host",
        "usr/libexec/vordpm/vordpm-preview",
        "usr/" + kLibDir + "/libVorDPM.so.0",
        "usr/" + kLibDir + "/libVorDPMEditor.so.0",
        "usr/share/applications/org.vordpm.Editor.desktop",
        "usr/share/metainfo/org.vordpm.Editor.metainfo.xml",
        "usr/share/icons/hicolor/scalable/apps/org.vordpm.Editor.svg",
        "usr/share/man/man1/vordpm.1.gz",
        "usr/share/man/man1/vordpm-host.1.gz",
        "usr/share/doc/vordpm/copyright",
        "usr/share/doc/vordpm/changelog.gz",
    };
    for (const char* size : {"16", "22", "24", "32", "48", "64", "128", "256"})
        expected << QStringLiteral("usr/share/icons/hicolor/%1x%1/apps/org.vordpm.Editor.png")
                        .arg(QLatin1String(size));
    for (const QString& relative : expected)
        EXPECT_TRUE(QFileInfo::exists(Root(relative))) << relative.toStdString();
    // Headers and the unversioned names belong to the development package.
    EXPECT_FALSE(QFileInfo::exists(Root("usr/" + kLibDir + "/libVorDPM.so")));
    EXPECT_FALSE(QFileInfo::exists(Root("usr/include")));
    for (const QString& relative : QStringList{
             "usr/bin/vordpm", "usr/bin/vordpm-host", "usr/libexec/vordpm/vordpm-preview",
             "usr/" + kLibDir + "/libVorDPM.so.0", "usr/" + kLibDir + "/libVorDPMEditor.so.0"}) {
        const QString dynamic = DynamicSection(Root(relative));
        EXPECT_FALSE(dynamic.contains("RUNPATH") || dynamic.contains("RPATH"))
            << relative.toStdString() << "\n"
            << dynamic.toStdString();
    }
    const ChildProcess desktop = ChildProcess::Run(
        "desktop-file-validate", {Root("usr/share/applications/org.vordpm.Editor.desktop")});
    EXPECT_EQ(desktop.exitCode, 0) << desktop.Output();
    EXPECT_EQ(desktop.out + desktop.err, QString()) << desktop.Output();
    const ChildProcess metainfo = ChildProcess::Run(
        "appstreamcli",
        {"validate", "--no-net", Root("usr/share/metainfo/org.vordpm.Editor.metainfo.xml")});
    EXPECT_EQ(metainfo.exitCode, 0) << metainfo.Output();
    QFile file(Root("usr/share/metainfo/org.vordpm.Editor.metainfo.xml"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().contains("<release version=\"" + kVersion.toUtf8() + "\""));
    for (const QString& program : {QStringLiteral("vordpm"), QStringLiteral("vordpm-host")}) {
        const ChildProcess page =
            ChildProcess::Run("gzip", {"-dc", Root("usr/share/man/man1/" + program + ".1.gz")});
        ASSERT_EQ(page.exitCode, 0) << page.Output();
        EXPECT_TRUE(page.out.startsWith(".TH ")) << program.toStdString();
        EXPECT_TRUE(page.out.section('\n', 0, 0).contains("VorDPM " + kVersion))
            << page.out.section('\n', 0, 0).toStdString();
    }
}

TEST_F(DebPackage, DevelopmentPackageHoldsHeadersAndTheCMakePackage) {
    Unpack("vordpm-dev");
    for (const QString& relative : QStringList{
             "usr/include/VorDPM/shell/ExportVorDPMEditor.h", "usr/include/VorDPM/CVorDPMManager.h",
             "usr/" + kLibDir + "/cmake/VorDPM/VorDPMConfig.cmake",
             "usr/" + kLibDir + "/cmake/VorDPM/VorDPMTargets.cmake",
             "usr/" + kLibDir + "/libVorDPMEditor.so", "usr/share/doc/vordpm-dev/copyright"})
        EXPECT_TRUE(QFileInfo(Root(relative)).exists() || QFileInfo(Root(relative)).isSymLink())
            << relative.toStdString();
}

TEST_F(DebPackage, UnpackedProgramsPrintHelpAndVersionAndTheToolCreatesTheSample) {
    Unpack("vordpm");
    const ChildProcess help = RunUnpacked("vordpm", {"--help"});
    EXPECT_EQ(help.exitCode, 0) << help.Output();
    EXPECT_TRUE(help.out.startsWith("usage: vordpm COMMAND")) << help.Output();
    const ChildProcess hostVersion = RunUnpacked("vordpm-host", {"--version"});
    EXPECT_EQ(hostVersion.out.trimmed(), "vordpm-host " + kVersion) << hostVersion.Output();

    const QString root = scratch.filePath("root");
    const ChildProcess sample = RunUnpacked("vordpm", {"sample", "--root", root});
    ASSERT_EQ(sample.exitCode, 0) << sample.Output();
    const ChildProcess list = RunUnpacked("vordpm", {"ls", "--root", root});
    EXPECT_EQ(list.exitCode, 0) << list.Output();
    EXPECT_EQ(list.out.split('\n', Qt::SkipEmptyParts), QStringList({"QXMaterial", "QXMEP"}))
        << list.Output();
}

// Debian's own checks: errors are defects; warnings are documented in docs/packaging.md.
TEST_F(DebPackage, LintianFindsNoErrors) {
    const ChildProcess lintian =
        ChildProcess::Run("lintian", {DebFile("vordpm"), DebFile("vordpm-dev")});
    ASSERT_NE(lintian.exitCode, -1) << lintian.Output();
    const QStringList errors =
        lintian.out.split('\n').filter(QRegularExpression(QStringLiteral("^E: ")));
    EXPECT_TRUE(errors.isEmpty()) << lintian.Output();
}

}  // namespace
