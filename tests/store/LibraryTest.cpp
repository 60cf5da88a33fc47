#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "support/StoreTestBase.h"

class LibraryTest : public StoreTestBase {};

// Libraries are the root's folders that hold a library file; the listing is sorted as every
// listing of the store (tested with the roots) and leaves what the list held before.
TEST_F(LibraryTest, LibrariesAreTheFoldersWithALibraryFile) {
    MakeLibrary(QStringLiteral("QXMEP"));
    QDir(root.Path()).mkdir(QStringLiteral("not-a-library"));
    Reopen();
    QStringList names{QStringLiteral("kept")};
    Manager()->GetAllLibraryName(names);
    EXPECT_EQ(names, (QStringList{"kept", "QXMEP"}));
    EXPECT_TRUE(QFile::exists(root.File(QStringLiteral("QXMEP/library.DPI"))));
    EXPECT_EQ(Library(QStringLiteral("not-a-library")), nullptr);
}

TEST_F(LibraryTest, CopyWorksOnDiskAndRemoveGoesToTrash) {
    CVorDPMLibraryManager* library = MakeLibrary(QStringLiteral("Steel"));
    MakeCatalog(library, QStringLiteral("型钢"));
    EXPECT_EQ(Manager()->CopyLibrary(QStringLiteral("Steel"), QStringLiteral("Copper")), VOR::eOk);
    EXPECT_TRUE(QFile::exists(root.File(QStringLiteral("Copper/型钢.DPC"))));

    EXPECT_EQ(Manager()->RemoveLibrary(QStringLiteral("Steel")), 1);
    EXPECT_FALSE(QDir(root.File(QStringLiteral("Steel"))).exists());
    const QStringList trashed = QDir(root.Home() + QStringLiteral("/data/Trash/files"))
                                    .entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    EXPECT_EQ(trashed, QStringList{QStringLiteral("Steel")});
    EXPECT_EQ(Manager()->RemoveLibrary(QStringLiteral("Steel")), 0);
    QStringList names;
    Manager()->GetAllLibraryName(names);
    EXPECT_EQ(names, QStringList{QStringLiteral("Copper")});
}

TEST_F(LibraryTest, SwitchingTheRootDropsTheOldOneAndIsRemembered) {
    MakeLibrary(QStringLiteral("Old"));
    QTemporaryDir other;
    ASSERT_EQ(Manager()->SetDPMLibraryRootPath(other.path()), 1);
    QStringList names;
    Manager()->GetAllLibraryName(names);
    EXPECT_TRUE(names.isEmpty());
    EXPECT_EQ(Manager()->GetDPMLibraryRootPath(), QDir(other.path()).absolutePath());

    qunsetenv("VORDPM_ROOT");
    EXPECT_EQ(CVorDPMManager::InitialRootPath(), QDir(other.path()).absolutePath());
    qputenv("VORDPM_ROOT", "/somewhere/else");
    EXPECT_EQ(CVorDPMManager::InitialRootPath(), QStringLiteral("/somewhere/else"));
    qunsetenv("VORDPM_ROOT");
    EXPECT_EQ(Manager()->SetDPMLibraryRootPath(QString()), 0);
    EXPECT_EQ(Manager()->SetDPMLibraryRootPath(QStringLiteral("/proc/no/such/place")), 0);
}

TEST_F(LibraryTest, InformationRecordAndProductCounts) {
    CVorDPMLibraryManager* material = MakeLibrary(QStringLiteral("QXMaterial"));
    CVorDPMLibraryManager* mep = MakeLibrary(QStringLiteral("QXMEP"));
    MakeDefinition(material, QStringLiteral("Bolt"));
    MakeDefinition(material, QStringLiteral("Nut"));
    CVorDPMDPC* pipes = MakeCatalog(mep, QStringLiteral("Pipes"));
    for (const char* dpd : {"P1", "P2", "P3"}) MakeEntry(pipes, QString::fromUtf8(dpd));
    CVorDPMDPC* fasteners = MakeCatalog(material, QStringLiteral("Fasteners"));
    for (int i = 0; i < 2; ++i) {  // the same catalog included twice counts once
        auto* include = new CVorDPM_DPC_Include;
        include->SetLibraryName(QStringLiteral("qxmep"));
        include->SetDPCName(QStringLiteral("Pipes"));
        ASSERT_EQ(fasteners->AddInclude(include), VOR::eOk);
    }
    EXPECT_EQ(material->GetLocalProductCount(), 2);
    EXPECT_EQ(material->GetIncludeProductCount(), 3);

    CVorDPM_DPI_Info* info = nullptr;
    ASSERT_EQ(material->GetDPI()->GetInfo(info), VOR::eOk);
    info->SetCompanyName(QStringLiteral("示例公司"));
    info->SetProductCount(5);
    ASSERT_EQ(Manager()->SaveWork(), 1);
    Reopen();
    material = Library(QStringLiteral("QXMaterial"));
    ASSERT_EQ(material->GetDPI()->GetInfo(info), VOR::eOk);
    EXPECT_EQ(info->GetCompanyName(), QStringLiteral("示例公司"));
    EXPECT_EQ(info->GetProductCount(), 5);
}

