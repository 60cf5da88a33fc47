#include <QTest>
#include <memory>

#include "ControlsFixture.h"
#include "shell/CVorDPMTreeCtrlEx.h"

namespace {

QStringList Texts(const std::vector<QTreeWidgetItem*>& nodes) {
    QStringList texts;
    for (const QTreeWidgetItem* node : nodes) texts.append(node->text(0));
    return texts;
}

}  // namespace

// Library QXMaterial: a fastener catalog with classified, unclassified and missing products,
// an empty catalog, and two products that no catalog holds.
class TreeCtrlTest : public ControlsTest {
protected:
    void SetUp() override {
        m_library = MakeLibrary(QStringLiteral("QXMaterial"));
        for (const char* name : {"HexBolt", "StudBolt", "Nut", "Washer", "Loose1", "Loose2"})
            m_dpds[QString::fromLatin1(name)] =
                MakeDefinition(m_library, QString::fromLatin1(name));
        MakeCatalog(m_library, QStringLiteral("Empty"));
        m_catalog = MakeCatalog(m_library, QStringLiteral("紧固件"));
        MakeEntry(m_catalog, QStringLiteral("HexBolt"), QStringLiteral("螺栓"),
                  QStringLiteral("六角头"));
        MakeEntry(m_catalog, QStringLiteral("StudBolt"), QStringLiteral("螺栓"),
                  QStringLiteral("双头"));
        MakeEntry(m_catalog, QStringLiteral("Nut"), QStringLiteral("螺母"));
        MakeEntry(m_catalog, QStringLiteral("Washer"));
        MakeEntry(m_catalog, QStringLiteral("Ghost"), QStringLiteral("螺母"));
    }

    // The node at a path of texts below the top level, e.g. {"QXMaterial", "紧固件"}.
    QTreeWidgetItem* Node(const QStringList& texts) {
        QTreeWidgetItem* node = nullptr;
        for (const QString& text : texts) {
            node = m_tree.GetItem(text, node);
            if (!node) ADD_FAILURE() << "no node " << text.toStdString();
            if (!node) return nullptr;
        }
        return node;
    }

    CVorDPMLibraryManager* m_library = nullptr;
    CVorDPMDPC* m_catalog = nullptr;
    std::map<QString, CVorDPMDPD*> m_dpds;
    CVorDPMTreeCtrlEx m_tree;
};

TEST_F(TreeCtrlTest, LibraryTreeShowsCatalogsClassificationsAndUncataloguedProducts) {
    EXPECT_EQ(m_tree.InsertTree(QStringLiteral("QXMaterial")), 1);
    const QStringList expected{
        "QXMaterial:0",      "  Empty:1",    "  紧固件:1",         "    螺栓:3",   "      六角头:3",
        "        HexBolt:2", "      双头:3", "        StudBolt:2", "    螺母:3",   "      Nut:2",
        "      Ghost:4",     "    Washer:2", "  未分类:0",         "    Loose1:2", "    Loose2:2",
    };
    EXPECT_EQ(Dump(m_tree), expected);
    // Item data: the catalog on catalog nodes, the product file on product nodes, none else.
    EXPECT_EQ(m_tree.GetItemDPC(Node({"QXMaterial", "紧固件"})), m_catalog);
    EXPECT_EQ(m_tree.GetItemDPD(Node({"QXMaterial", "未分类", "Loose2"})), m_dpds["Loose2"]);
    EXPECT_EQ(m_tree.GetItemData(Node({"QXMaterial", "紧固件", "螺母", "Ghost"})), nullptr);
    EXPECT_EQ(m_tree.GetItemData(Node({"QXMaterial", "紧固件", "螺母"})), nullptr);
}

// A library the store does not know still gets its bare root, as the main dialog lists it.
TEST_F(TreeCtrlTest, UnknownLibraryLeavesABareRoot) {
    EXPECT_EQ(m_tree.InsertTree(QStringLiteral("Nowhere")), 0);
    EXPECT_EQ(Dump(m_tree), QStringList{"Nowhere:0"});
}

