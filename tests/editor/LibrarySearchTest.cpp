// The search above the main dialog's library tree: names filter the tree with counts, Enter and
// F3 go from match to match, and product names found in the files open on the product data
// page.
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QTabWidget>
#include <QTest>
#include <QTreeView>

#include "CDPMSheet.h"
#include "CVorDPMLibrarySearch.h"
#include "CVorDPMProductSearch.h"
#include "CVorDPMTreeCtrlEx.h"
#include "EditorFixture.h"
#include "product/CDPMDataPage.h"

namespace {

// QXMaterial: "目录" holds 法兰DN50 under 法兰/板式 and 螺栓M12 with no classification, "管道"
// holds 弯头DN50 under 弯头, and 垫片DN50 is in no catalog. 法兰DN50 names its rows "法兰%d".
class LibrarySearchTest : public EditorFixture {
protected:
    void SetUp() override {
        EditorFixture::SetUp();
        CVorDPMLibraryManager* library = Library(QStringLiteral("QXMaterial"));
        CVorDPMDPC* catalog = nullptr;
        library->GetDPC(QStringLiteral("目录"), catalog);
        MakeEntry(catalog, QStringLiteral("法兰DN50"), QStringLiteral("法兰"),
                  QStringLiteral("板式"));
        MakeEntry(catalog, QStringLiteral("螺栓M12"));
        library->GetDPC(QStringLiteral("管道"), catalog);
        MakeEntry(catalog, QStringLiteral("弯头DN50"), QStringLiteral("弯头"));
        CVorDPMDPD* flange = MakeDefinition(library, QStringLiteral("法兰DN50"));
        const CVorDPM_DPD_Property* d = AddProperty(flange, QStringLiteral("d"));
        const CVorDPM_DPD_Product* product =
            AddProduct(flange, QStringLiteral("法兰"), QStringLiteral("法兰%d"));
        for (const char* size : {"50", "80", "100"})
            AddSerial(flange, product)->SetValue(QString::fromLatin1(size), d->GetObjectId());
        for (const char* name : {"螺栓M12", "弯头DN50", "垫片DN50"})
            MakeDefinition(library, QString::fromUtf8(name));
        SaveAndReopen();
    }
    CVorDPMLibrarySearch& Search() { return *Dialog().GetSearch(); }

    void Find(const QString& text) {
        Dialog().activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&Dialog()));
        Search().GetField()->setFocus();
        Search().GetField()->clear();
        Type(Search().GetField(), text);
    }

    // "library (count)" for each library shown, and the catalogs shown under it.
    QStringList Shown() {
        QStringList shown;
        CVorDPMTreeCtrlEx* tree = Dialog().GetTreeCtrl();
        for (int i = 0; i < tree->topLevelItemCount(); ++i) {
            const QTreeWidgetItem* library = tree->topLevelItem(i);
            if (library->isHidden()) continue;
            const QVariant count = library->data(0, CVorDPMLibrarySearch::MatchCountRole);
            shown << library->text(0) +
                         (count.isValid() ? QStringLiteral(" (%1)").arg(count.toInt()) : QString());
            for (int c = 0; c < library->childCount(); ++c)
                if (!library->child(c)->isHidden())
                    shown << QStringLiteral("  ") + library->child(c)->text(0);
        }
        return shown;
    }

    // The selected node of the product data page's tree, from its top down.
    QStringList DataPageSelection() {
        QStringList texts;
        for (QTreeWidgetItem* node = Dialog().GetDataPage()->GetTreeCtrl()->currentItem(); node;
             node = node->parent())
            texts.prepend(node->text(0));
        return texts;
    }

    void Key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
    }

    // Chooses a product mode and waits until the search has gone through every definition.
    void FindProducts(const QString& text, int mode = CVorDPMLibrarySearch::AllProductMode) {
        Search().GetMode()->setCurrentIndex(mode);
        Find(text);
        ASSERT_TRUE(QTest::qWaitFor([&] { return !Search().GetProductSearch()->IsRunning(); }));
    }

    QStringList Hits(int column = 0) { return ColumnTexts(Search().GetResults(), column); }
};

TEST_F(LibrarySearchTest, NamesFilterTheTreeWithCountsPerLibrary) {
    const struct {
        const char* pattern;
        QStringList shown;
    } cases[] = {
        // A definition in a catalog, one in a classification and one in no catalog.
        {"DN50", {"QXMaterial (3)", "  目录", "  管道"}},
        // A classification and the definition below it: both count, in one catalog.
        {"法兰", {"QXMaterial (2)", "  目录"}},
        {"管道", {"QXMaterial (1)", "  管道"}},
        // Containment is case-sensitive.
        {"dn50", {}},
        // Wildcards: "*" any run, "?" one character.
        {"螺*2", {"QXMaterial (1)", "  目录"}},
        {"弯头DN5?", {"QXMaterial (1)", "  管道"}},
        // Library names match too; the tree lists QXMEP although the store has no such library.
        {"QXM", {"QXMaterial (1)", "QXMEP (1)"}},
    };
    for (const auto& c : cases) {
        Find(QString::fromUtf8(c.pattern));
        EXPECT_EQ(Shown(), c.shown) << c.pattern;
    }
    Key(Qt::Key_Escape);
    EXPECT_TRUE(Search().GetField()->text().isEmpty());
    EXPECT_EQ(Shown(), (QStringList{"QXMaterial", "  目录", "  管道", "QXMEP"}));
    EXPECT_TRUE(Dialog().isVisible()) << "Escape in the search closed the dialog";
}