TEST_F(LibraryTest, VersionsAreCheckedKeptAndOrdered) {
    CVorDPMDPC* catalog = MakeCatalog(MakeLibrary(), QStringLiteral("C"));
    const auto version = [](double number) {
        auto* record = new CVorDPM_Version;
        record->SetVersion(number);
        record->SetAuthor(QStringLiteral("张工"));
        return record;
    };
    for (double number : {1.0, 1.2, 1.1}) {
        CVorDPM_Version* record = version(number);
        EXPECT_EQ(catalog->AddVersion(record), VOR::eOk);
    }
    CVorDPM_Version* duplicate = version(1.1);
    EXPECT_EQ(catalog->AddVersion(duplicate), VOR::eNameExists);
    CVorDPM_Version* zero = version(0.0);
    EXPECT_EQ(catalog->AddVersion(zero), VOR::eRequiredEmpty);
    ASSERT_EQ(Manager()->SaveWork(), 1);
    Reopen();
    ASSERT_EQ(Library(QStringLiteral("QXMaterial"))->GetDPC(QStringLiteral("C"), catalog),
              VOR::eOk);
    CKZList<CVorDPM_Version*> all;
    catalog->GetAllVersion(all);
    ASSERT_EQ(all.GetCount(), 3);
    EXPECT_EQ(all.GetAt(2)->GetVersion(), 1.1);  // table order, not number order
    CVorDPM_Version* last = nullptr;
    ASSERT_EQ(catalog->GetLastVersion(last), VOR::eOk);
    EXPECT_EQ(last->GetVersion(), 1.2);
    EXPECT_EQ(last->GetAuthor(), QStringLiteral("张工"));
    CVorDPM_Version* found = nullptr;
    EXPECT_NE(catalog->GetVersion(3.0, found), VOR::eOk);
    EXPECT_EQ(found, nullptr);
}

// Without the user's trash folder (no data folder), removed files go to the root's recycle
// folder, never into the working directory.
TEST_F(LibraryTest, WithoutTheUsersTrashRemovedFilesGoToTheRecycleFolder) {
    CVorDPMLibraryManager* library = MakeLibrary(QStringLiteral("Steel"));
    MakeLibrary(QStringLiteral("Copper"));
    MakeCatalog(library, QStringLiteral("型钢"));
    const QString missing = root.Home() + QStringLiteral("/missing-data");
    const QString workingDir = root.Home() + QStringLiteral("/cwd");
    QDir().mkpath(workingDir);
    const QString previousDir = QDir::currentPath();
    const QByteArray previousData = qgetenv("XDG_DATA_HOME");
    qputenv("XDG_DATA_HOME", missing.toUtf8());
    QDir::setCurrent(workingDir);

    EXPECT_EQ(library->RemoveDPC(QStringLiteral("型钢")), VOR::eOk);
    EXPECT_EQ(Manager()->RemoveLibrary(QStringLiteral("Copper")), 1);

    QDir::setCurrent(previousDir);
    qputenv("XDG_DATA_HOME", previousData);
    QStringList recycled = QDir(root.File(QStringLiteral(".recycle")))
                               .entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    ASSERT_EQ(recycled.size(), 2) << recycled.join(' ').toStdString();
    recycled.sort();
    EXPECT_TRUE(recycled[0].startsWith(QStringLiteral("Copper.")));
    EXPECT_TRUE(recycled[1].startsWith(QStringLiteral("型钢.DPC.")));
    EXPECT_EQ(QDir(workingDir).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
    EXPECT_FALSE(QFileInfo::exists(missing));
}

// A new library's information record is in its file from the start: looking at it, or writing
// the counts it already has (as the editor does on closing), leaves nothing to save.
TEST_F(LibraryTest, ANewLibrarysInformationRecordNeedsNoSaving) {
    CVorDPMLibraryManager* library = MakeLibrary(QStringLiteral("Fresh"));
    ASSERT_TRUE(library->WriteProductCounts());
    EXPECT_FALSE(Manager()->HasUnsavedChanges());
    Reopen();
    library = Library(QStringLiteral("Fresh"));
    ASSERT_NE(library, nullptr);
    ASSERT_TRUE(library->WriteProductCounts());
    EXPECT_FALSE(Manager()->HasUnsavedChanges());
    // A count that really differs is a change.
    MakeDefinition(library, QStringLiteral("Bolt"));
    ASSERT_TRUE(library->WriteProductCounts());
    EXPECT_TRUE(Manager()->HasUnsavedChanges());
}
