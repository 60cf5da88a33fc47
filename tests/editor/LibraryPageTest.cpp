// The library page and the version-history dialog inside the main dialog: what they show of the
// store, and what the user's edits leave in the library's information file on disk.
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>

#include "CVorDPMManager.h"
#include "CVorDPMReportCtrlBase.h"
#include "CVorDPM_DPI_Info.h"
#include "EditorFixture.h"
#include "common/CVorDPMNewLibraryDlg.h"
#include "library/CDPMlibraryPage.h"
#include "library/CVorDPMVersionDlg.h"
#include "library/CVorDPMVersionEditDlg.h"
#include "query/CVorDPMData.h"
#include "support/Pictures.h"
#include "support/StoreFileEdits.h"

namespace {

// Reads the record again from the file on disk, after dropping what the store holds.
CVorDPM_DPI_Info* InfoFromDisk(const QString& library) {
    CVorDPMManager::GetVorDPMManager()->DiscardChanges();
    CVorDPM_DPI_Info* info = nullptr;
    CVorDPMData::GetDPIInfo(library, info);
    return info;
}

struct VersionInput {
    double number;
    QString author;
    QString description;
    QString time = {};  // empty: the time the dialog proposes
};

// Answers the version edit dialog by typing into its controls and pressing OK.
std::function<int(QDialog*)> TypingVersion(const VersionInput& input) {
    return GuiTestBase::Filling([input](QDialog* edit) {
        GuiTestBase::Control<QDoubleSpinBox>(edit, CVorDPMVersionEditDlg::IDC_VERSION)
            ->setValue(input.number);
        GuiTestBase::Type(edit, CVorDPMVersionEditDlg::IDC_AUTHOR, input.author);
        auto* description =
            GuiTestBase::Control<QPlainTextEdit>(edit, CVorDPMVersionEditDlg::IDC_DESCRIPTION);
        description->clear();
        GuiTestBase::Type(description, input.description);
        if (!input.time.isEmpty())
            GuiTestBase::Type(edit, CVorDPMVersionEditDlg::IDC_TIME, input.time);
        GuiTestBase::Click(edit, VorDPMControlId::IDOK);
    });
}

}  // namespace

class LibraryPage : public EditorFixture {
protected:
    CDPMlibraryPage* Page() { return Dialog().GetLibraryPage(); }
    CVorDPMReportCtrlBase* Report() { return Page()->GetReportCtrl(); }
};

TEST_F(LibraryPage, ShowsTheSelectedLibrarysRecordForLibraryAndCatalogNodes) {
    CVorDPM_DPI_Info* info = nullptr;
    ASSERT_EQ(CVorDPMData::GetDPIInfo("QXMaterial", info), 1);
    info->SetCompanyName(QStringLiteral("启星材料"));
    info->SetKeyword(QStringLiteral("管材"));
    info->SetLocalProductCount(7);
    info->SetIncludeProductCount(3);
    info->SetProductCount(10);
    CVorDPMManager::GetVorDPMManager()->SaveWork();

    Click(Node("QXMaterial", "管道"));
    EXPECT_EQ(ColumnTexts(Report(), 0), (QStringList{"公司名称", "描述", "关键字", "作者",
                                                     "产品总数", "本库产品数", "引用产品数"}));
    EXPECT_EQ(ColumnTexts(Report(), 1), (QStringList{"启星材料", "", "管材", "", "10", "7", "3"}));
    EXPECT_FALSE(Control<QLabel>(Page(), CDPMlibraryPage::IDC_STATUS)->isVisible());
    for (int id : {CDPMlibraryPage::IDC_LOAD_PICTURE, CDPMlibraryPage::IDC_SAVE,
                   CDPMlibraryPage::IDC_VERSION})
        EXPECT_TRUE(Control<QPushButton>(Page(), id)->isEnabled()) << id;
}

