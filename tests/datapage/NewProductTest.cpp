#include <QComboBox>
#include <QFileInfo>
#include <QToolButton>

#include "CVorDPMCommandManager.h"
#include "DataPageTest.h"
#include "controls/CVorDPMListCtrlEx.h"
#include "controls/CVorDPMTreeComboBox.h"
#include "product/CVorDPMCreateProductDlg.h"
#include "product/CVorDPMEditProductDlg.h"
#include "product/CVorDPMNewProductDlg.h"
#include "product/ProductTestBase.h"
#include "template/CVorDPMSaveAsTemplateDlg.h"

namespace {

using NewDlg = CVorDPMNewProductDlg;
using CreateDlg = CVorDPMCreateProductDlg;
using Panel = CVorDPMEditProductDlg;

struct NewProductTest : DataPageTest {
    void SetUp() override {
        DataPageTest::SetUp();
        CVorDPMDPT* dpt = nullptr;
        ASSERT_EQ(Manager()->GetTemplateManager()->CreateDPT(QStringLiteral("标准阀"), dpt),
                  VOR::eOk);
        AddProperty(dpt, QStringLiteral("DN"), QStringLiteral("公称直径"));
        ASSERT_EQ(Manager()->SaveWork(), 1);
        page->SetCurrentPath(QStringLiteral("QXMaterial/管道"));
    }

    void TearDown() override {
        DataPageTest::TearDown();
        EXPECT_EQ(CVorDPMCommandManager::GetInstance()->GetOpenCommandCount(), 0);
    }

