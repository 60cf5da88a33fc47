#include <QAbstractItemModel>
#include <QMenu>
#include <QTreeView>

#include "DataPageTest.h"
#include "controls/CVorDPMPictureCtrl.h"
#include "support/StoreFileEdits.h"

namespace {

// The report's heads and then its rows, each as its cells joined with "|".
QStringList ReportLines(const QTreeView& report) {
    const QAbstractItemModel* model = report.model();
    QStringList lines;
    QStringList heads;
    for (int c = 0; c < model->columnCount(); ++c)
        heads.append(model->headerData(c, Qt::Horizontal).toString());
    lines.append(heads.join(QLatin1Char('|')));
    for (int r = 0; r < model->rowCount(); ++r) {
        QStringList cells;
        for (int c = 0; c < model->columnCount(); ++c)
            cells.append(model->index(r, c).data().toString());
        lines.append(cells.join(QLatin1Char('|')));
    }
    return lines;
}

QRgb PictureColour(const CDPMDataPage& page) {
    const QImage& image = page.GetPictureCtrl()->GetImage();
    return image.isNull() ? 0 : image.pixel(0, 0);
}

TEST_F(DataPageTest, ALibraryShowsEveryCatalogAndTheUncataloguedACatalogItselfOnly) {
    page->SetCurrentPath(QStringLiteral("QXMaterial"));
    EXPECT_EQ(Outline(), QStringList({"QXMaterial", "QXMaterial/管道", "QXMaterial/管道/阀门",
                                      "QXMaterial/管道/阀门/阀门A", "QXMaterial/未分类",
                                      "QXMaterial/未分类/法兰B"}));
    page->SetCurrentPath(QStringLiteral("QXMaterial/管道"));
    EXPECT_EQ(Outline(), QStringList({"管道", "管道/阀门", "管道/阀门/阀门A"}));
    page->SetCurrentPath(QStringLiteral("QXMEP"));
    EXPECT_EQ(Outline(), QStringList({"QXMEP"}));
}

TEST_F(DataPageTest, ButtonsAndMenuEntriesFollowTheSelection) {
    const struct {
        const char* path;
        const char* selected;  // null: nothing
        const char* buttons;   // add, remove, edit, version
    } cases[] = {
        {"QXMaterial/管道", nullptr, "1000"}, {"QXMaterial/管道", "阀门", "1000"},
        {"QXMaterial/管道", "阀门A", "1111"}, {"QXMaterial", "法兰B", "1111"},
        {"QXMEP", "QXMEP", "0000"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.path) + " " + (c.selected ? c.selected : "-"));
        page->SetCurrentPath(QString::fromUtf8(c.path));
        if (c.selected) Select(QString::fromUtf8(c.selected));
        EXPECT_EQ(ButtonStates(), QString::fromUtf8(c.buttons));
        const std::unique_ptr<QMenu> menu = page->CreateProductMenu();
        QStringList entries;
        QString enabled;
        for (QAction* action : menu->actions()) {
            entries.append(action->text());
            enabled += action->isEnabled() ? '1' : '0';
        }
        EXPECT_EQ(entries, QStringList({"产品重命名", "添加产品", "删除产品", "修改产品"}));
        // Rename goes with remove and edit.
        EXPECT_EQ(enabled, QString(c.buttons[1]) + c.buttons[0] + c.buttons[1] + c.buttons[2]);
    }
}

TEST_F(DataPageTest, ADefinitionShowsItsNamedProductsVisiblePropertiesAndRowPictures) {
    page->SetCurrentPath(QStringLiteral("QXMaterial/管道"));
    QTreeView* report = Control<QTreeView>(page.get(), CDPMDataPage::IDC_PRODUCT_REPORT);
    ASSERT_TRUE(report);
    Select(QStringLiteral("阀门A"));
    EXPECT_EQ(ReportLines(*report),
              QStringList({"产品|公称直径|公称压力", "Z41H50*16|50|16", "Z41H80*25|80|25"}));
    // The first row's picture, then the definition's first picture for a row without one.
    EXPECT_EQ(PictureColour(*page), QColor(Qt::blue).rgb());
    report->setCurrentIndex(report->model()->index(1, 0));
    EXPECT_EQ(PictureColour(*page), QColor(Qt::red).rgb());
    report->setCurrentIndex(report->model()->index(0, 2));
    EXPECT_EQ(PictureColour(*page), QColor(Qt::blue).rgb());

    Select(QStringLiteral("阀门"));
    EXPECT_EQ(ReportLines(*report), QStringList{"产品"});
    EXPECT_EQ(PictureColour(*page), 0u);
}

TEST_F(DataPageTest, AnUnreadableDefinitionIsReportedAndShowsNothing) {
    const QString path = Definition(QStringLiteral("法兰B"))->GetDPDFullPath();
    Reopen();
    Write(path, "not a product file");
    page->SetCurrentPath(QStringLiteral("QXMaterial"));
    CVorDPMDPD* broken = CVorDPMTreeCtrlEx::GetItemDPD(Node(QStringLiteral("法兰B")));
    ASSERT_TRUE(broken);
    ASSERT_FALSE(broken->EnsureLoaded());
    ui.ExpectMessage(QStringLiteral("无法读取产品\"法兰B\": ") + broken->GetLoadError());
    Select(QStringLiteral("法兰B"));
    ui.VerifyAllUsed();
    EXPECT_EQ(page->GetReportCtrl()->model()->rowCount(), 0);
    EXPECT_EQ(ReadAll(path), QByteArray("not a product file"));
}

TEST_F(DataPageTest, VersionInformationOpensTheDefinitionsHistory) {
    page->SetCurrentPath(QStringLiteral("QXMaterial/管道"));
    Select(QStringLiteral("阀门A"));
    QString caption;
    ui.ExpectDialog([&](QDialog* dialog) {
        caption = dialog->windowTitle();
        return QDialog::Rejected;
    });
    Click(page.get(), CDPMDataPage::IDC_VERSION);
    ui.VerifyAllUsed();
    EXPECT_EQ(caption, QStringLiteral("产品\"阀门A\"的版本信息"));
    EXPECT_EQ(ui.dialogClasses, QStringList{"CVorDPMVersionDlg"});
}

}  // namespace
