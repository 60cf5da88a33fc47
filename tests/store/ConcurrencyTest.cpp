// Two processes on one folder root: the test process and the store_writer child change the
// same files; no save may silently undo the other's work. The conflicts that both kinds of root
// report alike are tested on both, with the roots.

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>

#include "support/StoreFileEdits.h"
#include "support/StoreTestBase.h"

namespace {

QStringList StoredProductNames(const QString& path) {
    return Column(path, "SELECT name FROM product ORDER BY id", "name");
}

}  // namespace

class ConcurrencyTest : public StoreTestBase {
protected:
    void SetUp() override {
        ASSERT_TRUE(QFile::exists(StoreWriter())) << StoreWriter().toStdString();
        Build();
    }

    // A library with two saved definitions of one product each, nothing loaded.
    void Build() {
        CVorDPMLibraryManager* library = MakeLibrary();
        for (const char* name : {"Shared", "Other"}) {
            AddProduct(MakeDefinition(library, QString::fromUtf8(name)), QStringLiteral("p1"));
        }
        ASSERT_EQ(Manager()->SaveWork(), 1);
        Reopen();
    }

    void Rebuild() {
        Reopen();
        QDir(root.Path()).removeRecursively();
        Manager()->SetDPMLibraryRootPath(root.Path());
        Build();
    }

    // The definition as this process holds it, read before the child runs.
    CVorDPMDPD* Loaded(const char* name = "Shared") {
        CVorDPMDPD* dpd = Definition(QString::fromUtf8(name));
        CKZList<CVorDPM_DPD_Product*> products;
        if (dpd) dpd->GetAllProduct(products);
        return dpd;
    }

    static CVorDPM_DPD_Product* First(CVorDPMDPD* dpd) {
        CKZList<CVorDPM_DPD_Product*> products;
        dpd->GetAllProduct(products);
        return products.IsEmpty() ? nullptr : products.GetAt(0);
    }

    QString RunChild(const QStringList& arguments) { return RunWriter(root.Path(), arguments); }

    QString PathOf(const QString& dpd) const {
        return root.File(QStringLiteral("QXMaterial/%1.DPD").arg(dpd));
    }
};

TEST_F(ConcurrencyTest, ChangesToOtherFilesAndOwnEarlierSavesAreNoConflict) {
    CVorDPMDPD* dpd = Loaded();
    ASSERT_EQ(RunChild({"product-name", "QXMaterial", "Other", "child"}), QStringLiteral("ok"));
    First(dpd)->SetName(QStringLiteral("first"));
    EXPECT_EQ(Manager()->SaveWork(), 1) << CVorDPMManager::GetLastErrorText().toStdString();
    First(dpd)->SetName(QStringLiteral("second"));
    EXPECT_EQ(Manager()->SaveWork(), 1) << CVorDPMManager::GetLastErrorText().toStdString();
    EXPECT_EQ(StoredProductNames(PathOf(QStringLiteral("Shared"))), QStringList{"second"});
    EXPECT_EQ(StoredProductNames(PathOf(QStringLiteral("Other"))), QStringList{"child"});
    // The child sees this process's saves as the file it loads: its change goes through.
    EXPECT_EQ(RunChild({"product-name", "QXMaterial", "Shared", "third"}), QStringLiteral("ok"));
    EXPECT_EQ(StoredProductNames(PathOf(QStringLiteral("Shared"))), QStringList{"third"});
}

TEST_F(ConcurrencyTest, OfTwoProcessesCreatingOneNameOnlyOneSucceeds) {
    // Large sources make each write long, so that both pass the name check before either ends.
    CVorDPMLibraryManager* library = Library(QStringLiteral("QXMaterial"));
    for (const char* name : {"One", "Two"}) {
        CVorDPMDPD* dpd = MakeDefinition(library, QString::fromUtf8(name));
        const int property =
            AddProperty(dpd, QStringLiteral("d"), QString::fromUtf8(name))->GetObjectId();
        AddValueRows(dpd, property, 20000, QString(1000, QLatin1Char('x')));
    }
    ASSERT_EQ(Manager()->SaveWork(), 1);
    for (int round = 0; round < 3; ++round) {
        QProcess children[2];
        const char* sources[] = {"One", "Two"};
        for (int i = 0; i < 2; ++i) {
            StartWriter(children[i], root.Path(),
                        {"copy-dpd", "QXMaterial", sources[i], QStringLiteral("New%1").arg(round)});
        }
        for (QProcess& child : children) {
            child.write("go\n");
            child.waitForBytesWritten();
        }
        QStringList outcomes;
        for (QProcess& child : children) {
            child.waitForFinished(60000);
            outcomes.append(QString::fromUtf8(child.readAllStandardOutput()).trimmed());
        }
        const int winner = outcomes[0].endsWith(QStringLiteral("ok")) ? 0 : 1;
        ASSERT_TRUE(outcomes[winner].endsWith(QStringLiteral("ok")))
            << outcomes.join('|').toStdString();
        EXPECT_TRUE(outcomes[1 - winner].contains(QStringLiteral("failed 2001")))
            << outcomes.join('|').toStdString();
        // The file is the winner's, whole.
        const QString created = PathOf(QStringLiteral("New%1").arg(round));
        EXPECT_EQ(Column(created, "SELECT property_alias FROM property", "property_alias"),
                  QStringList{QString::fromUtf8(sources[winner])});
        EXPECT_EQ(Column(created, "SELECT count(*) AS n FROM serial", "n"), QStringList{"20000"});
    }
}

// Another process removes or renames the library this one has loaded: the save says so,
// nothing is made again in its place, and after a reload the name is free for a new library.
TEST_F(ConcurrencyTest, ALibraryGoneElsewhereIsNotMadeAgain) {
    const std::pair<const char*, QStringList> cases[] = {
        {"removed", {"remove-library", "QXMaterial"}},
        {"renamed", {"rename-library", "QXMaterial", "Moved"}},
    };
    const QString gone = QStringLiteral("已被其他用户删除或重命名");
    for (const auto& [label, child] : cases) {
        Rebuild();
        CVorDPMDPD* dpd = Loaded();
        CVorDPMLibraryManager* library = Library(QStringLiteral("QXMaterial"));
        ASSERT_EQ(RunChild(child), QStringLiteral("ok")) << label;
        First(dpd)->SetName(QStringLiteral("parent"));
        EXPECT_EQ(Manager()->SaveWork(), 0) << label;
        QString error = CVorDPMManager::GetLastErrorText();
        EXPECT_TRUE(error.contains(PathOf(QStringLiteral("Shared")))) << error.toStdString();
        EXPECT_TRUE(error.contains(gone)) << error.toStdString();
        CVorDPMDPD* created = nullptr;
        CVorDPMDPC* catalog = nullptr;
        EXPECT_NE(library->CreateDPD(QStringLiteral("New"), created), VOR::eOk) << label;
        EXPECT_NE(library->CreateDPC(QStringLiteral("New"), catalog), VOR::eOk) << label;
        error = CVorDPMManager::GetLastErrorText();
        EXPECT_TRUE(error.contains(gone)) << error.toStdString();
        EXPECT_FALSE(QFileInfo::exists(root.File(QStringLiteral("QXMaterial")))) << label;
        Reopen();
        CVorDPMLibraryManager* again = nullptr;
        EXPECT_EQ(Manager()->CreateLibrary(QStringLiteral("QXMaterial"), again), VOR::eOk) << label;
    }
}
