#include <QAction>
#include <QFile>
#include <QTreeWidget>

#include "ProductTestBase.h"
#include "common/CVorDPMDPODlg.h"
#include "controls/CVorDPMlistCtrlBase.h"
#include "product/CVorDPMPropertyGridDelegate.h"
#include "product/CVorDPMRelatedDlg.h"
#include "script/CVorDPMScriptEdit.h"

namespace {

using Edit = CVorDPMProductEdit;

class ProductEditTest : public ProductTestBase {
protected:
    template <class TRecord>
    std::unique_ptr<Edit> Open(TRecord* record, int mode = Edit::EditRecord) {
        auto editor = std::make_unique<Edit>(m_dpd, record, mode, nullptr, nullptr, nullptr);
        editor->show();
        return editor;
    }

    static QString Value(Edit& editor, const QString& caption) {
        CVorDPMPropertyGridItem* item = Grid(&editor)->FindItem(caption);
        return item ? item->GetValue() : QStringLiteral("<none>");
    }

    // Answers a nested chooser: clicks the first row of its list (after the first group of the
    // tree, for the common tables) and OK.
    static std::function<int(QDialog*)> ChooseFirst(int listId) {
        return Filling([listId](QDialog* dialog) {
            if (auto* tree =
                    VorDPMControlId::Find<QTreeWidget>(dialog, CVorDPMDPODlg::IDC_GROUP_TREE))
                tree->setCurrentItem(tree->topLevelItem(0));
            ClickCell(Control<CVorDPMlistCtrlBase>(dialog, listId), 0);
            Click(dialog, VorDPMControlId::IDOK);
        });
    }
};

TEST_F(ProductEditTest, EachKindHasItsTitleAndItems) {
    struct Case {
        std::function<std::unique_ptr<Edit>()> open;
        QString title;
        QStringList captions;
    };
    auto* image = new CVorDPM_DPD_Image;
    auto* shape = new CVorDPM_DPD_Shape;
    auto* product = new CVorDPM_DPD_Product;
    auto* serial = new CVorDPM_DPD_Serial;
    const Case cases[] = {
        {[&] { return Open(m_length); },
         "产品属性",
         {"产品属性定义", "ID", "属性ID", "属性别名", "参数名", "分类", "单位", "默认值",
          "系列化检查", "系统属性", "描述"}},
        {[&] { return Open(image, Edit::NewRecord); },
         "产品图片",
         {"实物图片库", "ID", "名字", "图片", "大小", "描述", "2D", "3D", "sys", "IsBlock"}},
        {[&] { return Open(shape, Edit::NewRecord); },
         "产品形体",
         {"参数化形体库", "ID", "DPS ID", "形体名称", "描述"}},
        {[&] { return Open(product, Edit::NewRecord); },
         "产品列表",
         {"产品列表", "ID", "产品名", "命名规则", "描述"}},
        // The property with id -1 has no item.
        {[&] { return Open(serial, Edit::NewRecord); },
         "产品系列",
         {"产品系列化", "产品ID", "参数化形体库ID", "实物图片ID", "属性", "长度"}},
    };
    for (const Case& c : cases) {
        std::unique_ptr<Edit> editor = c.open();
        QStringList captions;
        for (QTreeWidgetItemIterator it(Grid(editor.get())); *it; ++it) captions << (*it)->text(0);
        EXPECT_EQ(editor->windowTitle(), c.title);
        EXPECT_EQ(captions, c.captions) << c.title.toStdString();
    }
    EXPECT_EQ(serial->GetValue(m_length->GetObjectId()), QStringLiteral("10"));  // the default
    for (CVorDPMObject* record :
         std::initializer_list<CVorDPMObject*>{image, shape, product, serial})
        delete record;
}

TEST_F(ProductEditTest, PropertyValuesAreConvertedAsTheyAreWritten) {
    struct Case {
        const char* caption;
        const char* typed;
        std::function<QString()> stored;
    };
    const auto serialCheck = [this] { return QString::number(m_length->GetSerialCheck()); };
    const auto system = [this] { return QString::number(m_length->GetSystemProperty()); };
    const Case cases[] = {
        {"属性ID", "12", [this] { return QString::number(m_length->GetPropertyId()); }},
        {"属性别名", "总长", [this] { return m_length->GetPropertyAlias(); }},
        {"参数名", "LL", [this] { return m_length->GetParamAlias(); }},
        {"分类", "尺寸", [this] { return m_length->GetChapter(); }},
        {"默认值", "15", [this] { return m_length->GetDefValue(); }},
        {"描述", "全长", [this] { return m_length->GetDescription(); }},
        {"单位", "cm", [this] { return m_length->GetUnit(); }},
        {"单位", "无单位", [this] { return m_length->GetUnit(); }},
        {"系列化检查", "TRUE", serialCheck},
        {"系列化检查", "1", serialCheck},
        {"系列化检查", "真", serialCheck},
        {"系列化检查", "是", serialCheck},
        {"系统属性", "tRuE", system},
        {"系统属性", "False", system},
    };
    const QStringList expected{"12", "总长", "LL", "尺寸", "15", "全长", "cm",
                               "",   "1",    "0",  "1",    "0",  "1",    "0"};
    std::unique_ptr<Edit> editor = Open(m_length);
    QStringList stored;
    for (const Case& c : cases) {
        TypeInto(Grid(editor.get()), c.caption, c.typed);
        stored << c.stored();
    }
    EXPECT_EQ(stored, expected);
}

TEST_F(ProductEditTest, OkChecksTheRecordWithTheMessagesOfItsKind) {
    struct Case {
        const char* what;
        std::function<std::unique_ptr<Edit>()> open;
        const char* caption;  // of the name that is checked
        const char* taken;    // a name another record has
        const char* empty;
        const char* duplicate;
    };
    auto* image = new CVorDPM_DPD_Image;
    auto* shape = new CVorDPM_DPD_Shape;
    auto* product = new CVorDPM_DPD_Product;
    const Case cases[] = {
        {"property", [&] { return Open(AddProperty({}, {}, 1, {}), Edit::NewRecord); }, "参数名",
         "L", "属性ID，属性别名和参数名不能为空，请输入!", "属性别名或参数名已存在，请重新输入!"},
        {"picture", [&] { return Open(image, Edit::NewRecord); }, "名字", "正视图",
         "图片名称不能为空!", "图片名称已存在，请重新输入!"},
        {"shape", [&] { return Open(shape, Edit::NewRecord); }, "形体名称", "外形",
         "形体名称不能为空！", "形体名称已存在，请重新输入！"},
        {"product", [&] { return Open(product, Edit::NewRecord); }, "产品名", "M6",
         "产品名称不能为空!", "产品名称已存在，请重新输入!"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        std::unique_ptr<Edit> editor = c.open();
        if (QString(c.what) == "property") TypeInto(Grid(editor.get()), "属性别名", "新");
        ui.ExpectMessage(c.empty);
        Click(editor.get(), VorDPMControlId::IDOK);
        ui.ExpectMessage(c.duplicate);
        TypeInto(Grid(editor.get()), c.caption, c.taken);
        Click(editor.get(), VorDPMControlId::IDOK);
        EXPECT_TRUE(editor->isVisible());
        TypeInto(Grid(editor.get()), c.caption, "唯一");
        Click(editor.get(), VorDPMControlId::IDOK);
        EXPECT_TRUE(Accepted(*editor));
    }
    for (CVorDPMObject* record : std::initializer_list<CVorDPMObject*>{image, shape, product})
        delete record;
}

TEST_F(ProductEditTest, SeriesRowWithoutAProductIsRefusedWithoutAMessage) {
    CVorDPM_DPD_Serial row;
    std::unique_ptr<Edit> editor = Open(&row, Edit::NewRecord);
    TypeInto(Grid(editor.get()), "产品ID", "99");  // no such product: shown, kept, refused
    Click(editor.get(), VorDPMControlId::IDOK);
    EXPECT_TRUE(editor->isVisible());
    EXPECT_EQ(row.GetProductId(), 99);
    EXPECT_FALSE(Grid(editor.get())->FindItem("产品ID")->GetNote().isEmpty());
    TypeInto(Grid(editor.get()), "产品ID", "2");
    Click(editor.get(), VorDPMControlId::IDOK);
    EXPECT_TRUE(Accepted(*editor));
}

TEST_F(ProductEditTest, PictureFilesAreTakenOnlyWhenReadableAndNotEmpty) {
    CKZList<CVorDPM_DPD_Image*> images;
    m_dpd->GetAllImage(images);
    CVorDPM_DPD_Image* image = images.GetAt(0);
    QImage pixel(1, 1, QImage::Format_RGB32);
    pixel.fill(Qt::red);
    const QString bmp = root.Home() + "/red.bmp";
    ASSERT_TRUE(pixel.save(bmp));
    struct Case {
        const char* caption;
        QString path;
        bool taken;
    };
    const Case cases[] = {
        {"图片", root.Write("empty.bmp", {}), false},
        {"图片", root.Home() + "/missing.bmp", false},
        {"图片", root.Write("text.bmp", "not a picture"), false},
        {"图片", bmp, true},
        {"2D", root.Write("block.dwg", "block bytes"), true},
        {"3D", root.Write("empty.dwg", {}), false},
    };
    std::unique_ptr<Edit> editor = Open(image);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.path.toStdString());
        const QByteArray before = image->GetImage().Bytes() + "|" + image->GetBlock2d().Bytes() +
                                  "|" + image->GetBlock3d().Bytes();
        ui.ExpectFile(c.path);
        PressButton(*editor, c.caption);
        const QByteArray after = image->GetImage().Bytes() + "|" + image->GetBlock2d().Bytes() +
                                 "|" + image->GetBlock3d().Bytes();
        EXPECT_EQ(after != before, c.taken);
        EXPECT_EQ(Grid(editor.get())->FindItem(c.caption)->GetNote().isEmpty(), c.taken);
    }
    QFile file(bmp);
    EXPECT_EQ(Value(*editor, "大小"), QString::number(file.size()));
    TypeInto(Grid(editor.get()), "IsBlock", "否");  // any change turns block use on
    EXPECT_EQ(image->GetIsUsingBlock(), 1);
}