TEST_F(LibrarySearchTest, EnterAndF3GoFromMatchToMatch) {
    Find(QStringLiteral("DN50"));
    CVorDPMTreeCtrlEx* tree = Dialog().GetTreeCtrl();
    const struct {
        int key;
        Qt::KeyboardModifiers modifiers;
        const char* mainNode;
        QStringList dataPageNode;
    } steps[] = {
        {Qt::Key_Return, Qt::NoModifier, "目录", {"目录", "法兰", "板式", "法兰DN50"}},
        {Qt::Key_F3, Qt::NoModifier, "管道", {"管道", "弯头", "弯头DN50"}},
        {Qt::Key_F3, Qt::NoModifier, "QXMaterial", {"QXMaterial", "未分类", "垫片DN50"}},
        {Qt::Key_F3, Qt::NoModifier, "目录", {"目录", "法兰", "板式", "法兰DN50"}},
        {Qt::Key_F3, Qt::ShiftModifier, "QXMaterial", {"QXMaterial", "未分类", "垫片DN50"}},
    };
    for (const auto& step : steps) {
        Key(step.key, step.modifiers);
        EXPECT_EQ(tree->currentItem()->text(0), QString::fromUtf8(step.mainNode));
        EXPECT_EQ(Dialog().GetSheet()->currentWidget(), Dialog().GetDataPage());
        EXPECT_EQ(DataPageSelection(), step.dataPageNode);
        EXPECT_EQ(QApplication::focusWidget(), Search().GetField());
    }
}

TEST_F(LibrarySearchTest, CtrlFFocusesTheFieldAndReadsChangedNames) {
    Find(QStringLiteral("DN80"));
    EXPECT_EQ(Shown(), QStringList());
    CVorDPMDPC* catalog = nullptr;
    Library(QStringLiteral("QXMaterial"))->GetDPC(QStringLiteral("管道"), catalog);
    MakeEntry(catalog, QStringLiteral("弯头DN80"), QStringLiteral("弯头"));
    Dialog().GetTreeCtrl()->setFocus();
    Key(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(QApplication::focusWidget(), Search().GetField());
    EXPECT_EQ(Shown(), (QStringList{"QXMaterial (1)", "  管道"}));
}

TEST_F(LibrarySearchTest, ProductNamesAreFoundInTheFilesAndOpenOnTheDataPage) {
    FindProducts(QStringLiteral("法兰8"));
    EXPECT_FALSE(Dialog().GetTreeCtrl()->isVisible());
    EXPECT_EQ(Hits(), QStringList{"法兰80"});
    EXPECT_EQ(Hits(1), QStringList{"法兰DN50"});
    EXPECT_EQ(Hits(2), QStringList{"QXMaterial/目录/法兰/板式"});

    QTreeView* results = Search().GetResults();
    DoubleClickCell(results, 0);
    EXPECT_EQ(Dialog().GetSheet()->currentWidget(), Dialog().GetDataPage());
    EXPECT_EQ(DataPageSelection(), (QStringList{"目录", "法兰", "板式", "法兰DN50"}));
    EXPECT_EQ(Dialog().GetDataPage()->GetReportCtrl()->currentIndex().row(), 1);
    EXPECT_EQ(Dialog().GetDataPage()->GetReportCtrl()->currentIndex().data().toString(),
              QStringLiteral("法兰80"));

    // Names mode brings the tree back.
    Search().GetMode()->setCurrentIndex(CVorDPMLibrarySearch::NameMode);
    EXPECT_TRUE(Dialog().GetTreeCtrl()->isVisible());
    EXPECT_FALSE(results->isVisible());
}

TEST_F(LibrarySearchTest, ProductSearchSeesUnsavedRowsAndKeepsToItsScope) {
    CVorDPMDPD* flange = nullptr;
    Library(QStringLiteral("QXMaterial"))->GetDPD(QStringLiteral("法兰DN50"), flange);
    CVorDPMLibraryManager* other = Library(QStringLiteral("Other"));
    CVorDPMDPD* elsewhere = MakeDefinition(other, QStringLiteral("别处"));
    AddSerial(elsewhere, AddProduct(elsewhere, QStringLiteral("p"), QStringLiteral("法兰")));
    CKZList<CVorDPM_DPD_Serial*> rows;
    flange->GetAllSerial(rows, 0);
    CKZList<CVorDPM_DPD_Property*> properties;
    flange->GetAllProperty(properties, 0);
    rows.GetAt(0)->SetValue(QStringLiteral("65"), properties.GetAt(0)->GetObjectId());

    // Typed key by key: each keystroke starts the search again, none leaves hits behind.
    FindProducts(QStringLiteral("法兰"));
    EXPECT_EQ(Hits(), (QStringList{"法兰65", "法兰80", "法兰100"}));
    // Other is not a library of the tree; with every library shown it is.
    Dialog()
        .findChild<QCheckBox*>(QLatin1String(CVorDPMEditorDlg::kShowAllLibrariesName))
        ->setChecked(true);
    FindProducts(QStringLiteral("法兰"));
    EXPECT_EQ(Hits(), (QStringList{"法兰", "法兰65", "法兰80", "法兰100"}));
    Dialog().GetTreeCtrl()->setCurrentItem(Node(QStringLiteral("Other")));
    FindProducts(QStringLiteral("法兰"), CVorDPMLibrarySearch::LibraryProductMode);
    EXPECT_EQ(Hits(), QStringList{"法兰"});
    EXPECT_EQ(Hits(2), QStringList{"Other/未分类"});
}

}  // namespace