TEST_F(TreeCtrlTest, UpdataTreeCtrlBuildsACatalogOrTheUncataloguedProducts) {
    // The tree as its dump joined with "|".
    const struct {
        const char* path;
        int withProducts;
        const char* expected;
    } cases[] = {
        {"QXMaterial/紧固件", 0, "紧固件:1|  螺栓:3|    六角头:3|    双头:3|  螺母:3"},
        {"QXMaterial/紧固件", 1,
         "紧固件:1|  螺栓:3|    六角头:3|      HexBolt:2|    双头:3|      StudBolt:2|  螺母:3|"
         "    Nut:2|    Ghost:4|  Washer:2"},
        {"QXMaterial", 1, "Loose1:2|Loose2:2"},
        {"QXMaterial/Nowhere", 1, ""},
    };
    for (const auto& c : cases) {
        m_tree.clear();
        EXPECT_EQ(m_tree.UpdataTreeCtrl(QString::fromUtf8(c.path), c.withProducts), 1);
        EXPECT_EQ(Dump(m_tree).join(QLatin1Char('|')), QString::fromUtf8(c.expected))
            << c.path << " " << c.withProducts;
    }
}

// Rows as "product/level0/level1/level2"; the tree as its dump joined with "|".
TEST_F(TreeCtrlTest, ClassificationChainsFollowTheEntryLevels) {
    const struct {
        const char* what;
        QStringList rows;
        int withProducts;
        const char* expected;
    } cases[] = {
        {"shared chain",
         {"HexBolt/A/B/", "Nut/A/B/"},
         1,
         "C:1|  A:3|    B:3|      HexBolt:2|      Nut:2"},
        {"empty first level: product under the catalog", {"Nut//B/"}, 1, "C:1|  Nut:2"},
        {"empty second level stops the walk", {"Nut/A//Z"}, 1, "C:1|  A:3|    Nut:2"},
        {"three levels", {"Nut/A/B/Z"}, 1, "C:1|  A:3|    B:3|      Z:3|        Nut:2"},
        {"level texts compare with case",
         {"HexBolt/Bolt//", "Nut/bolt//"},
         1,
         "C:1|  Bolt:3|    HexBolt:2|  bolt:3|    Nut:2"},
        {"without products", {"Nut/A//"}, 0, "C:1|  A:3"},
        {"a product node with a level's text takes that level's rows",
         {"A///", "Nut/A//"},
         1,
         "C:1|  A:4|    Nut:2"},
        {"many rows, chains in the order first seen",
         {"Nut/B/Y/", "HexBolt/A//", "Washer/B/X/", "StudBolt/B/Y/"},
         1,
         "C:1|  B:3|    Y:3|      Nut:2|      StudBolt:2|    X:3|      Washer:2|  A:3|    "
         "HexBolt:2"},
        {"empty product name", {"/A//"}, 1, "C:1|  A:3"},
    };
    for (const auto& c : cases) {
        m_tree.clear();
        std::vector<std::unique_ptr<CVorDPM_DPC_Content>> owned;
        CKZList<CVorDPM_DPC_Content*> rows;
        for (const QString& row : c.rows) {
            const QStringList parts = row.split(QLatin1Char('/'));
            owned.emplace_back(MakeEntry(nullptr, parts[0], parts[1], parts[2], parts[3]));
            rows.AddTail(owned.back().get());
        }
        // The node shows the catalog's name; a test catalog named "C" keeps the table short.
        m_tree.InsertTree(m_catalog, rows, c.withProducts, nullptr);
        m_tree.topLevelItem(0)->setText(0, QStringLiteral("C"));
        EXPECT_EQ(Dump(m_tree).join(QLatin1Char('|')), QString::fromUtf8(c.expected)) << c.what;
    }
    m_tree.clear();
    CKZList<CVorDPM_DPC_Content*> none;
    EXPECT_EQ(m_tree.InsertTree(nullptr, none, 1, nullptr), 0);
    EXPECT_EQ(m_tree.topLevelItemCount(), 0);
}

// One row added to a built catalog tree joins the chain that its levels name.
TEST_F(TreeCtrlTest, InsertSubtreeJoinsTheExistingChain) {
    std::unique_ptr<CVorDPM_DPC_Content> first(
        MakeEntry(nullptr, QStringLiteral("Nut"), QStringLiteral("A"), QStringLiteral("B")));
    std::unique_ptr<CVorDPM_DPC_Content> second(
        MakeEntry(nullptr, QStringLiteral("HexBolt"), QStringLiteral("A"), QStringLiteral("B")));
    CKZList<CVorDPM_DPC_Content*> rows;
    rows.AddTail(first.get());
    m_tree.InsertTree(m_catalog, rows, 1, nullptr);
    m_tree.topLevelItem(0)->setText(0, QStringLiteral("C"));
    EXPECT_EQ(m_tree.InsertSubtree(m_catalog, m_tree.topLevelItem(0), *second,
                                   CVorDPM_DPC_Content::FirstType, 1),
              1);
    EXPECT_EQ(Dump(m_tree),
              (QStringList{"C:1", "  A:3", "    B:3", "      Nut:2", "      HexBolt:2"}));
}