TEST_F(ProductEditTest, UnitAndCommonPropertyComeFromTheCommonTables) {
    CVorDPM_DPD_Property* blank = AddProperty({}, QStringLiteral("W"), 0, {});
    std::unique_ptr<Edit> editor = Open(blank, Edit::NewRecord);
    ui.ExpectDialog(ChooseFirst(CVorDPMDPODlg::IDC_LIST));
    PressButton(*editor, "属性ID");
    EXPECT_EQ(blank->GetPropertyId(), 1);
    EXPECT_EQ(blank->GetPropertyAlias(), QStringLiteral("宽度"));
    EXPECT_EQ(blank->GetUnit(), QStringLiteral("mm"));
    EXPECT_EQ(blank->GetDefValue(), QStringLiteral("5"));

    ui.ExpectDialog([](QDialog*) { return QDialog::Rejected; });
    TypeInto(Grid(editor.get()), "单位", "<选择单位...>");
    EXPECT_EQ(blank->GetUnit(), QStringLiteral("mm"));
    EXPECT_EQ(Value(*editor, "单位"), QStringLiteral("mm"));
    ui.ExpectDialog(ChooseFirst(CVorDPMDPODlg::IDC_LIST));
    TypeInto(Grid(editor.get()), "单位", "<选择单位...>");
    EXPECT_EQ(blank->GetUnit(), QStringLiteral("毫米"));
    EXPECT_EQ(ui.dialogClasses, QStringList(3, "CVorDPMDPODlg"));
}

