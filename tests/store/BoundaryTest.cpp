// The library root is a boundary: links that lead out of it are neither read nor written, and
// numbers that do not fit the store's ids never alias another row.
#include <sqlite3.h>

#include <QDir>
#include <QFile>
#include <functional>

#include "support/StoreFileEdits.h"
#include "support/StoreTestBase.h"

namespace {

const QString kOutsideTheRoot = QStringLiteral("指向库根目录");

}  // namespace

class BoundaryTest : public StoreTestBase {
protected:
    void SetUp() override {
        m_library = MakeLibrary();
        CVorDPMDPD* bolt = MakeDefinition(m_library, QStringLiteral("Bolt"));
        AddProperty(bolt, QStringLiteral("直径"), QStringLiteral("d"));
        for (const char* name : {"p1", "p2"}) AddProduct(bolt, QString::fromUtf8(name));
        ASSERT_EQ(Manager()->SaveWork(), 1);
        m_outside = root.Home() + QStringLiteral("/outside");
        QDir().mkpath(m_outside);
    }

    QString InLibrary(const QString& file) const {
        return root.File(QStringLiteral("QXMaterial/") + file);
    }

    CVorDPMLibraryManager* m_library = nullptr;
    QString m_outside;
};

TEST_F(BoundaryTest, AStoreFileLinkedToOutsideTheRootIsNeitherReadNorWritten) {
    const QString target = m_outside + QStringLiteral("/Secret.DPD");
    ASSERT_TRUE(QFile::copy(InLibrary(QStringLiteral("Bolt.DPD")), target));
    ASSERT_TRUE(QFile::link(target, InLibrary(QStringLiteral("Linked.DPD"))));
    const QByteArray before = ReadAll(target);
    Reopen();

    CVorDPMDPD* dpd = Definition(QStringLiteral("Linked"));
    ASSERT_NE(dpd, nullptr);
    CKZList<CVorDPM_DPD_Property*> rows;
    EXPECT_NE(dpd->GetAllProperty(rows), VOR::eOk);
    EXPECT_TRUE(rows.IsEmpty());
    const QString reason = CVorDPMManager::GetLastErrorText();
    EXPECT_TRUE(reason.contains(QStringLiteral("Linked.DPD"))) << reason.toStdString();
    EXPECT_TRUE(reason.contains(kOutsideTheRoot)) << reason.toStdString();
    EXPECT_NE(dpd->AddProperty(new CVorDPM_DPD_Property), VOR::eOk);
    EXPECT_EQ(Manager()->SaveWork(), 1);
    EXPECT_EQ(ReadAll(target), before);
}

// A library folder, the root's templates folder and the recycle folder that are links to
// folders outside the root: no file there is read, and no operation creates, copies, moves,
// renames or removes anything there.
TEST_F(BoundaryTest, LinkedFoldersLetNothingOutsideTheRootChange) {
    CVorDPMDPC* catalog = MakeCatalog(m_library, QStringLiteral("C"));
    ASSERT_NE(catalog, nullptr);
    CVorDPMDPT* pattern = nullptr;
    ASSERT_EQ(Manager()->GetTemplateManager()->CreateDPT(QStringLiteral("T"), pattern), VOR::eOk);
    const QString library = m_outside + QStringLiteral("/Library");
    const QString templates = m_outside + QStringLiteral("/Templates");
    const QString recycle = m_outside + QStringLiteral("/Recycle");
    for (const QString& folder : {library, templates, recycle}) QDir().mkpath(folder);
    for (const char* file : {"library.DPI", "C.DPC", "Bolt.DPD"})
        ASSERT_TRUE(QFile::copy(InLibrary(QString::fromUtf8(file)),
                                library + QLatin1Char('/') + QString::fromUtf8(file)));
    ASSERT_TRUE(QFile::copy(root.File(QStringLiteral("templates/T.DPT")),
                            templates + QStringLiteral("/T.DPT")));
    ASSERT_TRUE(QDir(root.File(QStringLiteral("templates"))).removeRecursively());
    ASSERT_TRUE(QFile::link(library, root.File(QStringLiteral("Linked"))));
    ASSERT_TRUE(QFile::link(templates, root.File(QStringLiteral("templates"))));
    ASSERT_TRUE(QFile::link(recycle, root.File(QStringLiteral(".recycle"))));
    // Without a desktop trash, removed files go to the recycle folder.
    ASSERT_TRUE(QDir(root.Home() + QStringLiteral("/data")).removeRecursively());
    Reopen();
    const QStringList before = Snapshot(m_outside);

    CVorDPMLibraryManager* linked = Library(QStringLiteral("Linked"));
    ASSERT_NE(linked, nullptr);
    EXPECT_EQ(linked->GetDPI(), nullptr);
    CVorDPMTemplateManager* platform = Manager()->GetTemplateManager();
    CVorDPMDPC* newCatalog = nullptr;
    CVorDPMDPD* newDpd = nullptr;
    const std::vector<std::pair<const char*, std::function<int()>>> operations = {
        {"CreateDPC", [&] { return int(linked->CreateDPC(QStringLiteral("New"), newCatalog)); }},
        {"CreateDPD", [&] { return int(linked->CreateDPD(QStringLiteral("New"), newDpd)); }},
        {"CopyLibrary",
         [&] {
             return int(Manager()->CopyLibrary(QStringLiteral("Linked"), QStringLiteral("Copied")));
         }},
        {"RemoveDPD", [&] { return int(linked->RemoveDPD(QStringLiteral("Bolt"))); }},
        {"RenameDPD",
         [&] { return int(linked->RenameDPD(QStringLiteral("Bolt"), QStringLiteral("B"))); }},
        {"RemoveDPC", [&] { return int(linked->RemoveDPC(QStringLiteral("C"))); }},
        {"RenameDPC",
         [&] { return int(linked->RenameDPC(QStringLiteral("C"), QStringLiteral("D"))); }},
        {"CreateDPT in the library",
         [&] {
             CVorDPMDPT* t = nullptr;
             return int(linked->GetVorDPMTemplateManager()->CreateDPT(QStringLiteral("N"), t));
         }},
        {"RemoveDPT", [&] { return int(platform->RemoveDPT(QStringLiteral("T"))); }},
        {"RenameDPT",
         [&] { return int(platform->RenameDPT(QStringLiteral("T"), QStringLiteral("U"))); }},
        {"RemoveDPD into the recycle folder",
         [&] {
             return int(Library(QStringLiteral("QXMaterial"))->RemoveDPD(QStringLiteral("Bolt")));
         }},
    };
    for (const auto& [label, operation] : operations) {
        EXPECT_NE(operation(), VOR::eOk) << label;
        const QString reason = CVorDPMManager::GetLastErrorText();
        EXPECT_TRUE(reason.contains(kOutsideTheRoot)) << label << ": " << reason.toStdString();
        EXPECT_EQ(Snapshot(m_outside), before) << label;
    }
    EXPECT_TRUE(QFile::exists(InLibrary(QStringLiteral("Bolt.DPD"))));
    EXPECT_FALSE(QFile::exists(root.File(QStringLiteral("Copied"))));
}

