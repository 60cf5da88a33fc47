#include <QComboBox>
#include <QToolButton>

#include "CVorDPMTreeCtrlEx.h"
#include "TemplateTest.h"
#include "controls/CVorDPMTreeComboBox.h"
#include "controls/CVorDPMlistCtrlBase.h"
#include "product/CVorDPMEditProductDlg.h"
#include "product/ProductTestBase.h"
#include "script/CVorDPMNewScriptDlg.h"
#include "script/CVorDPMScriptEdit.h"
#include "template/CVorDPMCreateTemplateDlg.h"
#include "template/CVorDPMEditTemplateDlg.h"
#include "template/CVorDPMNewTemplateDlg.h"

namespace {

struct NewTemplateCase {
    const char* what;
    const char* location;
    const char* name;
    const char* message;  // null: created and opened
    const char* createdIn;
};

TEST_F(TemplateTest, NewTemplateChecksLocationAndNameThenCreatesAndOpensIt) {
    MakeTemplate(QStringLiteral("QXMaterial"), QStringLiteral("M1"));
    const NewTemplateCase cases[] = {
        {"no location", "", "T", "没有选择模板位置，请选择!", nullptr},
        {"no such library", "Nowhere", "T", "请在下拉列表中选择模板位置!", nullptr},
        {"no name", "QXMaterial", "", "请输入模板名称", nullptr},
        {"taken there", "QXMaterial", "m1", "已存在，请指定其他模板名！", nullptr},
        {"taken elsewhere only", "平台模板", "M1", nullptr, ""},
        {"library in other case", "qxmep", "新", nullptr, "QXMEP"},
    };
    for (const NewTemplateCase& c : cases) {
        SCOPED_TRACE(c.what);
        CVorDPMNewTemplateDlg dialog(nullptr, nullptr, nullptr);
        dialog.show();
        auto* location = Control<CVorDPMTreeComboBox>(&dialog, CVorDPMNewTemplateDlg::IDC_LOCATION);
        EXPECT_EQ(Outline(*location->GetTreeCtrl()),
                  QStringList({"平台模板[]", "QXMaterial[]", "QXMEP[]"}));
        location->setText(QString::fromUtf8(c.location));
        Control<QComboBox>(&dialog, CVorDPMNewTemplateDlg::IDC_TEMPLATE_NAME)
            ->setEditText(QString::fromUtf8(c.name));
        QString opened;
        if (c.message)
            ui.ExpectMessage(QString::fromUtf8(c.message));
        else
            ui.ExpectDialog([&](QDialog* editor) {
                opened = editor->windowTitle();
                return QDialog::Rejected;
            });
        Click(&dialog, CVorDPMNewTemplateDlg::IDC_NEXT);
        ui.VerifyAllUsed();
        EXPECT_EQ(Accepted(dialog), c.message == nullptr);
        if (!c.createdIn) continue;
        EXPECT_EQ(opened, QStringLiteral("创建模板"));
        EXPECT_TRUE(
            TemplateNames(QString::fromUtf8(c.createdIn)).contains(QString::fromUtf8(c.name)));
    }
}

TEST_F(TemplateTest, EditTemplateOpensOnlyATemplate) {
    MakeTemplate(QString(), QStringLiteral("P1"));
    MakeTemplate(QString(), QStringLiteral("P2"));
    MakeTemplate(QStringLiteral("QXMEP"), QStringLiteral("P1"));
    const struct {
        const char* typed;
        int top;  // the node to click: top-level index, child index (-1: the top node)
        int child;
        bool removed;  // the template is removed once the dialog is open
    } refused[] = {{"", -1, -1, false},
                   {nullptr, 1, -1, false},
                   {nullptr, 0, -1, false},
                   {"无此模板", -1, -1, false},
                   {nullptr, 0, 1, true}};
    for (const auto& c : refused) {
        CVorDPMEditTemplateDlg dialog(nullptr, nullptr, nullptr);
        dialog.show();
        if (c.removed) {
            ASSERT_EQ(Templates(QString())->RemoveDPT(QStringLiteral("P2")), VOR::eOk);
        }
        CVorDPMTreeComboBox* chooser = dialog.GetTemplateChooser();
        QTreeWidgetItem* top = c.typed ? nullptr : chooser->GetTreeCtrl()->topLevelItem(c.top);
        if (c.typed)
            chooser->setText(QString::fromUtf8(c.typed));
        else
            chooser->SelectItem(c.child < 0 ? top : top->child(c.child));
        ui.ExpectMessage(QStringLiteral("请选择正确的模板"));
        Click(&dialog, CVorDPMEditTemplateDlg::IDC_OK);
        ui.VerifyAllUsed();
        EXPECT_TRUE(dialog.isVisible());
    }
    // The library's template of the same name as the platform's is the one edited.
    CVorDPMEditTemplateDlg dialog(nullptr, nullptr, nullptr);
    dialog.show();
    CVorDPMTreeComboBox* chooser = dialog.GetTemplateChooser();
    chooser->SelectItem(chooser->GetTreeCtrl()->topLevelItem(2)->child(0));
    ui.ExpectDialog(Filling([&](QDialog* editor) {
        EXPECT_EQ(editor->windowTitle(), QStringLiteral("创建模板"));
        ProductTestBase::AddProductRecord(editor, QStringLiteral("甲"), ui);
        Click(editor, CVorDPMCreateTemplateDlg::IDC_SAVE_CLOSE);
    }));
    Click(&dialog, CVorDPMEditTemplateDlg::IDC_OK);
    EXPECT_TRUE(Accepted(dialog));
    Reopen();
    for (const QString& location : {QString(), QStringLiteral("QXMEP")}) {
        CVorDPMDPT* dpt = nullptr;
        Templates(location)->GetDPT(QStringLiteral("P1"), dpt);
        ASSERT_TRUE(dpt);
        EXPECT_EQ(ProductTestBase::ProductNames(dpt),
                  location.isEmpty() ? QStringList() : QStringList{"甲"});
    }
}

TEST_F(TemplateTest, CreateTemplateSavesWhatWasEditedAndCancelDropsTheRest) {
    CVorDPMDPT* dpt = MakeTemplate(QStringLiteral("QXMEP"), QStringLiteral("T"));
    {
        CVorDPMCreateTemplateDlg dialog(dpt, nullptr, nullptr, nullptr);
        dialog.show();
        ProductTestBase::AddProductRecord(&dialog, QStringLiteral("甲"), ui);
        Click(&dialog, CVorDPMCreateTemplateDlg::IDC_SAVE_CONTINUE);
        EXPECT_TRUE(dialog.isVisible());
        ProductTestBase::AddProductRecord(&dialog, QStringLiteral("乙"), ui);
        EXPECT_EQ(ProductTestBase::ProductNames(dpt), QStringList({"甲", "乙"}));
        Click(&dialog, VorDPMControlId::IDCANCEL);
        EXPECT_FALSE(dialog.isVisible());
    }
    EXPECT_EQ(ProductTestBase::ProductNames(dpt), QStringList{"甲"});
    Reopen();
    Templates(QStringLiteral("QXMEP"))->GetDPT(QStringLiteral("T"), dpt);
    EXPECT_EQ(ProductTestBase::ProductNames(dpt), QStringList{"甲"});
    {
        CVorDPMCreateTemplateDlg dialog(dpt, nullptr, nullptr, nullptr);
        dialog.show();
        ProductTestBase::AddProductRecord(&dialog, QStringLiteral("丙"), ui);
        Click(&dialog, CVorDPMCreateTemplateDlg::IDC_SAVE_CLOSE);
        EXPECT_TRUE(Accepted(dialog));
    }
    Reopen();
    Templates(QStringLiteral("QXMEP"))->GetDPT(QStringLiteral("T"), dpt);
    EXPECT_EQ(ProductTestBase::ProductNames(dpt), QStringList({"甲", "丙"}));
    EXPECT_EQ(CVorDPMCommandManager::GetInstance()->GetOpenCommandCount(), 0);
}

// A template is a definition kept as a pattern: its shapes pick from its own scripts, and a
// script made from there is the template's.
TEST_F(TemplateTest, AShapeOfATemplatePicksAndAddsTheTemplatesOwnScripts) {
    CVorDPMDPT* dpt = MakeTemplate(QStringLiteral("QXMEP"), QStringLiteral("T"));
    auto* circle = new CVorDPM_DPD_Dps;
    circle->SetName(QStringLiteral("圆"));
    ASSERT_EQ(dpt->AddDps(circle), VOR::eOk);
    auto* shape = new CVorDPM_DPD_Shape;
    ASSERT_EQ(dpt->AddShape(shape), VOR::eOk);
    CVorDPMProductEdit editor(dpt, shape, CVorDPMProductEdit::EditRecord, nullptr, nullptr,
                              nullptr);
    editor.show();
    QStringList listed;
    ui.ExpectDialog(Filling([&](QDialog* scripts) {
        auto* list = Control<CVorDPMlistCtrlBase>(scripts, CVorDPMScriptEdit::IDC_SCRIPT_LIST);
        ui.ExpectDialog(Filling([](QDialog* added) {
            Type(added, CVorDPMNewScriptDlg::IDC_NAME, QStringLiteral("方"));
            Click(added, VorDPMControlId::IDOK);
        }));
        Click(scripts, CVorDPMScriptEdit::IDC_NEW_SCRIPT);
        listed = ColumnTexts(list);
        ClickCell(list, 1);
        Click(scripts, VorDPMControlId::IDOK);
    }));
    ProductTestBase::PressButton(editor, QStringLiteral("DPS ID"));
    EXPECT_EQ(listed, QStringList({"圆", "方"}));
    CKZList<CVorDPM_DPD_Dps*> scripts;
    dpt->GetAllDps(scripts);
    ASSERT_EQ(scripts.GetCount(), 2);
    EXPECT_EQ(shape->GetDPSId(), scripts.GetAt(1)->GetObjectId());
}

}  // namespace