TEST_F(ProductEditTest, RelatedRecordPickersReturnTheChosenId) {
    CVorDPM_DPD_Serial row;
    std::unique_ptr<Edit> editor = Open(&row, Edit::NewRecord);
    QStringList titles;
    const auto choose = [&titles](int row) {
        return Filling([&titles, row](QDialog* dialog) {
            titles << dialog->windowTitle();
            DoubleClickCell(
                Control<CVorDPMlistCtrlBase>(dialog, CVorDPMRelatedDlg::IDC_RELATED_LIST), row);
        });
    };
    ui.ExpectDialog(choose(1));
    PressButton(*editor, "产品ID");
    ui.ExpectDialog(choose(0));
    PressButton(*editor, "参数化形体库ID");
    ui.ExpectDialog(choose(0));
    PressButton(*editor, "实物图片ID");
    EXPECT_EQ(titles, (QStringList{"选择产品", "选择形体", "选择图片"}));
    EXPECT_EQ((std::vector<int>{row.GetProductId(), row.GetShapeId(), row.GetImageId()}),
              (std::vector<int>{2, 1, 1}));

    ui.ExpectDialog(Filling([this](QDialog* dialog) {
        ui.ExpectMessage("未选择项目, 请重新选择!");
        Control<CVorDPMlistCtrlBase>(dialog, CVorDPMRelatedDlg::IDC_RELATED_LIST)->clearSelection();
        Click(dialog, VorDPMControlId::IDOK);
    }));
    PressButton(*editor, "产品ID");
    EXPECT_EQ(row.GetProductId(), 2);
}

