#include <QTreeWidget>

#include "QueryFixture.h"
#include "query/CVorDPMData.h"

namespace {

const QString kAny = QStringLiteral("*");

}  // namespace

// Two libraries; the first has two catalogs (one holding mixed classifications) and four
// product definitions, one of which no catalog holds.
class CatalogQueryTest : public StoreTestBase {
protected:
    void SetUp() override {
        MakeLibrary(QStringLiteral("QXMEP"));
        CVorDPMLibraryManager* library = MakeLibrary(QStringLiteral("QXMaterial"));
        for (const char* name : {"HexBolt", "StudBolt", "Nut", "Loose"})
            MakeDefinition(library, QString::fromUtf8(name));
        CVorDPMDPC* fasteners = MakeCatalog(library, QStringLiteral("紧固件"));
        MakeEntry(fasteners, QStringLiteral("HexBolt"), QStringLiteral("螺栓"),
                  QStringLiteral("六角头"), QStringLiteral("粗牙"));
        MakeEntry(fasteners, QStringLiteral("StudBolt"), QStringLiteral("螺栓"),
                  QStringLiteral("双头"));
        MakeEntry(fasteners, QStringLiteral("Nut"), QStringLiteral("螺母"));
        MakeEntry(fasteners, QStringLiteral("Washer"));
        MakeEntry(fasteners, QStringLiteral("HexBoltFine"), QStringLiteral("Bolt"),
                  QStringLiteral("Hex"));
        MakeEntry(fasteners, QStringLiteral("hexbolt-lower"), QStringLiteral("bolt"),
                  QStringLiteral("hex"));
        CVorDPMDPC* spares = MakeCatalog(library, QStringLiteral("Spares"));
        MakeEntry(spares, QStringLiteral("nut"), QStringLiteral("X"));
        SaveAndReopen();
    }

    static CVorDPMDPC* Catalog(const QString& name = QStringLiteral("紧固件")) {
        CVorDPMDPC* catalog = nullptr;
        EXPECT_EQ(CVorDPMData::GetDPCManger(QStringLiteral("QXMaterial"), name, catalog), 1);
        return catalog;
    }

    static QStringList Match(const QString& name, const QString& level0, const QString& level1,
                             const QString& level2) {
        CKZList<CVorDPM_DPC_Content*> out;
        EXPECT_EQ(CVorDPMData::GetAllMatchContent(Catalog(), name, level0, level1, level2, out), 1);
        return EntryNames(out);
    }
};

// Look-ups by name: a missing name leaves the answer empty; one in a missing library fails.
TEST_F(CatalogQueryTest, LooksUpLibrariesCatalogsAndLibraryInformationByName) {
    CVorDPMLibraryManager* library = nullptr;
    EXPECT_EQ(CVorDPMData::GetLibraryManger(QStringLiteral("QXMaterial"), library), 1);
    ASSERT_NE(library, nullptr);
    EXPECT_EQ(library->GetLibraryName(), QStringLiteral("QXMaterial"));
    CVorDPMLibraryManager* missing = nullptr;
    EXPECT_EQ(CVorDPMData::GetLibraryManger(QStringLiteral("Nowhere"), missing), 1);
    EXPECT_EQ(missing, nullptr);

    CVorDPMDPC* catalog = nullptr;
    EXPECT_EQ(
        CVorDPMData::GetDPCManger(QStringLiteral("QXMaterial"), QStringLiteral("nope"), catalog),
        1);
    EXPECT_EQ(catalog, nullptr);
    EXPECT_EQ(
        CVorDPMData::GetDPCManger(QStringLiteral("Nowhere"), QStringLiteral("紧固件"), catalog), 0);
    EXPECT_EQ(catalog, nullptr);
    ASSERT_NE(Catalog(), nullptr);
    EXPECT_EQ(Catalog()->GetDPCName(), QStringLiteral("紧固件"));

    CVorDPM_DPI_Info* info = nullptr;
    EXPECT_EQ(CVorDPMData::GetDPIInfo(QStringLiteral("QXMaterial"), info), 1);
    EXPECT_NE(info, nullptr);
    CVorDPM_DPI_Info* none = nullptr;
    EXPECT_EQ(CVorDPMData::GetDPIInfo(QStringLiteral("Nowhere"), none), 0);
    EXPECT_EQ(none, nullptr);
}

TEST_F(CatalogQueryTest, ListsNamesByAppending) {
    std::vector<QString> libraries{QStringLiteral("kept")};
    EXPECT_EQ(CVorDPMData::GetAllLibraryName(libraries), 1);
    EXPECT_EQ(libraries, (std::vector<QString>{QStringLiteral("kept"), QStringLiteral("QXMaterial"),
                                               QStringLiteral("QXMEP")}));

    std::vector<QString> catalogs{QStringLiteral("kept")};
    EXPECT_EQ(CVorDPMData::GetAllDPCName(QStringLiteral("QXMaterial"), catalogs), 1);
    EXPECT_EQ(catalogs, (std::vector<QString>{QStringLiteral("kept"), QStringLiteral("Spares"),
                                              QStringLiteral("紧固件")}));
    EXPECT_EQ(CVorDPMData::GetAllDPCName(QStringLiteral("Nowhere"), catalogs), 0);
    EXPECT_EQ(catalogs.size(), 3u);
}