    // Fills "添加产品": the template node (top-level index and child index; -1: none chosen)
    // and the name, then "下一步".
    static std::function<void(QDialog*)> NewProduct(const QString& name, int top = -1,
                                                    int child = -1) {
        return [=](QDialog* dialog) {
            auto* chooser = Control<CVorDPMTreeComboBox>(dialog, NewDlg::IDC_TEMPLATE);
            if (top >= 0) {
                QTreeWidgetItem* node = chooser->GetTreeCtrl()->topLevelItem(top);
                chooser->SelectItem(child >= 0 ? node->child(child) : node);
            }
            Control<QComboBox>(dialog, NewDlg::IDC_PRODUCT_NAME)->setEditText(name);
            Click(dialog, NewDlg::IDC_NEXT);
        };
    }
};

TEST_F(NewProductTest, NextChecksNameThenTemplateAndKeepsTheDialogOpen) {
    const QString forbidden = QStringLiteral("名字不能包含下列任何字符：\n\\/:*?\"<>|");
    const struct {
        const char* name;
        const char* templateText;
        QString message;
    } cases[] = {
        {"", "标准阀", QStringLiteral("请输入产品名称")},
        {"新 阀", "", forbidden},
        {"新<阀", "", forbidden},
        {"阀门a", "", QStringLiteral("阀门a已存在，请指定其他产品名！")},
        {"新阀", "QXMaterial", QStringLiteral("请选择正确的模板")},
        {"新阀", "无此模板", QStringLiteral("请选择正确的模板")},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        NewDlg dialog(QStringLiteral("QXMaterial"), QString(), nullptr, nullptr, nullptr);
        dialog.show();
        Control<CVorDPMTreeComboBox>(&dialog, NewDlg::IDC_TEMPLATE)
            ->setText(QString::fromUtf8(c.templateText));
        Control<QComboBox>(&dialog, NewDlg::IDC_PRODUCT_NAME)
            ->setEditText(QString::fromUtf8(c.name));
        ui.ExpectMessage(c.message);
        Click(&dialog, NewDlg::IDC_NEXT);
        ui.VerifyAllUsed();
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_FALSE(Definition(QStringLiteral("新阀")));
    }
}

TEST_F(NewProductTest, ATemplateRemovedSinceTheDialogOpenedIsRefused) {
    NewDlg dialog(QStringLiteral("QXMaterial"), QString(), nullptr, nullptr, nullptr);
    dialog.show();
    ASSERT_EQ(Manager()->GetTemplateManager()->RemoveDPT(QStringLiteral("标准阀")), VOR::eOk);
    ui.ExpectMessage(QStringLiteral("请选择正确的模板"));
    NewProduct(QStringLiteral("新阀"), 0, 0)(&dialog);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_FALSE(Definition(QStringLiteral("新阀")));
}

TEST_F(NewProductTest, AnEmptyProductOutsideACatalogEntersNoCatalog) {
    page->SetCurrentPath(QStringLiteral("QXMaterial"));
    Select(QStringLiteral("未分类"));
    ui.ExpectDialog(Filling(NewProduct(QStringLiteral("空"))));
    ui.ExpectDialog(Filling([](QDialog* create) { Click(create, CreateDlg::IDC_SAVE_CLOSE); }));
    Click(page.get(), CDPMDataPage::IDC_ADD_PRODUCT);
    EXPECT_EQ(Tree()->currentItem()->text(0), QStringLiteral("空"));
    EXPECT_EQ(Tree()->currentItem()->parent()->text(0), QStringLiteral("未分类"));
    Reopen();
    ASSERT_TRUE(Definition(QStringLiteral("空")));
    EXPECT_EQ(CatalogEntries(), QStringList{"阀门A"});
}

// Every way out of "创建产品" but "保存关闭" leaves no new definition, saved once or not.
TEST_F(NewProductTest, LeavingTheCreateDialogOtherwiseRemovesTheNewDefinition) {
    const std::pair<const char*, std::function<void(QDialog*)>> ways[] = {
        {"escape", [](QDialog* create) { QTest::keyClick(create, Qt::Key_Escape); }},
        {"close button", [](QDialog* create) { create->close(); }},
        {"escape in the panel",
         [](QDialog* create) { QTest::keyClick(create->findChild<Panel*>(), Qt::Key_Escape); }},
        {"after saving once",
         [](QDialog* create) {
             Click(create, CreateDlg::IDC_SAVE_CONTINUE);
             create->close();
         }},
    };
    Select(QStringLiteral("阀门"));
    for (const auto& [what, leave] : ways) {
        SCOPED_TRACE(what);
        ui.ExpectDialog(Filling(NewProduct(QStringLiteral("新阀"), 0, 0)));
        ui.ExpectDialog(Filling([&, leave = leave](QDialog* create) {
            ProductTestBase::AddProductRecord(create, QStringLiteral("闸阀"), ui);
            leave(create);
            EXPECT_FALSE(create->isVisible());
        }));
        Click(page.get(), CDPMDataPage::IDC_ADD_PRODUCT);
        ui.VerifyAllUsed();
        EXPECT_FALSE(Definition(QStringLiteral("新阀")));
        EXPECT_FALSE(Node(QStringLiteral("新阀")));
        EXPECT_EQ(CatalogEntries(), QStringList{"阀门A"});
    }
}

// Enter in the panel's lists must not close the dialog.
TEST_F(NewProductTest, EnterInsideThePanelKeepsTheCreateDialogOpen) {
    CreateDlg dialog(Definition(QStringLiteral("阀门A")), nullptr, nullptr, nullptr);
    dialog.show();
    QTest::keyClick(dialog.findChild<Panel*>()->GetList(Panel::Products), Qt::Key_Return);
    QTest::keyClick(&dialog, Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible());
}

TEST_F(NewProductTest, EditingAnExistingDefinitionKeepsItAsSavedLast) {
    Select(QStringLiteral("阀门A"));
    const struct {
        const char* what;
        int editButton;  // 0: a double click in the tree, -1: Enter on it
        const char* kept;
        const char* dropped;
        QStringList saved;
    } paths[] = {
        {"button", CDPMDataPage::IDC_EDIT_PRODUCT, "甲", "乙", {"闸阀", "甲"}},
        {"double click", 0, "丙", "丁", {"闸阀", "甲", "丙"}},
        {"Enter", -1, "戊", "己", {"闸阀", "甲", "丙", "戊"}},
    };
    for (const auto& path : paths) {
        SCOPED_TRACE(path.what);
        ui.ExpectDialog(Filling([&](QDialog* create) {
            ProductTestBase::AddProductRecord(create, QString::fromUtf8(path.kept), ui);
            Click(create, CreateDlg::IDC_SAVE_CONTINUE);
            ProductTestBase::AddProductRecord(create, QString::fromUtf8(path.dropped), ui);
            QTest::keyClick(create, Qt::Key_Escape);
        }));
        if (path.editButton > 0) {
            Click(page.get(), path.editButton);
        } else if (path.editButton < 0) {
            Tree()->setFocus();
            QTest::keyClick(Tree(), Qt::Key_Return);
        } else {
            ClickNode(Tree(), Tree()->currentItem());
            QTest::mouseDClick(Tree()->viewport(), Qt::LeftButton, {},
                               Tree()->visualItemRect(Tree()->currentItem()).center());
        }
        ui.VerifyAllUsed();
        EXPECT_EQ(ProductTestBase::ProductNames(Definition(QStringLiteral("阀门A"))), path.saved);
        Reopen();
        EXPECT_EQ(ProductTestBase::ProductNames(Definition(QStringLiteral("阀门A"))), path.saved);
        page->SetCurrentPath(QStringLiteral("QXMaterial/管道"));
        Select(QStringLiteral("阀门A"));
    }
}

TEST_F(NewProductTest, CreateDialogOffersSaveAsTemplateAndTheVersionHistory) {
    CVorDPMDPD* valve = Definition(QStringLiteral("阀门A"));
    CreateDlg dialog(valve, nullptr, nullptr, nullptr);
    dialog.show();
    ui.ExpectDialog(Filling([](QDialog* save) {
        EXPECT_EQ(save->windowTitle(), QStringLiteral("另存为模板"));
        EXPECT_EQ(
            Control<CVorDPMTreeComboBox>(save, CVorDPMSaveAsTemplateDlg::IDC_LOCATION)->text(),
            QStringLiteral("QXMaterial"));
        Control<QComboBox>(save, CVorDPMSaveAsTemplateDlg::IDC_TEMPLATE_NAME)
            ->setEditText(QStringLiteral("阀门模板"));
        Click(save, VorDPMControlId::IDOK);
    }));
    Click(&dialog, CreateDlg::IDC_SAVE_AS_TEMPLATE);
    QString versionCaption;
    ui.ExpectDialog([&](QDialog* versions) {
        versionCaption = versions->windowTitle();
        return QDialog::Rejected;
    });
    Click(&dialog, CreateDlg::IDC_VERSION);
    ui.VerifyAllUsed();
    EXPECT_EQ(versionCaption, QStringLiteral("产品\"阀门A\"的版本信息"));
    EXPECT_EQ(ui.dialogClasses, QStringList({"CVorDPMSaveAsTemplateDlg", "CVorDPMVersionDlg"}));
    QStringList templates;
    Library(QStringLiteral("QXMaterial"))->GetVorDPMTemplateManager()->GetAllDPTName(templates);
    EXPECT_EQ(templates, QStringList{"阀门模板"});
    EXPECT_TRUE(dialog.isVisible());
}

}  // namespace
