// The store's behaviour on both kinds of library root, a folder and a database server: the same
// calls must give the same names, rows, codes and messages. Server tests skip when no cluster
// runs (PostgreSQL not installed).

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <functional>
#include <memory>
#include <vector>

#include "ServerDatabase.h"
#include "support/StoreFileEdits.h"
#include "support/StoreTestBase.h"
#include "support/ToolRunner.h"

namespace {

enum class Root { Folder, Server };

std::string RootName(const ::testing::TestParamInfo<Root>& info) {
    return info.param == Root::Folder ? "Folder" : "Server";
}

const QString kLibrary = QStringLiteral("QXMaterial");

}  // namespace

class StorageRootTest : public StoreTestBase, public ::testing::WithParamInterface<Root> {
protected:
    void SetUp() override {
        if (GetParam() == Root::Server) {
            m_server = std::make_unique<ServerDatabase>();
            if (!m_server->Ready()) GTEST_SKIP() << m_server->Reason().toStdString();
        }
        ASSERT_EQ(Manager()->SetDPMLibraryRootPath(RootPath()), 1)
            << CVorDPMManager::GetLastErrorText().toStdString();
    }

    void TearDown() override {
        // The server's database goes first; the store must not hold it then.
        Manager()->SetDPMLibraryRootPath(root.Path());
    }

    QString RootPath() const { return m_server ? m_server->Uri() : root.Path(); }
    QString PathOf(const QString& definition) const {
        return Manager()->GetDPMLibraryRootPath() + QStringLiteral("/QXMaterial/") + definition +
               QStringLiteral(".DPD");
    }

    // Puts a removed definition back from the root's trash.
    bool Restore(const QString& name) {
        if (m_server)
            return m_server
                ->Exec(QStringLiteral("UPDATE vordpm.containers SET trashed_at = NULL "
                                      "WHERE name = '%1'")
                           .arg(name))
                .isEmpty();
        // Removed files go to the desktop trash under the test's data folder, or .recycle.
        for (const QString& folder : {root.Home() + QStringLiteral("/data/Trash/files"),
                                      root.File(QStringLiteral(".recycle"))}) {
            // Name filters ignore case; the test removes names that differ only in case.
            QDirIterator it(folder, QDir::Files);
            while (it.hasNext()) {
                const QString path = it.next();
                if (it.fileName().startsWith(name + QStringLiteral(".DPD")))
                    return QFile::rename(path, root.File(kLibrary + QLatin1Char('/') + name +
                                                         QStringLiteral(".DPD")));
            }
        }
        return false;
    }

    std::unique_ptr<ServerDatabase> m_server;
};

INSTANTIATE_TEST_SUITE_P(Roots, StorageRootTest, ::testing::Values(Root::Folder, Root::Server),
                         RootName);

TEST_P(StorageRootTest, NamesFollowOneRuleAndAreUniqueWithoutRegardToCase) {
    CVorDPMLibraryManager* library = MakeLibrary(kLibrary);
    ASSERT_NE(library, nullptr);
    CVorDPMDPD* dpd = nullptr;
    CVorDPMDPC* dpc = nullptr;
    CVorDPMDPT* dpt = nullptr;
    CVorDPMLibraryManager* other = nullptr;
    CVorDPMTemplateManager* templates = library->GetVorDPMTemplateManager();
    struct Case {
        const char* what;
        std::function<VOR::ErrorStatus()> act;
        VOR::ErrorStatus expected;
    };
    const Case cases[] = {
        {"definition", [&] { return library->CreateDPD(QStringLiteral("Bolt"), dpd); }, VOR::eOk},
        {"same name, other case", [&] { return library->CreateDPD(QStringLiteral("bOLT"), dpd); },
         VOR::eNameExists},
        {"catalog of the same name",
         [&] { return library->CreateDPC(QStringLiteral("Bolt"), dpc); }, VOR::eOk},
        {"slash", [&] { return library->CreateDPD(QStringLiteral("a/b"), dpd); },
         VOR::eInvalidName},
        {"leading dot", [&] { return library->CreateDPD(QStringLiteral(".x"), dpd); },
         VOR::eInvalidName},
        {"device name", [&] { return library->CreateDPC(QStringLiteral("CON"), dpc); },
         VOR::eInvalidName},
        {"library in other case",
         [&] { return Manager()->CreateLibrary(QStringLiteral("qxMATERIAL"), other); },
         VOR::eNameExists},
        {"library named as the root's templates",
         [&] { return Manager()->CreateLibrary(QStringLiteral("templates"), other); },
         VOR::eNameExists},
        {"template", [&] { return templates->CreateDPT(QStringLiteral("T螺栓"), dpt); }, VOR::eOk},
        {"template in other case",
         [&] { return templates->CreateDPT(QStringLiteral("t螺栓"), dpt); }, VOR::eNameExists},
        {"rename changing only case",
         [&] { return library->RenameDPD(QStringLiteral("Bolt"), QStringLiteral("BOLT")); },
         VOR::eOk},
        {"rename onto another name",
         [&] { return library->RenameDPC(QStringLiteral("Bolt"), QStringLiteral("bolt")); },
         VOR::eOk},
    };
    for (const Case& c : cases) EXPECT_EQ(c.act(), c.expected) << c.what;

    Reopen();
    QStringList definitions, catalogs, dpts;
    Library(kLibrary)->GetAllDPDName(definitions);
    Library(kLibrary)->GetAllDPCName(catalogs);
    Library(kLibrary)->GetVorDPMTemplateManager()->GetAllDPTName(dpts);
    EXPECT_EQ(definitions, QStringList{QStringLiteral("BOLT")});
    EXPECT_EQ(catalogs, QStringList{QStringLiteral("bolt")});
    EXPECT_EQ(dpts, QStringList{QStringLiteral("T螺栓")});
}