TEST_F(ProductEditTest, ScriptIdIsChosenInTheScriptEditor) {
    for (const char* name : {"圆", "方"}) {
        auto* script = new CVorDPM_DPD_Dps;
        script->SetName(QString::fromUtf8(name));
        m_dpd->AddDps(script);
    }
    CVorDPM_DPD_Shape* shape = VorDPMDefinitionTables::Find<CVorDPM_DPD_Shape>(m_dpd, 1);
    std::unique_ptr<Edit> editor = Open(shape);
    ui.ExpectDialog([](QDialog*) { return QDialog::Rejected; });
    ui.ExpectDialog(ChooseFirst(CVorDPMScriptEdit::IDC_SCRIPT_LIST));
    PressButton(*editor, "DPS ID");
    EXPECT_EQ(shape->GetDPSId(), 4);  // cancelled: unchanged
    PressButton(*editor, "DPS ID");
    EXPECT_EQ(shape->GetDPSId(), 1);
    EXPECT_EQ(Value(*editor, "DPS ID"), QStringLiteral("1"));
    EXPECT_EQ(ui.dialogClasses, QStringList(2, "CVorDPMScriptEdit"));
}

// The pickers and file dialogs are answered inside modal loops of their own, in which the grid
// closes the item's editor and deletes its in-place button. By then the click on that button
// must have returned: otherwise Qt goes on handling the click on the freed button.
TEST_F(ProductEditTest, InplaceButtonsOpenTheirDialogsOnlyAfterTheClickHasReturned) {
    CKZList<CVorDPM_DPD_Image*> images;
    m_dpd->GetAllImage(images);
    CVorDPM_DPD_Serial row;
    const std::pair<std::function<std::unique_ptr<Edit>()>, QStringList> editors[] = {
        {[&] { return Open(m_length); }, {"属性ID"}},
        {[&] { return Open(VorDPMDefinitionTables::Find<CVorDPM_DPD_Shape>(m_dpd, 1)); },
         {"DPS ID"}},
        {[&] { return Open(&row, Edit::NewRecord); }, {"产品ID", "参数化形体库ID", "实物图片ID"}},
        {[&] { return Open(images.GetAt(0)); }, {"图片", "2D", "3D", "sys"}},
    };
    bool clicking = false;
    ui.AnswerInsideModalLoops(true);
    ui.CheckBeforeEachAnswer([&] { EXPECT_FALSE(clicking) << "opened inside the click"; });
    for (const auto& [open, captions] : editors) {
        std::unique_ptr<Edit> editor = open();
        CVorDPMPropertyGrid* grid = Grid(editor.get());
        for (const QString& caption : captions) {
            SCOPED_TRACE(caption.toStdString());
            CVorDPMPropertyGridItem* item = grid->FindItem(caption);
            if (item->GetKind() == CVorDPMPropertyGridItem::File)
                ui.ExpectFile(QString());
            else
                ui.ExpectDialog([](QDialog*) { return QDialog::Rejected; });
            clicking = true;
            ClickButton(*editor, caption);
            clicking = false;
            QCoreApplication::processEvents();
            ui.VerifyAllUsed();
            EXPECT_EQ(grid->indexWidget(grid->IndexOfValue(item)), nullptr);
        }
    }
}

}  // namespace