// Ids and row references are ints: a file holding a larger number is refused as a whole
// rather than read with the number cut down onto another row's id.
TEST_F(BoundaryTest, NumbersBeyondTheIdRangeRefuseTheFile) {
    struct Case {
        const char* label;
        const char* sql;
    };
    const Case cases[] = {
        {"row id", "UPDATE product SET id = 4294967297 WHERE name = 'p2'"},
        {"reference", "INSERT INTO serial (id, product_id) VALUES (1, 4294967297)"},
        {"negative id", "UPDATE product SET id = -4294967295 WHERE name = 'p2'"},
    };
    const QString path = InLibrary(QStringLiteral("Bolt.DPD"));
    const QByteArray original = ReadAll(path);
    for (const Case& c : cases) {
        Reopen();
        QFile::remove(path);
        Write(path, original);
        Exec(path, c.sql);
        const QByteArray damaged = ReadAll(path);
        CVorDPMDPD* dpd = Definition(QStringLiteral("Bolt"));
        ASSERT_NE(dpd, nullptr) << c.label;
        CKZList<CVorDPM_DPD_Product*> products;
        EXPECT_NE(dpd->GetAllProduct(products), VOR::eOk) << c.label;
        EXPECT_TRUE(products.IsEmpty()) << c.label;
        const QString reason = CVorDPMManager::GetLastErrorText();
        EXPECT_TRUE(reason.contains(QStringLiteral("Bolt.DPD"))) << reason.toStdString();
        EXPECT_TRUE(reason.contains(QStringLiteral("超出本程序可保存范围的数字")))
            << reason.toStdString();
        EXPECT_EQ(Manager()->SaveWork(), 1) << c.label;
        EXPECT_EQ(ReadAll(path), damaged) << c.label;
    }
}

TEST_F(BoundaryTest, NoNewRowOnceTheLargestIdIsTaken) {
    const QString path = InLibrary(QStringLiteral("Bolt.DPD"));
    Exec(path, "UPDATE product SET id = 2147483647 WHERE name = 'p2'");
    Reopen();
    CVorDPMDPD* dpd = Definition(QStringLiteral("Bolt"));
    ASSERT_NE(dpd, nullptr);
    CKZList<CVorDPM_DPD_Product*> products;
    ASSERT_EQ(dpd->GetAllProduct(products), VOR::eOk);
    ASSERT_EQ(products.GetCount(), 2);
    auto* extra = new CVorDPM_DPD_Product;
    extra->SetName(QStringLiteral("p3"));
    EXPECT_NE(dpd->AddProduct(extra), VOR::eOk);
    EXPECT_TRUE(CVorDPMManager::GetLastErrorText().contains(QStringLiteral("已没有可用的对象 ID")));
    CVorDPM_DPD_Product* last = nullptr;
    ASSERT_EQ(dpd->GetProduct(2147483647, last), VOR::eOk);
    EXPECT_EQ(last->GetName(), QStringLiteral("p2"));
}
