// Fixture of the product editor tests: a definition on disk with two properties (one without a
// property id), a picture, a shape, two products and two series rows, plus a common property
// and a unit; helpers that drive the record editor's grid as a user does, and the fixture of the
// tests of the create-product dialog.
#pragma once

#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QToolButton>

#include "CVorDPMCommandManager.h"
#include "CVorDPMLibraryManager.h"
#include "controls/CVorDPMListCtrlEx.h"
#include "product/CVorDPMCreateProductDlg.h"
#include "product/CVorDPMEditProductDlg.h"
#include "product/CVorDPMProductEdit.h"
#include "product/CVorDPMPropertyGrid.h"
#include "product/CVorDPMPropertyGridDelegate.h"
#include "product/CVorDPMSeriesSheet.h"
#include "product/VorDPMDefinitionTable.h"
#include "support/GuiTestBase.h"
#include "support/QtPrinters.h"

class ProductTestBase : public GuiTestBase {
public:
    // Grid edits: item caption and the text typed into it.
    using Edits = std::vector<std::pair<QString, QString>>;

protected:
    void SetUp() override {
        CVorDPMLibraryManager* library = MakeLibrary(QStringLiteral("紧固件"));
        m_dpd = MakeDefinition(library, QStringLiteral("螺栓"));
        m_length =
            AddProperty(QStringLiteral("长度"), QStringLiteral("L"), 7, QStringLiteral("10"));
        AddProperty(QStringLiteral("备注"), QStringLiteral("R"), -1, QString());
        auto* image = new CVorDPM_DPD_Image;
        image->SetName(QStringLiteral("正视图"));
        image->SetImage(CBinaryData(QByteArray("abc")));
        image->SetIsUsingBlock(2);
        m_dpd->AddImage(image);
        auto* shape = new CVorDPM_DPD_Shape;
        shape->SetName(QStringLiteral("外形"));
        shape->SetDPSId(4);
        shape->SetParam(QStringLiteral("L"));
        shape->SetParamType(QStringLiteral("1"));
        shape->SetParamIndex(QStringLiteral("9"));
        m_dpd->AddShape(shape);
        const CVorDPM_DPD_Product* first = AddProduct(m_dpd, "M6", QStringLiteral("螺栓 {L}"));
        AddProduct(m_dpd, "M8", QStringLiteral("螺栓 {L}"));
        for (const char* length : {"20", "30"}) {
            CVorDPM_DPD_Serial* row = AddSerial(m_dpd, first);
            row->SetShapeId(1);
            row->SetImageId(1);
            row->SetValue(QString::fromUtf8(length), m_length->GetObjectId());
        }
        AddCommonTables();
        m_lengthId = m_length->GetObjectId();
        ASSERT_EQ(Manager()->SaveWork(), 1);
    }

    void TearDown() override {
        while (Commands()->GetOpenCommandCount() > 0) Commands()->AbortCommand();
    }

    static CVorDPMCommandManager* Commands() { return CVorDPMCommandManager::GetInstance(); }

    CVorDPM_DPD_Property* AddProperty(const QString& alias, const QString& param, int id,
                                      const QString& defaultValue) {
        auto* property = new CVorDPM_DPD_Property;
        property->SetPropertyAlias(alias);
        property->SetParamAlias(param);
        property->SetPropertyId(id);
        property->SetDefValue(defaultValue);
        m_dpd->AddProperty(property);
        return property;
    }

    static void AddCommonTables() {
        CVorDPMCommonManager* common = Manager()->GetCommonManager();
        auto* propertyGroup = new CVorDPM_DPOPROPERTY_Group;
        propertyGroup->SetName(QStringLiteral("尺寸"));
        common->GetPropertyDPO()->AddGroup(propertyGroup);
        auto* width = new CVorDPM_DPOPROPERTY_Content;
        width->SetName(QStringLiteral("宽度"));
        width->SetGroupId(propertyGroup->GetObjectId());
        width->SetUnit(QStringLiteral("mm"));
        width->SetDefaultValue(QStringLiteral("5"));
        common->GetPropertyDPO()->AddContent(width);
        auto* unitGroup = new CVorDPM_DPOUNIT_Group;
        unitGroup->SetName(QStringLiteral("长度"));
        common->GetUnitDPO()->AddGroup(unitGroup);
        auto* unit = new CVorDPM_DPOUNIT_Unit;
        unit->SetName(QStringLiteral("毫米"));
        unit->SetGroupId(unitGroup->GetObjectId());
        common->GetUnitDPO()->AddUnit(unit);
    }

    template <class TRecord>
    int LiveCount() const {
        return static_cast<int>(VorDPMDefinitionTables::LiveRows<TRecord>(m_dpd).size());
    }

    // The lengths of the live series rows, in the store's order.
    QStringList Lengths() const {
        QStringList lengths;
        for (auto* row : VorDPMDefinitionTables::LiveRows<CVorDPM_DPD_Serial>(m_dpd))
            lengths.append(row->GetValue(m_lengthId));
        return lengths;
    }