TEST_P(StorageRootTest, ListingsAreSortedWithoutRegardToCase) {
    CVorDPMLibraryManager* library = MakeLibrary(kLibrary);
    for (const char* name : {"b", "C", "a", "B2", "阀门", "A1"})
        MakeDefinition(library, QString::fromUtf8(name));
    MakeLibrary(QStringLiteral("alpha"));
    Reopen();
    QStringList definitions, libraries;
    Library(kLibrary)->GetAllDPDName(definitions);
    Manager()->GetAllLibraryName(libraries);
    EXPECT_EQ(definitions, QString::fromUtf8("a,A1,b,B2,C,阀门").split(QLatin1Char(',')));
    EXPECT_EQ(libraries, (QStringList{QStringLiteral("alpha"), kLibrary}));
}

TEST_P(StorageRootTest, SavedRowsComeBackWithTheirIdsValuesAndBlobs) {
    CVorDPMDPD* dpd = MakeDefinition(MakeLibrary(kLibrary), QStringLiteral("Bolt"));
    ASSERT_NE(dpd, nullptr);
    // Ids, not rows: reopening the root drops the rows made before.
    CVorDPM_DPD_Property* lengthRow = AddProperty(dpd, QStringLiteral("L"));
    lengthRow->SetUnit(QStringLiteral("mm"));
    lengthRow->SetSerialCheck(1);
    const int length = lengthRow->GetObjectId();
    const int note = AddProperty(dpd, QStringLiteral("N"))->GetObjectId();
    auto* script = new CVorDPM_DPD_Dps;
    script->SetName(QStringLiteral("bolt"));
    script->SetContent(CBinaryData(QByteArray("circle(0, 0, d / 2)")));
    ASSERT_EQ(dpd->AddDps(script), VOR::eOk);
    auto* shape = new CVorDPM_DPD_Shape;
    shape->SetName(QStringLiteral("形体"));
    shape->SetDPSId(script->GetObjectId());
    shape->SetParam(QStringLiteral("d,l"));
    shape->SetParamType(QStringLiteral("0,1"));
    ASSERT_EQ(dpd->AddShape(shape), VOR::eOk);
    EXPECT_EQ(shape->SetParamIndex(QStringLiteral("l"), 7), 1);
    EXPECT_EQ(shape->SetParamIndex(QStringLiteral("x"), 7), 0);
    const int shapeId = shape->GetObjectId();
    AddProduct(dpd, QStringLiteral("gone"))->SetDeleted(1);
    CVorDPM_DPD_Product* product = AddProduct(dpd, QStringLiteral("M8"), QStringLiteral("M8x{L}"));
    const int productId = product->GetObjectId();
    const QByteArray blob("\0\x01\xff\x7fPNG\n\\", 9);
    auto* image = new CVorDPM_DPD_Image;
    image->SetName(QStringLiteral("图"));
    image->SetImage(CBinaryData(blob));
    image->SetIsUsingBlock(1);
    ASSERT_EQ(dpd->AddImage(image), VOR::eOk);
    const QString tricky = QStringLiteral("a\\b\nc=d");
    for (int i = 0; i < 3; ++i) {
        CVorDPM_DPD_Serial* serial = AddSerial(dpd, product);
        serial->SetValue(QStringLiteral("gone"), length);
        serial->SetValue(QString::number(10 * i), length);  // replaces, does not add
        if (i == 1) serial->SetValue(tricky, note);
    }
    // Values of any property id keep any text; an empty one removes the value.
    const std::pair<int, QString> values[] = {{12, QStringLiteral("a=b\nc\\n")},
                                              {123, QStringLiteral("\\")},
                                              {3, QStringLiteral("尾\n")}};
    CVorDPM_DPD_Serial* keyed = AddSerial(dpd, product);
    for (const auto& [id, value] : values) keyed->SetValue(value, id);
    keyed->SetValue(QStringLiteral("gone"), 4);
    keyed->SetValue(QString(), 4);
    const QString key = keyed->GetKey();
    auto* version = new CVorDPM_Version;
    version->SetVersion(1.5);
    version->SetAuthor(QStringLiteral("张三"));
    ASSERT_EQ(dpd->AddVersion(version), VOR::eOk);
    ASSERT_EQ(Manager()->SaveWork(), 1) << CVorDPMManager::GetLastErrorText().toStdString();

    Reopen();
    dpd = Definition(QStringLiteral("Bolt"));
    ASSERT_NE(dpd, nullptr);
    CKZList<CVorDPM_DPD_Product*> products;
    CKZList<CVorDPM_DPD_Image*> images;
    CKZList<CVorDPM_DPD_Serial*> serials;
    CKZList<CVorDPM_Version*> versions;
    dpd->GetAllProduct(products);
    dpd->GetAllImage(images);
    dpd->GetAllSerial(serials);
    dpd->GetAllVersion(versions);
    ASSERT_EQ(products.GetCount(), 1);
    EXPECT_EQ(products.GetAt(0)->GetObjectId(), productId);
    EXPECT_EQ(products.GetAt(0)->GetNameRule(), QStringLiteral("M8x{L}"));
    ASSERT_EQ(images.GetCount(), 1);
    EXPECT_EQ(images.GetAt(0)->GetImage().Bytes(), blob);
    EXPECT_EQ(images.GetAt(0)->GetIsUsingBlock(), 1);
    ASSERT_EQ(serials.GetCount(), 4);
    EXPECT_EQ(serials.GetAt(2)->GetValue(length), QStringLiteral("20"));
    EXPECT_EQ(serials.GetAt(1)->GetValue(note), tricky);
    EXPECT_EQ(serials.GetAt(1)->GetProductId(), productId);
    CVorDPM_DPD_Serial* byKey = nullptr;
    ASSERT_EQ(dpd->GetSerial(key, byKey), VOR::eOk);
    for (const auto& [id, value] : values) EXPECT_EQ(byKey->GetValue(id), value) << id;
    EXPECT_EQ(byKey->GetValue(4), QString());
    EXPECT_EQ(byKey->GetValue(23), QString());  // a prefix of another id is not that id
    CVorDPM_DPD_Serial* byId = nullptr;
    ASSERT_EQ(dpd->GetSerial(byKey->GetObjectId(), byId), VOR::eOk);
    EXPECT_EQ(byId, byKey);
    CVorDPM_DPD_Property* property = nullptr;
    ASSERT_EQ(dpd->GetProperty(length, property), VOR::eOk);
    EXPECT_EQ(property->GetUnit(), QStringLiteral("mm"));
    EXPECT_EQ(property->GetSerialCheck(), 1);
    ASSERT_EQ(dpd->GetShape(shapeId, shape), VOR::eOk);
    EXPECT_EQ(shape->GetParamType(QStringLiteral("l")), 1);
    EXPECT_EQ(shape->GetParamIndex(QStringLiteral("l")), 7);
    EXPECT_EQ(shape->GetParamIndex(QStringLiteral("d")), 0);
    EXPECT_EQ(shape->GetParamType(QStringLiteral("nope")), -1);
    ASSERT_EQ(dpd->GetDps(shape->GetDPSId(), script), VOR::eOk);
    EXPECT_EQ(script->GetContent().Bytes(), QByteArray("circle(0, 0, d / 2)"));
    ASSERT_EQ(versions.GetCount(), 1);
    EXPECT_EQ(versions.GetAt(0)->GetVersion(), 1.5);
    EXPECT_EQ(versions.GetAt(0)->GetAuthor(), QStringLiteral("张三"));

    // A change and a deletion reach the store; untouched rows stay.
    serials.GetAt(0)->SetDeleted(1);
    serials.GetAt(2)->SetValue(QStringLiteral("99"), length);
    ASSERT_EQ(Manager()->SaveWork(), 1);
    Reopen();
    serials.RemoveAll();
    Definition(QStringLiteral("Bolt"))->GetAllSerial(serials);
    ASSERT_EQ(serials.GetCount(), 3);
    EXPECT_EQ(serials.GetAt(0)->GetValue(note), tricky);
    EXPECT_EQ(serials.GetAt(1)->GetValue(length), QStringLiteral("99"));
}