TEST_F(LibraryPage, AMissingOrUnreadableLibraryShowsWhyAndOffersNothing) {
    Click(Node("QXMEP"));
    auto* status = Control<QLabel>(Page(), CDPMlibraryPage::IDC_STATUS);
    EXPECT_EQ(status->text(), QStringLiteral("产品库\"QXMEP\"不存在。"));
    EXPECT_TRUE(status->isVisible());
    EXPECT_EQ(Report()->GetRecords()->GetRecordCount(), 0);
    for (int id : {CDPMlibraryPage::IDC_EDIT_TEXT, CDPMlibraryPage::IDC_LOAD_PICTURE,
                   CDPMlibraryPage::IDC_SAVE, CDPMlibraryPage::IDC_VERSION})
        EXPECT_FALSE(Control<QPushButton>(Page(), id)->isEnabled()) << id;

    Click(Node("QXMaterial"));
    EXPECT_FALSE(status->isVisible());
    CVorDPMManager::GetVorDPMManager()->DiscardChanges();
    root.Write(QStringLiteral("root/QXMaterial/library.DPI"), "not a library information file");
    Click(Node("QXMaterial", "目录"));
    EXPECT_TRUE(status->text().startsWith(QStringLiteral("无法读取产品库\"QXMaterial\"的信息文件")))
        << status->text().toStdString();
    EXPECT_FALSE(Control<QPushButton>(Page(), CDPMlibraryPage::IDC_SAVE)->isEnabled());
}

TEST_F(LibraryPage, CreatingALibraryTheTreeAlreadyShowsShowsItsInformation) {
    Click(Node("QXMEP"));
    ui.ExpectDialog(Filling([](QDialog* nested) {
        Type(nested, CVorDPMNewLibraryDlg::IDC_LIBRARY_NAME, QStringLiteral("QXMEP"));
        Click(nested, VorDPMControlId::IDOK);
    }));
    ASSERT_TRUE(TriggerMenuBar("产品库", "新建产品库"));

    EXPECT_FALSE(Control<QLabel>(Page(), CDPMlibraryPage::IDC_STATUS)->isVisible());
    EXPECT_EQ(Report()->GetRecords()->GetRecordCount(), 7);
    EXPECT_TRUE(Control<QPushButton>(Page(), CDPMlibraryPage::IDC_SAVE)->isEnabled());
}

TEST_F(LibraryPage, EditedTextsAndCountsAreSavedToTheInformationFile) {
    CVorDPMDPD* definition = nullptr;
    ASSERT_EQ(Library("QXMaterial")->CreateDPD(QStringLiteral("弯头"), definition), VOR::eOk);
    Click(Node("QXMaterial"));
    EXPECT_FALSE(Control<QPushButton>(Page(), CDPMlibraryPage::IDC_EDIT_TEXT)->isEnabled());
    ClickCell(Report(), 4);  // a count cannot be typed
    EXPECT_FALSE(Control<QPushButton>(Page(), CDPMlibraryPage::IDC_EDIT_TEXT)->isEnabled());

    ClickCell(Report(), 0);
    ui.ExpectInput(QStringLiteral("启星材料"));
    Click(Page(), CDPMlibraryPage::IDC_EDIT_TEXT);
    ClickCell(Report(), 1);
    ui.ExpectInput(QStringLiteral("第一行\n第二行"));
    Click(Page(), CDPMlibraryPage::IDC_EDIT_TEXT);
    EXPECT_EQ(ui.longInputTitles, QStringList{"描述"});
    ClickCell(Report(), 3);
    ui.ExpectInput(std::nullopt);  // cancelled: nothing changes
    Click(Page(), CDPMlibraryPage::IDC_EDIT_TEXT);
    ui.ExpectInput(QStringLiteral("李四"));
    DoubleClickCell(Report(), 3, 1);
    EXPECT_EQ(ui.inputTitles, (QStringList{"公司名称", "描述", "作者", "作者"}));
    EXPECT_EQ(ColumnTexts(Report(), 1)[0], QStringLiteral("启星材料"));
    EXPECT_EQ(ColumnTexts(Report(), 1)[3], QStringLiteral("李四"));

    Click(Page(), CDPMlibraryPage::IDC_SAVE);
    EXPECT_FALSE(CVorDPMManager::GetVorDPMManager()->HasUnsavedChanges());
    auto* status = Control<QLabel>(Page(), CDPMlibraryPage::IDC_STATUS);
    EXPECT_TRUE(status->isVisible());
    EXPECT_EQ(status->text(), QStringLiteral("已保存。"));
    EXPECT_EQ(ColumnTexts(Report(), 1).mid(4), (QStringList{"1", "1", "0"}));
    CVorDPM_DPI_Info* info = InfoFromDisk("QXMaterial");
    ASSERT_TRUE(info);
    EXPECT_EQ(info->GetCompanyName(), QStringLiteral("启星材料"));
    EXPECT_EQ(info->GetAuthor(), QStringLiteral("李四"));
    EXPECT_EQ(info->GetDescription(), QStringLiteral("第一行\n第二行"));
    EXPECT_EQ(info->GetLocalProductCount(), 1);
    EXPECT_EQ(info->GetIncludeProductCount(), 0);
    EXPECT_EQ(info->GetProductCount(), 1);
}