TEST_F(TreeCtrlTest, FindsNodesByTextWithoutRegardToCase) {
    m_tree.InsertTree(QStringLiteral("QXMaterial"));
    QTreeWidgetItem* root = m_tree.topLevelItem(0);
    EXPECT_EQ(m_tree.GetItem(QStringLiteral("qxmaterial"), nullptr), root);
    EXPECT_EQ(m_tree.GetItem(QStringLiteral("EMPTY"), root), root->child(0));
    EXPECT_EQ(m_tree.GetItem(QStringLiteral("Nut"), root), nullptr);  // children only

    EXPECT_EQ(m_tree.GetChildItemText(Node({"QXMaterial", "紧固件"})), QStringLiteral("螺栓"));
    EXPECT_EQ(m_tree.GetChildItemText(Node({"QXMaterial", "Empty"})), QString());
    EXPECT_EQ(m_tree.GetChildItemText(nullptr), QString());
}

TEST_F(TreeCtrlTest, IsUniqueItemTextAnswersOneWhenAnotherSiblingHasTheText) {
    m_tree.InsertTree(QStringLiteral("QXMaterial"));
    m_tree.InsertTree(QStringLiteral("QXMEP"));
    struct Case {
        QStringList node;
        const char* text;
        int expected;
    };
    const Case cases[] = {
        {{"QXMaterial", "紧固件", "螺栓"}, "washer", 1},    // a following sibling, other case
        {{"QXMaterial", "紧固件", "Washer"}, "螺栓", 1},    // a previous sibling
        {{"QXMaterial", "紧固件", "Washer"}, "WASHER", 0},  // the node's own text
        {{"QXMaterial", "紧固件", "螺母"}, "螺", 0},        // no partial matches
        {{"QXMaterial"}, "qxmep", 1},                       // top-level siblings
    };
    for (const Case& c : cases)
        EXPECT_EQ(m_tree.IsUniqueItemText(QString::fromUtf8(c.text), Node(c.node)), c.expected)
            << c.text;
    EXPECT_EQ(m_tree.IsUniqueItemText(QStringLiteral("x"), nullptr), 0);
}

TEST_F(TreeCtrlTest, PathsRunFromTheTopDownAndEndInASlashBelowTheRoot) {
    MakeCatalog(MakeLibrary(QStringLiteral("QXMEP")), QStringLiteral("管道"));
    m_tree.InsertTree(QStringLiteral("QXMaterial"));
    m_tree.InsertTree(QStringLiteral("QXMEP"));
    struct Case {
        QStringList node;
        const char* expected;
    };
    const Case cases[] = {
        {{"QXMaterial"}, "QXMaterial"},
        {{"QXMaterial", "紧固件"}, "QXMaterial/紧固件/"},
        {{"QXMaterial", "紧固件", "螺栓", "六角头", "HexBolt"},
         "QXMaterial/紧固件/螺栓/六角头/HexBolt/"},
        // Under another root the walk ends on a missing parent: the path starts with "/".
        {{"QXMEP"}, "/QXMEP/"},
        {{"QXMEP", "管道"}, "/QXMEP/管道/"},
    };
    for (const Case& c : cases) {
        QString path;
        EXPECT_EQ(m_tree.GetSelectdItemPath(Node(c.node), path), 1);
        EXPECT_EQ(path, QString::fromUtf8(c.expected));
    }
    QString path = QStringLiteral("x:");
    m_tree.GetSelectdItemPath(Node({"QXMaterial", "Empty"}), path);
    EXPECT_EQ(path, QStringLiteral("x:QXMaterial/Empty/"));  // appended to
    m_tree.GetSelectdItemPath(nullptr, path);
    EXPECT_EQ(path, QString());
}

