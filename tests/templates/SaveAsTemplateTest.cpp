#include <QComboBox>
#include <QFileInfo>

#include "CVorDPMTreeCtrlEx.h"
#include "TemplateTest.h"
#include "controls/CVorDPMTreeComboBox.h"
#include "template/CVorDPMSaveAsTemplateDlg.h"

namespace {

using Dlg = CVorDPMSaveAsTemplateDlg;

struct SaveCase {
    const char* what;
    const char* location;  // null: the proposed one
    const char* name;
    const char* message;  // null: saved
    const char* savedIn;  // the location whose templates hold it ("" the platform's)
};

TEST_F(TemplateTest, SaveAsTemplateProposesTheOwnLibraryChecksAndSavesWhereChosen) {
    const SaveCase cases[] = {
        {"no name", nullptr, "", "请输入模板名称", nullptr},
        {"no location", "", "T", "创建失败！", nullptr},
        {"no such library", "NoSuchLibrary", "T", "创建失败！", nullptr},
        {"own library", nullptr, "T", nullptr, "QXMaterial"},
        {"again", nullptr, "T", "该名称的模板已存在！", nullptr},
        {"platform", "平台模板", "T", nullptr, ""},
        {"other library", "QXMEP", "t", nullptr, "QXMEP"},
    };
    for (const SaveCase& c : cases) {
        SCOPED_TRACE(c.what);
        Dlg dialog;
        dialog.m_pDPD = valve;
        dialog.show();
        auto* location = Control<CVorDPMTreeComboBox>(&dialog, Dlg::IDC_LOCATION);
        EXPECT_EQ(location->text(), QStringLiteral("QXMaterial"));
        EXPECT_EQ(Outline(*location->GetTreeCtrl()),
                  QStringList({"平台模板[]", "QXMaterial[]", "QXMEP[]"}));
        if (c.location) location->setText(QString::fromUtf8(c.location));
        Control<QComboBox>(&dialog, Dlg::IDC_TEMPLATE_NAME)->setEditText(QString::fromUtf8(c.name));
        if (c.message) ui.ExpectMessage(QString::fromUtf8(c.message));
        Click(&dialog, VorDPMControlId::IDOK);
        ui.VerifyAllUsed();
        EXPECT_EQ(Accepted(dialog), c.message == nullptr);
        if (!c.savedIn) continue;
        EXPECT_TRUE(
            TemplateNames(QString::fromUtf8(c.savedIn)).contains(QString::fromUtf8(c.name)));
    }
    // Saved at once with the definition's rows, in the right folders.
    Reopen();
    CVorDPMDPT* dpt = nullptr;
    Templates(QStringLiteral("QXMEP"))->GetDPT(QStringLiteral("t"), dpt);
    ASSERT_TRUE(dpt);
    CKZList<CVorDPM_DPD_Product*> products;
    ASSERT_EQ(dpt->GetAllProduct(products), VOR::eOk);
    ASSERT_EQ(products.GetCount(), 1);
    EXPECT_EQ(products.GetAt(0)->GetNameRule(), QStringLiteral("Z DN"));
    EXPECT_TRUE(QFileInfo::exists(dpt->GetFilePath()));
    EXPECT_EQ(TemplateNames(QString()), QStringList{"T"});
}

TEST_F(TemplateTest, SaveAsTemplateWithoutADefinitionFillsTheLocationsOnlyAndRefuses) {
    Dlg dialog;
    dialog.show();
    auto* location = Control<CVorDPMTreeComboBox>(&dialog, Dlg::IDC_LOCATION);
    EXPECT_EQ(location->text(), QString());
    EXPECT_EQ(location->GetTreeCtrl()->topLevelItemCount(), 3);
    location->setText(QStringLiteral("QXMEP"));
    Control<QComboBox>(&dialog, Dlg::IDC_TEMPLATE_NAME)->setEditText(QStringLiteral("T"));
    ui.ExpectMessage(QStringLiteral("创建失败！"));
    Click(&dialog, VorDPMControlId::IDOK);
    EXPECT_TRUE(dialog.isVisible());
}

TEST_F(TemplateTest, SaveAsTemplateOffersTheNamesSavedBefore) {
    for (const char* name : {"甲", "乙"}) {
        Dlg dialog;
        dialog.m_pDPD = valve;
        dialog.show();
        Control<QComboBox>(&dialog, Dlg::IDC_TEMPLATE_NAME)->setEditText(QString::fromUtf8(name));
        Click(&dialog, VorDPMControlId::IDOK);
        ASSERT_TRUE(Accepted(dialog));
    }
    Dlg dialog;
    auto* names = Control<QComboBox>(&dialog, Dlg::IDC_TEMPLATE_NAME);
    // Settings outlive a test: earlier tests' names may follow.
    ASSERT_GE(names->count(), 2);
    EXPECT_EQ(names->itemText(0), QStringLiteral("乙"));
    EXPECT_EQ(names->itemText(1), QStringLiteral("甲"));
}

}  // namespace
