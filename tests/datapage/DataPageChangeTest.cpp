#include <QFileInfo>
#include <QLineEdit>
#include <QMenu>

#include "DataPageTest.h"

namespace {

struct DataPageChangeTest : DataPageTest {
    // Runs an entry of the "产品" menu as the user picks it.
    void Trigger(const QString& entry) {
        const std::unique_ptr<QMenu> menu = page->CreateProductMenu();
        for (QAction* action : menu->actions()) {
            if (action->text() != entry) continue;
            ASSERT_TRUE(action->isEnabled()) << entry.toStdString();
            action->trigger();
            return;
        }
        FAIL() << "no entry " << entry.toStdString();
    }

    // Renames the selected product in place: the menu entry, then the typed text and Enter.
    void RenameTo(const QString& name) {
        Trigger(QStringLiteral("产品重命名"));
        auto* edit = Tree()->viewport()->findChild<QLineEdit*>();
        ASSERT_TRUE(edit) << "no label editor";
        edit->clear();
        Type(edit, name);
        QTest::keyClick(edit, Qt::Key_Return);
        // The view commits the edit from its event queue, then deletes the editor later.
        QApplication::processEvents();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
};

// The button, the Delete key and the menu entry each ask first; a yes trashes the file and the
// entry of the catalog the page shows, and leaves the other catalogs' entries alone.
TEST_F(DataPageChangeTest, RemovingAsksThenTrashesTheFileAndTheShownCatalogsEntry) {
    const struct {
        const char* path;
        const char* product;
        QStringList outline;  // after the removal
        QStringList entries;  // of "管道"
    } cases[] = {
        {"QXMaterial",
         "法兰B",
         {"QXMaterial", "QXMaterial/管道", "QXMaterial/管道/阀门", "QXMaterial/管道/阀门/阀门A",
          "QXMaterial/未分类"},
         {"阀门A"}},
        {"QXMaterial/管道", "阀门A", {"管道"}, {}},
    };
    QStringList files;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.product);
        const QString product = QString::fromUtf8(c.product);
        page->SetCurrentPath(QString::fromUtf8(c.path));
        Select(product);
        files << Definition(product)->GetDPDFullPath();
        const QString question = QStringLiteral("确实要把\"%1\"产品放入回收站吗?").arg(product);
        ui.ExpectMessage(question, QMessageBox::Cancel);
        Click(page.get(), CDPMDataPage::IDC_REMOVE_PRODUCT);
        ui.ExpectMessage(question, QMessageBox::Cancel);
        Tree()->setFocus();
        QTest::keyClick(Tree(), Qt::Key_Delete);
        EXPECT_TRUE(QFileInfo::exists(files.last()));

        ui.ExpectMessage(question, QMessageBox::Ok);
        Trigger(QStringLiteral("删除产品"));
        EXPECT_FALSE(QFileInfo::exists(files.last()));
        EXPECT_EQ(Outline(), c.outline);
        EXPECT_EQ(CatalogEntries(), c.entries);
    }
    page.reset();
    Reopen();
    EXPECT_TRUE(CatalogEntries().isEmpty());
    EXPECT_FALSE(Definition(QStringLiteral("阀门A")) || Definition(QStringLiteral("法兰B")));
}

// Bad names are refused and keep the old label; a good one renames the file and the entry.
TEST_F(DataPageChangeTest, RenameRefusesBadNamesThenRenamesTheFileAndTheCatalogEntry) {
    const QString forbidden = QStringLiteral("名字不能包含下列任何字符：\n\\/:*?\"<>|");
    const struct {
        const char* typed;
        QString message;
    } cases[] = {
        {"", QStringLiteral("请输入产品名称")},
        {"阀门 C", forbidden},
        {"阀门/C", forbidden},
        {"法兰b", QStringLiteral("法兰b已存在，请指定其他产品名！")},
    };
    page->SetCurrentPath(QStringLiteral("QXMaterial/管道"));
    for (const auto& c : cases) {
        SCOPED_TRACE(c.typed);
        Select(QStringLiteral("阀门A"));
        ui.ExpectMessage(c.message);
        RenameTo(QString::fromUtf8(c.typed));
        ui.VerifyAllUsed();
        EXPECT_TRUE(Node(QStringLiteral("阀门A")));
        EXPECT_TRUE(Definition(QStringLiteral("阀门A")));
    }
    Select(QStringLiteral("阀门A"));
    RenameTo(QStringLiteral("阀门C"));
    EXPECT_EQ(Outline(), QStringList({"管道", "管道/阀门", "管道/阀门/阀门C"}));
    Reopen();
    EXPECT_EQ(CatalogEntries(), QStringList{"阀门C"});
    ASSERT_TRUE(Definition(QStringLiteral("阀门C")));
    EXPECT_FALSE(Definition(QStringLiteral("阀门A")));
    CKZList<CVorDPM_DPD_Serial*> rows;
    Definition(QStringLiteral("阀门C"))->GetAllSerial(rows);
    EXPECT_EQ(rows.GetCount(), 2);
}

}  // namespace