TEST_F(CatalogQueryTest, ExteriorDefinitionsAreThoseNoLiveEntryHolds) {
    const auto exterior = [](const QString& library, int expectedResult = 1) {
        CKZList<CVorDPMDPD*> list;
        EXPECT_EQ(CVorDPMData::GetALLExteriorDPD(library, list), expectedResult);
        QStringList names;
        for (const CVorDPMDPD* dpd : list) names.append(dpd->GetDPDName());
        return names;
    };
    EXPECT_EQ(exterior(QStringLiteral("QXMaterial")), QStringList{QStringLiteral("Loose")});
    EXPECT_TRUE(exterior(QStringLiteral("QXMEP")).isEmpty());
    EXPECT_TRUE(exterior(QStringLiteral("Nowhere"), 0).isEmpty());
    // Catalog entries name definitions without regard to case; a deleted entry holds nothing.
    CVorDPM_DPC_Content* entry =
        MakeEntry(Catalog(QStringLiteral("Spares")), QStringLiteral("LOOSE"));
    EXPECT_TRUE(exterior(QStringLiteral("QXMaterial")).isEmpty());
    entry->SetDeleted(1);
    EXPECT_EQ(exterior(QStringLiteral("QXMaterial")), QStringList{QStringLiteral("Loose")});
}

TEST_F(CatalogQueryTest, CollectsEachNonEmptyClassificationTextOnceInOrder) {
    std::set<QString> level0{QStringLiteral("kept")};
    EXPECT_EQ(CVorDPMData::GetDPCAllType(Catalog(), CVorDPM_DPC_Content::FirstType, level0), 1);
    EXPECT_EQ(level0, (std::set<QString>{QStringLiteral("Bolt"), QStringLiteral("bolt"),
                                         QStringLiteral("kept"), QStringLiteral("螺栓"),
                                         QStringLiteral("螺母")}));
    std::set<QString> level2;
    EXPECT_EQ(CVorDPMData::GetDPCAllType(Catalog(), CVorDPM_DPC_Content::ThirdType, level2), 1);
    EXPECT_EQ(level2, std::set<QString>{QStringLiteral("粗牙")});

    std::set<QString> spares;
    EXPECT_EQ(CVorDPMData::GetDPCAllType(Catalog(QStringLiteral("Spares")),
                                         CVorDPM_DPC_Content::ThirdType, spares),
              1);
    EXPECT_TRUE(spares.empty());
    EXPECT_EQ(CVorDPMData::GetDPCAllType(nullptr, CVorDPM_DPC_Content::FirstType, spares), 0);
}