TEST_F(LibraryPage, OnlyAReadablePictureReachesTheRecord) {
    const QString text = root.Write(QStringLiteral("note.png"), "this is no picture");
    const QString missing = root.Home() + QStringLiteral("/missing.png");
    const QString picture = root.Home() + QStringLiteral("/logo.png");
    ASSERT_TRUE(Solid(8, 4, Qt::red).save(picture));

    Click(Node("QXMaterial"));
    ui.ExpectFile(QString());
    ui.ExpectFile(text);
    ui.ExpectMessage("文件\"" + text + "\"不是可以识别的图片!");
    ui.ExpectFile(missing);
    ui.ExpectMessage("无法读取文件\"" + missing + "\"!");
    for (int i = 0; i < 3; ++i) Click(Page(), CDPMlibraryPage::IDC_LOAD_PICTURE);
    ui.VerifyAllUsed();
    CVorDPM_DPI_Info* info = nullptr;
    ASSERT_EQ(CVorDPMData::GetDPIInfo("QXMaterial", info), 1);
    EXPECT_EQ(info->GetImage().GetSize(), 0);

    ui.ExpectFile(picture);
    Click(Page(), CDPMlibraryPage::IDC_LOAD_PICTURE);
    Click(Page(), CDPMlibraryPage::IDC_SAVE);
    info = InfoFromDisk("QXMaterial");
    ASSERT_TRUE(info);
    EXPECT_EQ(info->GetImage().Bytes(), ReadAll(picture));
}

TEST_F(LibraryPage, VersionDialogListsAddsAndChangesTheLibrarysVersions) {
    Click(Node("QXMaterial"));
    QStringList shown;
    ui.ExpectDialog(Filling([&](QDialog* versions) {
        auto* list = Control<CVorDPMReportCtrlBase>(versions, CVorDPMVersionDlg::IDC_VERSION_LIST);
        EXPECT_EQ(versions->windowTitle(), QStringLiteral("产品库\"QXMaterial\"的版本信息"));
        EXPECT_FALSE(
            Control<QPushButton>(versions, CVorDPMVersionDlg::IDC_EDIT_VERSION)->isEnabled());
        Click(versions, CVorDPMVersionDlg::IDC_ADD_VERSION);
        Click(versions, CVorDPMVersionDlg::IDC_ADD_VERSION);
        ClickCell(list, 0);
        Click(versions, CVorDPMVersionDlg::IDC_EDIT_VERSION);
        for (int column = 0; column < 4; ++column) shown << ColumnTexts(list, column).join("|");
        Click(versions, VorDPMControlId::IDOK);  // "关闭"
    }));
    ui.ExpectDialog(TypingVersion({1.5, "王五", "首版"}));
    ui.ExpectDialog(TypingVersion({2, "王五", "第二版"}));
    ui.ExpectDialog(TypingVersion({1.25, "赵六", "更正"}));
    Click(Page(), CDPMlibraryPage::IDC_VERSION);
    ASSERT_EQ(shown.size(), 4);
    EXPECT_EQ(shown[0], QStringLiteral("1.25|2.00"));
    EXPECT_EQ(shown[1], QStringLiteral("赵六|王五"));
    const QRegularExpression timeColumn(QStringLiteral(R"(^\d{4}-\d\d-\d\d \d\d:\d\d:\d\d\|)"));
    EXPECT_TRUE(timeColumn.match(shown[2]).hasMatch()) << shown[2].toStdString();
    EXPECT_EQ(shown[3], QStringLiteral("更正|第二版"));

    CVorDPMManager::GetVorDPMManager()->SaveWork();
    CVorDPMManager::GetVorDPMManager()->DiscardChanges();
    CKZList<CVorDPM_Version*> versions;
    Library("QXMaterial")->GetDPI()->GetAllVersion(versions, 0);
    ASSERT_EQ(versions.GetCount(), 2);
    EXPECT_DOUBLE_EQ(versions.GetAt(0)->GetVersion(), 1.25);
    EXPECT_EQ(versions.GetAt(0)->GetDescription(), QStringLiteral("更正"));
    EXPECT_FALSE(versions.GetAt(1)->GetTime().isEmpty());
}

