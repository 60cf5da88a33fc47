// The typical edit of a product, end to end through the real editor: a catalog is selected in
// the main dialog, a product is added on the product data page from a template, its five
// tables are filled through the record editor (the shape's script picked in the script editor,
// with a preview), "保存关闭" saves it, and the catalog and the file on disk hold every value.
#include <QComboBox>
#include <QFileInfo>
#include <QToolButton>

#include "CDPMSheet.h"
#include "CVorDPMEditorDlg.h"
#include "CVorDPMTreeCtrlEx.h"
#include "controls/CVorDPMHistoryComboBox.h"
#include "controls/CVorDPMTreeComboBox.h"
#include "controls/CVorDPMlistCtrlBase.h"
#include "product/CDPMDataPage.h"
#include "product/CVorDPMCreateProductDlg.h"
#include "product/CVorDPMEditProductDlg.h"
#include "product/CVorDPMNewProductDlg.h"
#include "product/ProductTestBase.h"
#include "product/VorDPMDefinitionTable.h"
#include "query/CVorDPMData.h"
#include "script/CVorDPMScriptEdit.h"
#include "support/GuiTestBase.h"
#include "support/Pictures.h"
#include "support/StoreFileEdits.h"

namespace {

using Panel = CVorDPMEditProductDlg;

int g_previews = 0;
void CountPreview(QRect, QWidget*, const QString&, const char*,
                  const std::map<QString, _struParam>&, const std::map<int, tagVorDPM_Value>&) {
    ++g_previews;
}

class TypicalEditTest : public GuiTestBase {
protected:
    void SetUp() override {
        CVorDPMLibraryManager* library = MakeLibrary(QStringLiteral("QXMaterial"));
        MakeDefinition(library, QStringLiteral("法兰B"));
        MakeEntry(MakeCatalog(library, QStringLiteral("管道")), QStringLiteral("法兰B"),
                  QStringLiteral("阀门"));
        CVorDPMDPT* pattern = nullptr;
        ASSERT_EQ(Manager()->GetTemplateManager()->CreateDPT(QStringLiteral("标准阀"), pattern),
                  VOR::eOk);
        AddProperty(pattern, QStringLiteral("DN"), QStringLiteral("公称直径"))->SetPropertyId(1);
        auto* script = new CVorDPM_DPD_Dps;
        script->SetName(QStringLiteral("阀体脚本"));
        script->SetContent(CBinaryData(QByteArray("box(DN, DN, PN)")));
        ASSERT_EQ(pattern->AddDps(script), VOR::eOk);
        ASSERT_EQ(Manager()->SaveWork(), 1);

        picturePath = root.Home() + QStringLiteral("/正视图.png");
        ASSERT_TRUE(Solid(8, 8, Qt::green).save(picturePath));
        g_previews = 0;
    }

    void NewRecord(QDialog* create, int table, std::function<int(QDialog*)> editor) {
        ui.ExpectDialog(std::move(editor));
        QTest::mouseClick(Control<QToolButton>(create, Panel::ButtonId(table, 0)), Qt::LeftButton);
    }

    // The five tables, filled as a user does in "创建产品".
    void FillTables(QDialog* create) {
        NewRecord(create, Panel::Properties,
                  ProductTestBase::GridEdits(
                      {{"属性ID", "2"}, {"属性别名", "公称压力"}, {"参数名", "PN"}}));
        NewRecord(create, Panel::Pictures, Filling([this](QDialog* editor) {
                      ProductTestBase::TypeInto(ProductTestBase::Grid(editor), "名字", "正视图");
                      ui.ExpectFile(picturePath);
                      ProductTestBase::PressButton(*editor, QStringLiteral("图片"));
                      Click(editor, VorDPMControlId::IDOK);
                  }));
        NewRecord(create, Panel::Shapes, Filling([this](QDialog* editor) {
                      ProductTestBase::TypeInto(ProductTestBase::Grid(editor), "形体名称", "阀体");
                      ui.ExpectDialog(Filling([](QDialog* scripts) {
                          ClickCell(Control<CVorDPMlistCtrlBase>(
                                        scripts, CVorDPMScriptEdit::IDC_SCRIPT_LIST),
                                    0);
                          Click(scripts, CVorDPMScriptEdit::IDC_PREVIEW);
                          Click(scripts, VorDPMControlId::IDOK);
                      }));
                      ProductTestBase::PressButton(*editor, QStringLiteral("DPS ID"));
                      Click(editor, VorDPMControlId::IDOK);
                  }));
        NewRecord(create, Panel::Products,
                  ProductTestBase::GridEdits({{"产品名", "闸阀"}, {"命名规则", "Z41H DN PN"}}));
        NewRecord(create, Panel::Series,
                  ProductTestBase::GridEdits({{"产品ID", "1"},
                                              {"参数化形体库ID", "1"},
                                              {"实物图片ID", "1"},
                                              {"公称直径", "50"},
                                              {"公称压力", "16"}}));
    }