TEST_P(StorageRootTest, ARemovedDefinitionCanBeRestoredFromTheTrash) {
    CVorDPMLibraryManager* library = MakeLibrary(kLibrary);
    AddProduct(MakeDefinition(library, QStringLiteral("Bolt")), QStringLiteral("M8"));
    ASSERT_EQ(Manager()->SaveWork(), 1);
    ASSERT_EQ(library->RemoveDPD(QStringLiteral("Bolt")), VOR::eOk);
    // Its name is free at once.
    CVorDPMDPD* again = nullptr;
    EXPECT_EQ(library->CreateDPD(QStringLiteral("bolt"), again), VOR::eOk);
    ASSERT_EQ(Library(kLibrary)->RemoveDPD(QStringLiteral("bolt")), VOR::eOk);
    Reopen();
    QStringList names;
    Library(kLibrary)->GetAllDPDName(names);
    EXPECT_TRUE(names.isEmpty());

    ASSERT_TRUE(Restore(QStringLiteral("Bolt")));
    Reopen();
    CKZList<CVorDPM_DPD_Product*> products;
    ASSERT_NE(Definition(QStringLiteral("Bolt")), nullptr);
    Definition(QStringLiteral("Bolt"))->GetAllProduct(products);
    ASSERT_EQ(products.GetCount(), 1);
    EXPECT_EQ(products.GetAt(0)->GetName(), QStringLiteral("M8"));
}