    // Drops what was loaded and reads the definition from disk again.
    void Reload() {
        Manager()->DiscardChanges();
        CVorDPMLibraryManager* library = nullptr;
        Manager()->GetLibrary(QStringLiteral("紧固件"), library);
        ASSERT_TRUE(library);
        m_dpd = nullptr;
        library->GetDPD(QStringLiteral("螺栓"), m_dpd);
        ASSERT_TRUE(m_dpd);
    }

public:
    // Driving the record editor, also for the tests of the dialogs that open it.
    static CVorDPMPropertyGrid* Grid(QWidget* editor) {
        return Control<CVorDPMPropertyGrid>(editor, CVorDPMProductEdit::IDC_GRID);
    }

    // Types `text` into the grid item captioned `caption` and presses Enter.
    static void TypeInto(CVorDPMPropertyGrid* grid, const QString& caption, const QString& text) {
        CVorDPMPropertyGridItem* item = grid->FindItem(caption);
        ASSERT_TRUE(item) << caption.toStdString();
        QWidget* editor = grid->EditValue(item);
        ASSERT_TRUE(editor) << caption.toStdString();
        auto* combo = qobject_cast<QComboBox*>(editor);
        QLineEdit* edit = combo ? combo->lineEdit() : qobject_cast<QLineEdit*>(editor);
        ASSERT_TRUE(edit);
        edit->selectAll();
        QTest::keyClick(edit, Qt::Key_Delete);
        Type(edit, text);
        QTest::keyClick(combo ? static_cast<QWidget*>(combo) : edit, Qt::Key_Return);
        QCoreApplication::processEvents();  // the view takes the value in a queued call
    }

    // Clicks the in-place button of the grid item captioned `caption` of a record editor, in the
    // active window as a user does, and lets what the click asked for happen.
    static void PressButton(QWidget& editor, const QString& caption) {
        ClickButton(editor, caption);
        QCoreApplication::processEvents();
    }

    // The click of PressButton alone: what it asks for has not happened yet when it returns.
    static void ClickButton(QWidget& editor, const QString& caption) {
        editor.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&editor));
        CVorDPMPropertyGrid* grid = Grid(&editor);
        QWidget* inplace = grid->EditValue(grid->FindItem(caption));
        ASSERT_TRUE(inplace) << caption.toStdString();
        auto* button = inplace->findChild<QToolButton*>();
        ASSERT_TRUE(button && button->defaultAction()) << caption.toStdString();
        ASSERT_EQ(button->defaultAction()->objectName(),
                  QLatin1String(CVorDPMPropertyGridDelegate::kInplaceButtonName));
        QTest::mouseClick(button, Qt::LeftButton);
    }

    // A record-editor answer: types the edits into the grid, then presses OK.
    static std::function<int(QDialog*)> GridEdits(const Edits& edits) {
        return Filling([edits](QDialog* editor) {
            for (const auto& [caption, text] : edits) TypeInto(Grid(editor), caption, text);
            Click(editor, VorDPMControlId::IDOK);
        });
    }

    // A product record added through the product editor panel inside `host`, with "产品名"
    // typed into the record editor.
    static void AddProductRecord(QDialog* host, const QString& name, CVorDPMScriptedUi& ui) {
        ui.ExpectDialog(GridEdits({{QStringLiteral("产品名"), name}}));
        QTest::mouseClick(
            VorDPMControlId::Find<QToolButton>(host, CVorDPMEditProductDlg::IDC_PRODUCT_NEW),
            Qt::LeftButton);
    }

    using StoreTestBase::ProductNames;

protected:
    CVorDPMDPD* m_dpd = nullptr;
    CVorDPM_DPD_Property* m_length = nullptr;  // as loaded before the first Reload()
    int m_lengthId = 0;
};

// Tests of the create-product dialog, open and active on the fixture's definition.
class CreateProductDlgTestBase : public ProductTestBase {
protected:
    void SetUp() override {
        ProductTestBase::SetUp();
        if (!HasFatalFailure()) OpenDialog();
    }

    void TearDown() override {
        dialog.reset();
        ProductTestBase::TearDown();
    }

    void OpenDialog() {
        dialog = std::make_unique<CVorDPMCreateProductDlg>(m_dpd, nullptr, nullptr, nullptr);
        dialog->show();
        dialog->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    }

    CVorDPMListCtrlEx* List(int id) const {
        return dialog->findChild<CVorDPMListCtrlEx*>(QString::number(id));
    }
    CVorDPMListCtrlEx* SeriesList() const { return List(CVorDPMEditProductDlg::IDC_SERIES_LIST); }

    // Selects the rows from top to bottom whole, the current cell in `column`, and focuses the
    // list.
    static void SelectRows(CVorDPMListCtrlEx* list, int top, int bottom, int column) {
        QAbstractItemModel* model = list->model();
        list->selectionModel()->setCurrentIndex(model->index(top, column),
                                                QItemSelectionModel::NoUpdate);
        list->selectionModel()->select(
            QItemSelection(model->index(top, column), model->index(bottom, column)),
            QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        list->setFocus();
    }

    // The in-place editor of the series list's cell being typed into, or null.
    QLineEdit* CellEditor() const {
        return SeriesList()->findChild<QLineEdit*>(QLatin1String(CVorDPMSeriesSheet::kEditorName));
    }

    std::unique_ptr<CVorDPMCreateProductDlg> dialog;
};