TEST_F(TreeCtrlTest, ProductNodesAreLeavesWithAProductFile) {
    m_tree.InsertTree(QStringLiteral("QXMaterial"));
    struct Case {
        QStringList node;
        CVorDPMDPD* expected;
    };
    const Case cases[] = {
        {{"QXMaterial", "紧固件", "螺栓", "六角头", "HexBolt"}, m_dpds["HexBolt"]},
        {{"QXMaterial", "未分类", "Loose1"}, m_dpds["Loose1"]},
        {{"QXMaterial", "紧固件", "螺母", "Ghost"}, nullptr},  // missing product file
        {{"QXMaterial", "紧固件"}, nullptr},                   // has children
        {{"QXMaterial", "Empty"}, nullptr},                    // a catalog leaf
    };
    for (const Case& c : cases) {
        CVorDPMDPD* dpd = nullptr;
        EXPECT_EQ(m_tree.GetSelItemDPD(Node(c.node), dpd), c.expected ? 1 : 0)
            << c.node.last().toStdString();
        EXPECT_EQ(dpd, c.expected);
    }
    CVorDPMDPD* dpd = nullptr;
    EXPECT_EQ(m_tree.GetSelItemDPD(nullptr, dpd), 0);
}

TEST_F(TreeCtrlTest, FindFistMatchDPDSearchesDepthFirst) {
    m_tree.InsertTree(QStringLiteral("QXMaterial"));
    QTreeWidgetItem* root = m_tree.topLevelItem(0);
    struct Case {
        const char* name;
        const char* expected;  // null: not found
    };
    const Case cases[] = {
        {"", "HexBolt"},    {"nut", "Nut"},    {"LOOSE2", "Loose2"},
        {"Ghost", nullptr}, {"螺栓", nullptr},
    };
    for (const Case& c : cases) {
        QTreeWidgetItem* found = root;
        const int result = m_tree.FindFistMatchDPD(root, found, QString::fromUtf8(c.name));
        EXPECT_EQ(result, c.expected ? 1 : 0) << c.name;
        EXPECT_EQ(found ? found->text(0) : QString(),
                  c.expected ? QString::fromUtf8(c.expected) : QString());
    }
}

TEST_F(TreeCtrlTest, TickingANodeWithTheKeyboardChecksItsSubtree) {
    m_tree.InsertTree(QStringLiteral("QXMaterial"));
    m_tree.show();
    std::vector<QTreeWidgetItem*> checked;
    EXPECT_EQ(m_tree.GetAllCheckedItem(checked), 1);
    EXPECT_TRUE(checked.empty());

    m_tree.expandAll();
    m_tree.setCurrentItem(Node({"QXMaterial", "紧固件"}));
    QTest::keyClick(&m_tree, Qt::Key_Space);
    m_tree.GetAllCheckedItem(checked);
    EXPECT_EQ(Texts(checked), (QStringList{"紧固件", "螺栓", "六角头", "HexBolt", "双头",
                                           "StudBolt", "螺母", "Nut", "Ghost", "Washer"}));
    EXPECT_EQ(m_tree.GetCheckState(m_tree.topLevelItem(0)), Qt::PartiallyChecked);

    // Unticking one branch leaves its ancestors partly checked: they lead to the ticked nodes
    // below but are not collected themselves.
    m_tree.setCurrentItem(Node({"QXMaterial", "紧固件", "螺栓", "双头"}));
    QTest::keyClick(&m_tree, Qt::Key_Space);
    checked.clear();
    m_tree.GetAllCheckedItem(checked);
    EXPECT_EQ(Texts(checked), (QStringList{"六角头", "HexBolt", "螺母", "Nut", "Ghost", "Washer"}));

    // Hiding the boxes clears every check.
    m_tree.SetCheckBoxes(false);
    checked.clear();
    m_tree.GetAllCheckedItem(checked);
    EXPECT_TRUE(checked.empty());
    EXPECT_FALSE(Node({"QXMaterial", "Empty"})->flags().testFlag(Qt::ItemIsUserCheckable));
    m_tree.SetChecked(Node({"QXMaterial", "Empty"}), true);
    EXPECT_EQ(m_tree.GetCheckState(Node({"QXMaterial", "Empty"})), Qt::Unchecked);
    CVorDPMTreeCtrlEx empty;
    EXPECT_EQ(empty.GetAllCheckedItem(checked), 0);
}