// A refused number or time keeps the edit dialog open and the store as it was; the list shows a
// kept time whole.
TEST_F(LibraryPage, RefusedVersionsKeepTheEditDialogOpenAndTheStoreUnchanged) {
    CVorDPMDPI* file = Library("QXMaterial")->GetDPI();
    auto* first = new CVorDPM_Version;
    first->SetVersion(1.0);
    ASSERT_EQ(file->AddVersion(first), VOR::eOk);
    CVorDPMVersionDlg versions(file, QStringLiteral("版本"));
    versions.show();
    const QString badTime =
        QStringLiteral("时间格式不正确，请按\"年-月-日 时:分:秒\"输入，例如 2026-01-31 08:30:00。");
    const struct {
        VersionInput typed;
        QString message;
    } refused[] = {
        {{1.0, "甲", "重复"}, "该版本号已存在!"},
        {{0.0, "甲", "零"}, "版本号必须大于0!"},
        {{3.0, "甲", "坏时间", "昨天"}, badTime},
        {{3.0, "甲", "坏时间", "2026-02-30 10:00:00"}, badTime},
        {{3.0, "甲", "坏时间", "2026-01-31"}, badTime},
    };
    for (const auto& c : refused) {
        ui.ExpectDialog(TypingVersion(c.typed));
        ui.ExpectMessage(c.message);
    }
    ui.ExpectDialog(TypingVersion({2.0, "乙", "第二版", "2025-01-02 03:04:05"}));
    for (size_t i = 0; i <= std::size(refused); ++i)
        Click(&versions, CVorDPMVersionDlg::IDC_ADD_VERSION);
    // Changing the first version to the number of the second is refused as well.
    ui.ExpectDialog(TypingVersion({2.0, "乙", "与第二版重复"}));
    ui.ExpectMessage("该版本号已存在!");
    ClickCell(versions.GetReportCtrl(), 0);
    Click(&versions, CVorDPMVersionDlg::IDC_EDIT_VERSION);
    ui.VerifyAllUsed();

    CKZList<CVorDPM_Version*> kept;
    file->GetAllVersion(kept, 0);
    ASSERT_EQ(kept.GetCount(), 2);
    EXPECT_DOUBLE_EQ(kept.GetAt(0)->GetVersion(), 1.0);
    EXPECT_EQ(kept.GetAt(0)->GetAuthor(), QString());
    EXPECT_EQ(kept.GetAt(1)->GetTime(), QStringLiteral("2025-01-02 03:04:05"));
    CVorDPMReportCtrlBase* list = versions.GetReportCtrl();
    EXPECT_EQ(ColumnTexts(list, 0), (QStringList{"1.00", "2.00"}));
    EXPECT_GE(list->columnWidth(2),
              list->fontMetrics().horizontalAdvance(QStringLiteral("2025-01-02 03:04:05")));
}