    QString picturePath;
};

TEST_F(TypicalEditTest, AProductAddedFromATemplateAndFilledIsInTheCatalogAndOnDisk) {
    CVorDPMEditorDlg editor(&CountPreview, nullptr, nullptr);
    editor.show();
    CVorDPMTreeCtrlEx* libraries = editor.GetTreeCtrl();
    libraries->setCurrentItem(libraries->GetItem(QStringLiteral("QXMaterial"), nullptr)->child(0));
    editor.GetSheet()->setCurrentWidget(editor.GetDataPage());
    CDPMDataPage* page = editor.GetDataPage();
    CVorDPMTreeCtrlEx* products = page->GetTreeCtrl();
    products->setCurrentItem(
        products->findItems(QStringLiteral("阀门"), Qt::MatchExactly | Qt::MatchRecursive).first());

    ui.ExpectDialog(Filling([](QDialog* add) {
        auto* chooser = Control<CVorDPMTreeComboBox>(add, CVorDPMNewProductDlg::IDC_TEMPLATE);
        chooser->SelectItem(chooser->GetTreeCtrl()->topLevelItem(0)->child(0));
        Type(Control<QComboBox>(add, CVorDPMNewProductDlg::IDC_PRODUCT_NAME)->lineEdit(),
             QStringLiteral("闸阀Z41H"));
        Click(add, CVorDPMNewProductDlg::IDC_NEXT);
    }));
    ui.ExpectDialog(Filling([this](QDialog* create) {
        FillTables(create);
        Click(create, CVorDPMCreateProductDlg::IDC_SAVE_CLOSE);
    }));
    Click(page, CDPMDataPage::IDC_ADD_PRODUCT);
    ui.VerifyAllUsed();
    EXPECT_EQ(g_previews, 1);
    EXPECT_EQ(products->currentItem()->text(0), QStringLiteral("闸阀Z41H"));
    EXPECT_EQ(products->currentItem()->parent()->text(0), QStringLiteral("阀门"));
    CVorDPMHistoryComboBox history(QStringLiteral("HistorylibraryName"),
                                   QStringLiteral("HistoryItem"));
    history.LoadHistory();
    EXPECT_EQ(history.itemText(0), QStringLiteral("闸阀Z41H"));
    const QAbstractItemModel* report = page->GetReportCtrl()->model();
    ASSERT_EQ(report->rowCount(), 1);
    EXPECT_EQ(report->index(0, 0).data().toString(), QStringLiteral("Z41H50*16"));

    // Everything is on disk. The editor goes first: its pages show rows that reopening frees.
    editor.close();
    Reopen();
    CVorDPMDPC* catalog = nullptr;
    CVorDPMData::GetDPCManger(QStringLiteral("QXMaterial"), QStringLiteral("管道"), catalog);
    ASSERT_TRUE(catalog);
    CKZList<CVorDPM_DPC_Content*> entries;
    catalog->GetAllContent(CVorDPM_DPC_Content::FirstType, QStringLiteral("阀门"), entries);
    QStringList entered;
    for (const CVorDPM_DPC_Content* entry : entries) entered << entry->GetDPD();
    EXPECT_EQ(entered, QStringList({"法兰B", "闸阀Z41H"}));

    CVorDPMDPD* dpd = nullptr;
    Library(QStringLiteral("QXMaterial"))->GetDPD(QStringLiteral("闸阀Z41H"), dpd);
    ASSERT_TRUE(dpd);
    EXPECT_TRUE(QFileInfo::exists(dpd->GetDPDFullPath()));
    using VorDPMDefinitionTables::LiveRows;
    const auto properties = LiveRows<CVorDPM_DPD_Property>(dpd);
    QStringList propertyTexts;
    for (const CVorDPM_DPD_Property* p : properties)
        propertyTexts << QStringLiteral("%1:%2:%3")
                             .arg(p->GetPropertyId())
                             .arg(p->GetPropertyAlias(), p->GetParamAlias());
    EXPECT_EQ(propertyTexts, QStringList({"1:公称直径:DN", "2:公称压力:PN"}));
    const auto images = LiveRows<CVorDPM_DPD_Image>(dpd);
    const auto shapes = LiveRows<CVorDPM_DPD_Shape>(dpd);
    CKZList<CVorDPM_DPD_Dps*> scripts;
    dpd->GetAllDps(scripts);
    const auto productRows = LiveRows<CVorDPM_DPD_Product>(dpd);
    const auto series = LiveRows<CVorDPM_DPD_Serial>(dpd);
    ASSERT_EQ((std::vector<size_t>{images.size(), shapes.size(), size_t(scripts.GetCount()),
                                   productRows.size(), series.size()}),
              (std::vector<size_t>{1, 1, 1, 1, 1}));
    EXPECT_EQ(images[0]->GetName(), QStringLiteral("正视图"));
    EXPECT_EQ(images[0]->GetImage().Bytes(), ReadAll(picturePath));
    EXPECT_EQ(shapes[0]->GetName(), QStringLiteral("阀体"));
    EXPECT_EQ(shapes[0]->GetDPSId(), scripts.GetAt(0)->GetObjectId());
    EXPECT_EQ(productRows[0]->GetName(), QStringLiteral("闸阀"));
    EXPECT_EQ(productRows[0]->GetNameRule(), QStringLiteral("Z41H DN PN"));
    const CVorDPM_DPD_Serial* row = series[0];
    EXPECT_EQ(row->GetProductId(), productRows[0]->GetObjectId());
    EXPECT_EQ(row->GetShapeId(), shapes[0]->GetObjectId());
    EXPECT_EQ(row->GetImageId(), images[0]->GetObjectId());
    EXPECT_EQ(row->GetValue(properties[0]->GetObjectId()), QStringLiteral("50"));
    EXPECT_EQ(row->GetValue(properties[1]->GetObjectId()), QStringLiteral("16"));
}

}  // namespace