TEST_P(StorageRootTest, ASaveOverAnotherProcesssChangeWritesNothingAndKeepsTheEdits) {
    const char* const changed = ": 自加载以来已被其他用户修改";
    const char* const gone = ": 自加载以来已被其他用户删除或重命名";
    struct Case {
        QStringList child;
        const char* conflict;
        QStringList productsAfter;  // of Shared, as stored after both saves
    };
    const Case cases[] = {
        {{"product-name", "QXMaterial", "Shared", "child"}, changed, {"child"}},
        {{"delete-product", "QXMaterial", "Shared"}, changed, {}},
        {{"add-product", "QXMaterial", "Shared", "c"}, changed, {"p1", "c"}},
        {{"remove-dpd", "QXMaterial", "Shared"}, gone, {}},
        {{"rename-dpd", "QXMaterial", "Shared", "Moved"}, gone, {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.child.join(QLatin1Char(' ')).toStdString());
        Reopen();
        CVorDPMLibraryManager* library = Library(kLibrary);
        if (!library) library = MakeLibrary(kLibrary);
        for (const QString& name : {QStringLiteral("Shared"), QStringLiteral("Other")}) {
            library->RemoveDPD(name);
            AddProduct(MakeDefinition(library, name), QStringLiteral("p1"));
        }
        ASSERT_EQ(Manager()->SaveWork(), 1);
        Reopen();
        CVorDPMDPD* shared = Definition(QStringLiteral("Shared"));
        CVorDPMDPD* other = Definition(QStringLiteral("Other"));
        CKZList<CVorDPM_DPD_Product*> products;
        shared->GetAllProduct(products);
        other->GetAllProduct(products);
        ASSERT_EQ(products.GetCount(), 2);

        ASSERT_EQ(RunWriter(RootPath(), c.child), QStringLiteral("ok"));
        products.GetAt(0)->SetName(QStringLiteral("parent"));
        products.GetAt(1)->SetName(QStringLiteral("parent too"));
        AddProduct(shared, QStringLiteral("p"));
        EXPECT_EQ(Manager()->SaveWork(), 0);
        EXPECT_EQ(CVorDPMManager::GetLastErrorText(),
                  PathOf(QStringLiteral("Shared")) + QString::fromUtf8(c.conflict));
        EXPECT_TRUE(Manager()->HasUnsavedChanges());
        EXPECT_EQ(products.GetAt(0)->GetName(), QStringLiteral("parent"));
        EXPECT_EQ(Manager()->SaveWork(), 0);

        // Nothing of this process reached Shared. A folder root writes each file on its own; a
        // server root writes all or nothing.
        Reopen();
        EXPECT_EQ(ProductNames(Definition(QStringLiteral("Shared"))), c.productsAfter);
        EXPECT_EQ(ProductNames(Definition(QStringLiteral("Other"))),
                  QStringList{GetParam() == Root::Folder ? "parent too" : "p1"});
    }
}

TEST_P(StorageRootTest, TenWritersOfOneLibraryNeitherBlockNorLoseASave) {
    constexpr int kWriters = 10;
    constexpr int kSaves = 20;
    CVorDPMLibraryManager* library = MakeLibrary(kLibrary);
    for (int i = 0; i < kWriters; ++i)
        AddProduct(MakeDefinition(library, QStringLiteral("D%1").arg(i)), QStringLiteral("p"));
    ASSERT_EQ(Manager()->SaveWork(), 1);
    std::vector<std::unique_ptr<QProcess>> writers;
    for (int i = 0; i < kWriters; ++i) {
        writers.push_back(std::make_unique<QProcess>());
        writers.back()->start(StoreWriter(),
                              {RootPath(), QStringLiteral("renames"), kLibrary,
                               QStringLiteral("D%1").arg(i), QString::number(kSaves)});
    }
    for (auto& writer : writers) {
        ASSERT_TRUE(writer->waitForFinished(120000));
        const QStringList lines =
            QString::fromUtf8(writer->readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
        EXPECT_EQ(lines.value(lines.size() - 1), QStringLiteral("ok"));
    }
    Reopen();
    for (int i = 0; i < kWriters; ++i) {
        CKZList<CVorDPM_DPD_Product*> products;
        Definition(QStringLiteral("D%1").arg(i))->GetAllProduct(products);
        ASSERT_EQ(products.GetCount(), 1) << i;
        EXPECT_EQ(products.GetAt(0)->GetName(), QString::number(kSaves)) << i;
    }
}

TEST_P(StorageRootTest, CopiedAndRenamedLibrariesKeepTheirRows) {
    AddProduct(MakeDefinition(MakeLibrary(kLibrary), QStringLiteral("Bolt")), QStringLiteral("M8"));
    ASSERT_EQ(Manager()->SaveWork(), 1);
    EXPECT_EQ(Manager()->CopyLibrary(kLibrary, QStringLiteral("Copy")), VOR::eOk)
        << CVorDPMManager::GetLastErrorText().toStdString();
    EXPECT_EQ(Manager()->CopyLibrary(kLibrary, QStringLiteral("copy")), VOR::eNameExists);
    EXPECT_EQ(Manager()->RenameLibrary(kLibrary, QStringLiteral("Old")), VOR::eOk);
    Reopen();
    QStringList libraries;
    Manager()->GetAllLibraryName(libraries);
    EXPECT_EQ(libraries, (QStringList{QStringLiteral("Copy"), QStringLiteral("Old")}));
    for (const QString& library : libraries)
        EXPECT_EQ(ProductNames(Definition(QStringLiteral("Bolt"), library)), QStringList{"M8"});
}

// The tool reads either kind of root; a container on the server is no SQLite file, so the check
// finds only the definition's own fault (a product without a naming rule).
TEST_P(StorageRootTest, TheToolShowsAndChecksTheRoot) {
    AddProduct(MakeDefinition(MakeLibrary(kLibrary), QStringLiteral("Bolt")), QStringLiteral("M8"));
    ASSERT_EQ(Manager()->SaveWork(), 1);
    const ToolRun shown = ToolRunner::Run({"show", "--root", RootPath(), kLibrary, "Bolt"});
    EXPECT_EQ(shown.exitCode, 0) << shown.err.toStdString();
    EXPECT_TRUE(shown.out.contains("[products]\nid\tName\tNameRule\tDescription\n1\tM8\t"))
        << shown.out.toStdString();
    const ToolRun checked = ToolRunner::Run({"check", "--root", RootPath()});
    EXPECT_EQ(checked.exitCode, 1) << checked.err.toStdString();
    EXPECT_TRUE(checked.out.startsWith("QXMaterial/Bolt.DPD:product#1: error: "))
        << checked.out.toStdString();
    EXPECT_TRUE(checked.out.endsWith(" 0 script runs: 1 errors, 0 warnings\n"))
        << checked.out.toStdString();
}