TEST_F(CatalogQueryTest, MatchesEntriesByClassificationAndName) {
    const struct {
        QString name, level0, level1, level2;
        QStringList expected;
    } cases[] = {
        // Everything, in store order.
        {kAny,
         kAny,
         kAny,
         kAny,
         {"HexBolt", "StudBolt", "Nut", "Washer", "HexBoltFine", "hexbolt-lower"}},
        // With a "*" among the levels the others are compared without regard to case.
        {kAny, "Bolt", kAny, kAny, {"HexBoltFine", "hexbolt-lower"}},
        {kAny, kAny, "HEX", kAny, {"HexBoltFine", "hexbolt-lower"}},
        {kAny, "螺栓", kAny, "", {"StudBolt"}},
        // All three given: the store's exact selection.
        {kAny, "Bolt", "Hex", "", {"HexBoltFine"}},
        {kAny, "螺栓", "六角头", "粗牙", {"HexBolt"}},
        {kAny, "", "", "", {"Washer"}},
        // Names as the name matching's own tests match them, with the levels or without.
        {"Bolt", kAny, kAny, kAny, {"HexBolt", "StudBolt", "HexBoltFine"}},
        {"Hex*Fine", kAny, kAny, kAny, {"HexBoltFine"}},
        {"Bolt", "螺栓", kAny, kAny, {"HexBolt", "StudBolt"}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Match(c.name, c.level0, c.level1, c.level2), c.expected)
            << c.name.toStdString() << " / " << c.level0.toStdString() << " / "
            << c.level1.toStdString() << " / " << c.level2.toStdString();
}

TEST_F(CatalogQueryTest, MatchingAppendsAndRefusesANullCatalog) {
    CKZList<CVorDPM_DPC_Content*> out;
    EXPECT_EQ(CVorDPMData::GetAllMatchContent(nullptr, kAny, kAny, kAny, kAny, out), 0);
    EXPECT_EQ(CVorDPMData::GetAllMatchContent(nullptr, kAny, kAny, kAny, out), 0);
    EXPECT_TRUE(out.IsEmpty());
    CVorDPMData::GetAllMatchContent(Catalog(), QStringLiteral("螺母"), QString(), QString(), out);
    CVorDPMData::GetAllMatchContent(Catalog(), QStringLiteral("螺母"), QString(), QString(), out);
    EXPECT_EQ(EntryNames(out), (QStringList{"Nut", "Nut"}));
}

TEST_F(CatalogQueryTest, FiltrateKeepsNullEntriesAndOtherLevelsUntouched) {
    CKZList<CVorDPM_DPC_Content*> list;
    Catalog()->GetAllContent(list);
    list.AddHead(nullptr);
    EXPECT_EQ(CVorDPMData::FiltrateContentLst(CVorDPM_DPC_Content::SecondType,
                                              QStringLiteral("hex"), list),
              1);
    EXPECT_EQ(EntryNames(list), (QStringList{"<null>", "HexBoltFine", "hexbolt-lower"}));
    EXPECT_EQ(list.GetAt(1)->GetType(CVorDPM_DPC_Content::SecondType), QStringLiteral("Hex"));
}

TEST_F(CatalogQueryTest, RecognisesAnEntryAlreadyInTheCatalog) {
    CVorDPM_DPC_Content probe;
    probe.SetDPD(QStringLiteral("HEXBOLT"));
    probe.SetType(CVorDPM_DPC_Content::FirstType, QStringLiteral("螺栓"));
    probe.SetType(CVorDPM_DPC_Content::SecondType, QStringLiteral("六角头"));
    probe.SetType(CVorDPM_DPC_Content::ThirdType, QStringLiteral("粗牙"));
    EXPECT_EQ(CVorDPMData::HasDPCRecord(Catalog(), &probe), 1);
    // The same product under another classification is a new record.
    probe.SetType(CVorDPM_DPC_Content::ThirdType, QString());
    EXPECT_EQ(CVorDPMData::HasDPCRecord(Catalog(), &probe), 0);
    probe.SetType(CVorDPM_DPC_Content::ThirdType, QStringLiteral("粗牙"));
    probe.SetDPD(QStringLiteral("StudBolt"));
    EXPECT_EQ(CVorDPMData::HasDPCRecord(Catalog(), &probe), 0);
    EXPECT_EQ(CVorDPMData::HasDPCRecord(Catalog(), nullptr), 0);
}

TEST(CatalogPath, SplitsIntoCatalogAndLevels) {
    const struct {
        const char* path;
        int level;
        QStringList parts;  // catalog, level0, level1, level2
    } cases[] = {
        {"C", -1, {"C", "", "", ""}},           {"", -1, {"", "", "", ""}},
        {"C/A", 0, {"C", "A", "", ""}},         {"C/A/B", 1, {"C", "A", "B", ""}},
        {"C//A///B/", 1, {"C", "A", "B", ""}},  {"C/A/B/D", 2, {"C", "A", "B", "D"}},
        {"C/A/B/D/E", 2, {"C", "A", "B", "D"}}, {"/紧固件/螺栓", 0, {"紧固件", "螺栓", "", ""}},
    };
    for (const auto& c : cases) {
        QString catalog, level0, level1, level2;
        const int level =
            CVorDPMData::GetDPCType(QString::fromUtf8(c.path), catalog, level0, level1, level2);
        EXPECT_EQ(level, c.level) << c.path;
        EXPECT_EQ((QStringList{catalog, level0, level1, level2}), c.parts) << c.path;
    }
}

TEST(CatalogTree, ReadsTheClassificationOfAnItem) {
    QTreeWidget tree;
    auto* root = new QTreeWidgetItem(&tree, QStringList{QStringLiteral("紧固件")});
    auto* a = new QTreeWidgetItem(root, QStringList{QStringLiteral("A")});
    auto* b = new QTreeWidgetItem(a, QStringList{QStringLiteral("B")});
    auto* c = new QTreeWidgetItem(b, QStringList{QStringLiteral("C")});
    auto* tooDeep = new QTreeWidgetItem(c, QStringList{QStringLiteral("D")});
    auto* otherRoot = new QTreeWidgetItem(&tree, QStringList{QStringLiteral("Other")});
    auto* otherChild = new QTreeWidgetItem(otherRoot, QStringList{QStringLiteral("X")});

    const struct {
        QTreeWidgetItem* item;
        QStringList levels;
    } cases[] = {
        {a, {"A", "-", "-"}},
        {b, {"A", "B", "-"}},
        {c, {"A", "B", "C"}},
        {root, {"-", "-", "-"}},
        {tooDeep, {"-", "-", "-"}},
        // Outside the first root the walk stops at the item's own root.
        {otherChild, {"X", "-", "-"}},
        {nullptr, {"-", "-", "-"}},
    };
    for (const auto& c : cases) {
        QString level0 = QStringLiteral("-"), level1 = level0, level2 = level0;
        CVorDPMData::GetTypes(tree, c.item, level0, level1, level2);
        EXPECT_EQ((QStringList{level0, level1, level2}), c.levels)
            << (c.item ? c.item->text(0).toStdString() : "null");
    }
}
