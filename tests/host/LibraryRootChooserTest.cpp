#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include "CVorDPMManager.h"
#include "LibraryRootChooser.h"
#include "support/StoreTestBase.h"

namespace {

CVorDPMManager* Store() {
    return CVorDPMManager::GetVorDPMManager();
}

QStringList Libraries() {
    QStringList names;
    Store()->GetAllLibraryName(names);
    return names;
}

class LibraryRootChooserTest : public StoreTestBase {
protected:
    // The state of a first run: the store on the default root, nothing remembered.
    void StartOnTheDefaultRoot() {
        ASSERT_TRUE(Store()->SetDPMLibraryRootPath(CVorDPMManager::DefaultRootPath()));
        ASSERT_TRUE(QDir(CVorDPMManager::DefaultRootPath()).absolutePath().startsWith(root.Home()));
    }
};

TEST_F(LibraryRootChooserTest, TheRootAskedForIsUsedAsItIs) {
    StartOnTheDefaultRoot();
    const QString asked = root.Home() + QStringLiteral("/asked");
    QString error;
    ASSERT_TRUE(LibraryRootChooser::Choose(asked, error)) << error.toStdString();
    EXPECT_EQ(Store()->GetDPMLibraryRootPath(), asked);
    EXPECT_TRUE(Libraries().isEmpty());
    EXPECT_TRUE(QDir(CVorDPMManager::DefaultRootPath()).isEmpty());
}

TEST_F(LibraryRootChooserTest, ARememberedRootIsKeptEvenWhenEmpty) {
    QString error;
    ASSERT_TRUE(LibraryRootChooser::Choose(QString(), error)) << error.toStdString();
    EXPECT_EQ(Store()->GetDPMLibraryRootPath(), root.Path());
    EXPECT_TRUE(Libraries().isEmpty());
}

#ifdef VORDPM_HAVE_SAMPLE
TEST_F(LibraryRootChooserTest, AnEmptyDefaultRootGetsTheSampleLibraryOnce) {
    StartOnTheDefaultRoot();
    QString error;
    ASSERT_TRUE(LibraryRootChooser::Choose(QString(), error)) << error.toStdString();
    EXPECT_EQ(Store()->GetDPMLibraryRootPath(), QDir::cleanPath(CVorDPMManager::DefaultRootPath()));
    EXPECT_TRUE(Libraries().contains(QStringLiteral("QXMaterial")));
    EXPECT_TRUE(Libraries().contains(QStringLiteral("QXMEP")));

    // The second run finds the libraries and leaves them alone.
    ASSERT_TRUE(LibraryRootChooser::Choose(QString(), error)) << error.toStdString();
    EXPECT_TRUE(error.isEmpty());
}
#endif

TEST_F(LibraryRootChooserTest, ADefaultRootWithALibraryGetsNoSample) {
    StartOnTheDefaultRoot();
    CVorDPMLibraryManager* library = nullptr;
    ASSERT_EQ(Store()->CreateLibrary(QStringLiteral("Own"), library), VOR::eOk);
    QString error;
    ASSERT_TRUE(LibraryRootChooser::Choose(QString(), error)) << error.toStdString();
    EXPECT_EQ(Libraries(), QStringList{QStringLiteral("Own")});
}

TEST_F(LibraryRootChooserTest, ARootThatCannotBeMadeIsRefusedWithItsPath) {
    const QString file = root.Home() + QStringLiteral("/plain-file");
    QFile blocker(file);
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    blocker.close();
    const QString asked = file + QStringLiteral("/root");
    QString error;
    EXPECT_FALSE(LibraryRootChooser::Choose(asked, error));
    EXPECT_TRUE(error.contains(asked)) << error.toStdString();
    EXPECT_EQ(Store()->GetDPMLibraryRootPath(), root.Path());
}

}  // namespace
