#include "CVorDPMProductEdit.h"

#include <QCoreApplication>
#include <QImage>
#include <QPushButton>

#include "CVorDPMDPD.h"
#include "CVorDPMManager.h"
#include "CVorDPMPropertyGrid.h"
#include "CVorDPMRelatedDlg.h"
#include "CVorDPMUiService.h"
#include "CXTPPropertyGridItemFile.h"
#include "VorDPMDecimal.h"
#include "VorDPMDefinitionTable.h"
#include "common/CVorDPMDPODlg.h"
#include "common/VorDPMControlId.h"
#include "script/CVorDPMScriptEdit.h"

namespace {

// The dialog's layout in dialog units.
const QRect kSize(0, 0, 250, 185);
const QRect kGrid(7, 7, 236, 150);
const QRect kOk(139, 164, 50, 14);
const QRect kCancel(193, 164, 50, 14);

const char* const kNoUnit = QT_TRANSLATE_NOOP("CVorDPMProductEdit", "无单位");
const char* const kChooseUnit = QT_TRANSLATE_NOOP("CVorDPMProductEdit", "<选择单位...>");

QString Tr(const char* text) {
    return QCoreApplication::translate("CVorDPMProductEdit", text);
}

QString Number(int value) {
    return QString::number(value);
}

QString BoolText(int flag) {
    return flag ? QStringLiteral("True") : QStringLiteral("False");
}

// A Boolean field is set by "真" or "true" in any case; every other text clears it.
int FlagOf(const QString& text) {
    return text == QStringLiteral("真") ||
                   text.compare(QStringLiteral("true"), Qt::CaseInsensitive) == 0
               ? 1
               : 0;
}

// The messages of a failed check: for a missing field (2002) and a repeated one (2001).
struct CheckMessages {
    const char* empty;
    const char* duplicate;
};

const CheckMessages kMessages[] = {
    {QT_TRANSLATE_NOOP("CVorDPMProductEdit", "属性ID，属性别名和参数名不能为空，请输入!"),
     QT_TRANSLATE_NOOP("CVorDPMProductEdit", "属性别名或参数名已存在，请重新输入!")},
    {QT_TRANSLATE_NOOP("CVorDPMProductEdit", "图片名称不能为空!"),
     QT_TRANSLATE_NOOP("CVorDPMProductEdit", "图片名称已存在，请重新输入!")},
    {QT_TRANSLATE_NOOP("CVorDPMProductEdit", "形体名称不能为空！"),
     QT_TRANSLATE_NOOP("CVorDPMProductEdit", "形体名称已存在，请重新输入！")},
    {QT_TRANSLATE_NOOP("CVorDPMProductEdit", "产品名称不能为空!"),
     QT_TRANSLATE_NOOP("CVorDPMProductEdit", "产品名称已存在，请重新输入!")},
};

// Why a chosen file was not taken, or empty when its bytes are usable.
QString FileProblem(const QString& path, CBinaryData& data, bool mustBeImage) {
    if (!data.LoadFromFile(path))
        return Tr(QT_TRANSLATE_NOOP("CVorDPMProductEdit", "无法读取文件，未改变"));
    if (data.GetSize() <= 0) return Tr(QT_TRANSLATE_NOOP("CVorDPMProductEdit", "文件为空，未改变"));
    if (mustBeImage && QImage::fromData(data.Bytes()).isNull())
        return Tr(QT_TRANSLATE_NOOP("CVorDPMProductEdit", "不是图片文件，未改变"));
    return QString();
}

}  // namespace

CVorDPMProductEdit::CVorDPMProductEdit(CVorDPMDPDBase* dpd, int kind, int mode,
                                       PreviewDrawCallback draw, PreviewCloseCallback close,
                                       PreviewMoveCallback move, QWidget* parent)
    : CVorDPMDialogBase(IDD, parent),
      m_dpd(dpd),
      m_kind(kind),
      m_mode(mode),
      m_draw(draw),
      m_close(close),
      m_move(move),
      m_grid(new CVorDPMPropertyGrid(this)) {
    setWindowTitle(QStringLiteral("Dialog"));
    resize(MapDialogRect(kSize).size());
    m_grid->setGeometry(MapDialogRect(kGrid));
    VorDPMControlId::Set(m_grid, IDC_GRID);
    const auto [ok, cancel] = VorDPMControlId::AddOkCancel(this);
    ok->setGeometry(MapDialogRect(kOk));
    cancel->setGeometry(MapDialogRect(kCancel));
    connect(ok, &QPushButton::clicked, this, &CVorDPMProductEdit::OnOK);
    connect(m_grid, &CVorDPMPropertyGrid::ValueChanged, this, &CVorDPMProductEdit::OnValueChanged);
    connect(m_grid, &CVorDPMPropertyGrid::ButtonDown, this, &CVorDPMProductEdit::OnButtonDown);
}

#define VORDPM_PRODUCT_EDIT_CONSTRUCTOR(Record, member, kind)                                    \
    CVorDPMProductEdit::CVorDPMProductEdit(CVorDPMDPDBase* dpd, Record* record, int mode,        \
                                           PreviewDrawCallback draw, PreviewCloseCallback close, \
                                           PreviewMoveCallback move, QWidget* parent)            \
        : CVorDPMProductEdit(dpd, kind, mode, draw, close, move, parent) {                       \
        member = record;                                                                         \
        BuildGrid();                                                                             \
    }

VORDPM_PRODUCT_EDIT_CONSTRUCTOR(CVorDPM_DPD_Property, m_property, PropertyKind)
VORDPM_PRODUCT_EDIT_CONSTRUCTOR(CVorDPM_DPD_Image, m_image, ImageKind)
VORDPM_PRODUCT_EDIT_CONSTRUCTOR(CVorDPM_DPD_Shape, m_shape, ShapeKind)
VORDPM_PRODUCT_EDIT_CONSTRUCTOR(CVorDPM_DPD_Product, m_product, ProductKind)
VORDPM_PRODUCT_EDIT_CONSTRUCTOR(CVorDPM_DPD_Serial, m_serial, SerialKind)

#undef VORDPM_PRODUCT_EDIT_CONSTRUCTOR

bool CVorDPMProductEdit::OnInitDialog() {
    CVorDPMDialogBase::OnInitDialog();
    SetResize(m_grid, CVorDPMAnchorResizer::TopLeft, CVorDPMAnchorResizer::BottomRight);
    for (int id : {VorDPMControlId::IDOK, VorDPMControlId::IDCANCEL})
        SetResize(VorDPMControlId::Find<QPushButton>(this, id), CVorDPMAnchorResizer::BottomRight,
                  CVorDPMAnchorResizer::BottomRight);
    AutoLoadPlacement(QStringLiteral("CVorDPMProductEdit"));
    return true;
}

void CVorDPMProductEdit::BuildGrid() {
    switch (m_kind) {
        case PropertyKind:
            if (m_property) AddPropertyItems();
            break;
        case ImageKind:
            if (m_image) AddImageItems();
            break;
        case ShapeKind:
            if (m_shape) AddShapeItems();
            break;
        case ProductKind:
            if (m_product) AddProductItems();
            break;
        case SerialKind:
            if (m_serial) AddSerialItems();
            break;
    }
    // Captions are short, but the longest ("参数化形体库ID") must not be cut.
    m_grid->resizeColumnToContents(CVorDPMPropertyGridItem::CaptionColumn);
}

QTreeWidgetItem* CVorDPMProductEdit::StartSection(const QString& title, const QString& category) {
    setWindowTitle(title);
    return m_grid->AddCategory(category);
}

CVorDPMPropertyGridItem* CVorDPMProductEdit::Add(QTreeWidgetItem* category,
                                                 CVorDPMPropertyGridItem* item, Writer writer) {
    m_grid->AddItem(category, item);
    if (writer)
        m_writers.insert(item, std::move(writer));
    else
        item->SetReadOnly(true);
    return item;
}

CVorDPMPropertyGridItem* CVorDPMProductEdit::AddId(QTreeWidgetItem* category, int objectId) {
    return Add(category, new CVorDPMPropertyGridItem(CVorDPMPropertyGridItem::Number, tr("ID"),
                                                     Number(objectId)));
}

// Binds a text item to a string field of the record.
#define VORDPM_TEXT_ITEM(category, caption, record, Field)                                         \
    Add(category,                                                                                  \
        new CVorDPMPropertyGridItem(CVorDPMPropertyGridItem::Text, caption, record->Get##Field()), \
        [this](CVorDPMPropertyGridItem* item) { record->Set##Field(item->GetValue()); })

void CVorDPMProductEdit::AddPropertyItems() {
    QTreeWidgetItem* category = StartSection(tr("产品属性"), tr("产品属性定义"));
    AddId(category, m_property->GetObjectId());
    auto* propertyId =
        Add(category,
            new CVorDPMPropertyGridItem(CVorDPMPropertyGridItem::Number, tr("属性ID"),
                                        Number(m_property->GetPropertyId())),
            [this](CVorDPMPropertyGridItem* item) {
                m_property->SetPropertyId(VorDPMDecimal::LeadingInt(item->GetValue()));
            });
    propertyId->SetHasButton(true);
    m_pickers.insert(propertyId, [this, propertyId] { PickCommonProperty(propertyId); });
    VORDPM_TEXT_ITEM(category, tr("属性别名"), m_property, PropertyAlias);
    VORDPM_TEXT_ITEM(category, tr("参数名"), m_property, ParamAlias);
    VORDPM_TEXT_ITEM(category, tr("分类"), m_property, Chapter);
    auto* unit = Add(category,
                     new CVorDPMPropertyGridItem(CVorDPMPropertyGridItem::Combo, tr("单位"),
                                                 m_property->GetUnit()),
                     [this](CVorDPMPropertyGridItem* item) { PickUnit(item); });
    unit->SetOptions({Tr(kNoUnit), Tr(kChooseUnit)});
    VORDPM_TEXT_ITEM(category, tr("默认值"), m_property, DefValue);
    Add(category,
        new CVorDPMPropertyGridItem(CVorDPMPropertyGridItem::Bool, tr("系列化检查"),
                                    BoolText(m_property->GetSerialCheck())),
        [this](CVorDPMPropertyGridItem* item) {
            m_property->SetSerialCheck(FlagOf(item->GetValue()));
        });
    Add(category,
        new CVorDPMPropertyGridItem(CVorDPMPropertyGridItem::Bool, tr("系统属性"),
                                    BoolText(m_property->GetSystemProperty())),
        [this](CVorDPMPropertyGridItem* item) {
            m_property->SetSystemProperty(FlagOf(item->GetValue()));
        });
    VORDPM_TEXT_ITEM(category, tr("描述"), m_property, Description);
}

void CVorDPMProductEdit::AddImageItems() {
    QTreeWidgetItem* category = StartSection(tr("产品图片"), tr("实物图片库"));
    AddId(category, m_image->GetObjectId());
    VORDPM_TEXT_ITEM(category, tr("名字"), m_image, Name);
    AddPictureFile(category, tr("图片"), &CVorDPM_DPD_Image::SetImage, true);
    Add(category, new CVorDPMPropertyGridItem(CVorDPMPropertyGridItem::Number, tr("大小"),
                                              Number(m_image->GetImage().GetSize())));
    VORDPM_TEXT_ITEM(category, tr("描述"), m_image, Description);
    AddPictureFile(category, tr("2D"), &CVorDPM_DPD_Image::SetBlock2d, false);
    AddPictureFile(category, tr("3D"), &CVorDPM_DPD_Image::SetBlock3d, false);
    AddPictureFile(category, tr("sys"), &CVorDPM_DPD_Image::SetBlockSys, false);
    // Block use can be switched on here but never off: any change turns it on.
    Add(category,
        new CVorDPMPropertyGridItem(CVorDPMPropertyGridItem::Bool, tr("IsBlock"),
                                    BoolText(m_image->GetIsUsingBlock() == 1)),
        [this](CVorDPMPropertyGridItem* item) {
            m_image->SetIsUsingBlock(1);
            item->SetValue(BoolText(1));
        });
}

void CVorDPMProductEdit::AddPictureFile(QTreeWidgetItem* category, const QString& caption,
                                        void (CVorDPM_DPD_Image::*set)(const CBinaryData&),
                                        bool image) {
    // The record is captured itself rather than reached through this: GCC 12's vptr check
    // miscompiles a member-pointer call on a member reached through a lambda's captured this.
    Add(category, new CXTPPropertyGridItemFile(caption),
        [this, record = m_image, set, image](CVorDPMPropertyGridItem* item) {
            CBinaryData data;
            const QString problem = FileProblem(item->GetValue(), data, image);
            if (!problem.isEmpty()) {
                item->SetNote(problem);
                return;
            }
            (record->*set)(data);
            if (!image) return;
            if (CVorDPMPropertyGridItem* size = m_grid->FindItem(tr("大小")))
                size->SetValue(Number(data.GetSize()));
        });
}

void CVorDPMProductEdit::AddShapeItems() {
    QTreeWidgetItem* category = StartSection(tr("产品形体"), tr("参数化形体库"));
    AddId(category, m_shape->GetObjectId());
    auto* script = Add(category,
                       new CVorDPMPropertyGridItem(CVorDPMPropertyGridItem::Number, tr("DPS ID"),
                                                   Number(m_shape->GetDPSId())),
                       [this](CVorDPMPropertyGridItem* item) {
                           m_shape->SetDPSId(VorDPMDecimal::LeadingInt(item->GetValue()));
                           WriteShapeParamIndex();
                       });
    script->SetHasButton(true);
    m_pickers.insert(script, [this, script] { PickScript(script); });
    Add(category,
        new CVorDPMPropertyGridItem(CVorDPMPropertyGridItem::Text, tr("形体名称"),
                                    m_shape->GetName()),
        [this](CVorDPMPropertyGridItem* item) {
            m_shape->SetName(item->GetValue());
            WriteShapeParamIndex();
        });
    Add(category,
        new CVorDPMPropertyGridItem(CVorDPMPropertyGridItem::Text, tr("描述"),
                                    m_shape->GetDescription()),
        [this](CVorDPMPropertyGridItem* item) {
            m_shape->SetDescription(item->GetValue());
            WriteShapeParamIndex();
        });
}

// Each parameter of the shape that is the parameter name of a property definition and has no
// position yet gets that property's position in the definition's property list. Positions
// already set (the script editor lets the user choose them) are kept.
void CVorDPMProductEdit::WriteShapeParamIndex() {
    const std::vector<CVorDPM_DPD_Property*> properties =
        VorDPMDefinitionTables::LiveRows<CVorDPM_DPD_Property>(m_dpd);
    for (int position = 0; position < static_cast<int>(properties.size()); ++position) {
        const QString name = properties[position]->GetParamAlias();
        if (m_shape->GetParamIndex(name) < 0) m_shape->SetParamIndex(name, position);
    }
}

void CVorDPMProductEdit::AddProductItems() {
    QTreeWidgetItem* category = StartSection(tr("产品列表"), tr("产品列表"));
    AddId(category, m_product->GetObjectId());
    VORDPM_TEXT_ITEM(category, tr("产品名"), m_product, Name);
    VORDPM_TEXT_ITEM(category, tr("命名规则"), m_product, NameRule);
    VORDPM_TEXT_ITEM(category, tr("描述"), m_product, Description);
}

#undef VORDPM_TEXT_ITEM

void CVorDPMProductEdit::AddSerialItems() {
    QTreeWidgetItem* category = StartSection(tr("产品系列"), tr("产品系列化"));
    AddRelatedId(category, tr("产品ID"), CVorDPMRelatedDlg::Products, m_serial->GetProductId(),
                 &CVorDPM_DPD_Serial::SetProductId);
    AddRelatedId(category, tr("参数化形体库ID"), CVorDPMRelatedDlg::Shapes, m_serial->GetShapeId(),
                 &CVorDPM_DPD_Serial::SetShapeId);
    AddRelatedId(category, tr("实物图片ID"), CVorDPMRelatedDlg::Pictures, m_serial->GetImageId(),
                 &CVorDPM_DPD_Serial::SetImageId);
    QTreeWidgetItem* values = m_grid->AddCategory(tr("属性"), category);
    for (CVorDPM_DPD_Property* property : VorDPMDefinitionTables::ValueProperties(m_dpd)) {
        const int propertyObjectId = property->GetObjectId();
        // A new row starts from the properties' default values, and holds them.
        if (m_mode == NewRecord) m_serial->SetValue(property->GetDefValue(), propertyObjectId);
        Add(values,
            new CVorDPMPropertyGridItem(CVorDPMPropertyGridItem::Text, property->GetPropertyAlias(),
                                        m_serial->GetValue(propertyObjectId)),
            [this, propertyObjectId](CVorDPMPropertyGridItem* item) {
                m_serial->SetValue(item->GetValue(), propertyObjectId);
            });
    }
}

// The grid outlives this object while the dialog's widgets are destroyed, and an editor still
// open would then report its value: nothing may be written into the record by then.
CVorDPMProductEdit::~CVorDPMProductEdit() {
    m_grid->disconnect(this);
}

void CVorDPMProductEdit::AddRelatedId(QTreeWidgetItem* category, const QString& caption, int kind,
                                      int value, void (CVorDPM_DPD_Serial::*set)(const int&)) {
    auto* item =
        Add(category,
            new CVorDPMPropertyGridItem(CVorDPMPropertyGridItem::Number, caption, Number(value)),
            // Captures the record for the reason given in AddPictureFile.
            [record = m_serial, set](CVorDPMPropertyGridItem* changed) {
                (record->*set)(VorDPMDecimal::LeadingInt(changed->GetValue()));
            });
    item->SetHasButton(true);
    m_pickers.insert(item, [this, item, kind] { PickRelated(item, kind); });
}

void CVorDPMProductEdit::OnValueChanged(CVorDPMPropertyGridItem* item) {
    const auto writer = m_writers.constFind(item);
    if (writer != m_writers.constEnd()) (*writer)(item);
}

void CVorDPMProductEdit::OnButtonDown(CVorDPMPropertyGridItem* item) {
    const auto picker = m_pickers.constFind(item);
    if (picker != m_pickers.constEnd()) (*picker)();
}

void CVorDPMProductEdit::PickCommonProperty(CVorDPMPropertyGridItem* item) {
    CVorDPMDPODlg dialog(CVorDPMDPODlg::PropertyTable, this);
    if (CVorDPMUiService::Instance()->Exec(&dialog) != QDialog::Accepted) return;
    item->ChangeValue(dialog.selectedId);
    CVorDPMManager* manager = CVorDPMManager::GetVorDPMManager();
    CVorDPMCommonManager* common = manager ? manager->GetCommonManager() : nullptr;
    CVorDPMDPOProperty* table = common ? common->GetPropertyDPO() : nullptr;
    CVorDPM_DPOPROPERTY_Content* chosen = nullptr;
    if (table) table->GetContent(VorDPMDecimal::LeadingInt(dialog.selectedId), chosen, 0);
    if (!chosen) return;
    FillIfEmpty(tr("属性别名"), chosen->GetName());
    FillIfEmpty(tr("单位"), chosen->GetUnit());
    FillIfEmpty(tr("默认值"), chosen->GetDefaultValue());
}

void CVorDPMProductEdit::FillIfEmpty(const QString& caption, const QString& value) {
    CVorDPMPropertyGridItem* item = m_grid->FindItem(caption);
    if (item && item->GetValue().isEmpty()) item->ChangeValue(value);
}

// "<选择单位...>" asks the unit table for a unit; "无单位" stands for an empty unit; any other
// text is the unit as typed.
void CVorDPMProductEdit::PickUnit(CVorDPMPropertyGridItem* item) {
    QString unit = item->GetValue();
    if (unit == Tr(kNoUnit)) unit.clear();
    if (unit == Tr(kChooseUnit)) {
        CVorDPMDPODlg dialog(CVorDPMDPODlg::UnitTable, this);
        const bool chosen = CVorDPMUiService::Instance()->Exec(&dialog) == QDialog::Accepted;
        unit = chosen ? dialog.selectedUnit : m_property->GetUnit();
    }
    m_property->SetUnit(unit);
    item->SetValue(unit);
}

// A template's shapes pick from the template's own scripts, as a definition's do.
void CVorDPMProductEdit::PickScript(CVorDPMPropertyGridItem* item) {
    CVorDPMScriptEdit dialog(m_dpd, m_shape, m_draw, m_close, m_move, this);
    if (CVorDPMUiService::Instance()->Exec(&dialog) != QDialog::Accepted) return;
    item->ChangeValue(Number(dialog.GetChosenScriptId()));
}

void CVorDPMProductEdit::PickRelated(CVorDPMPropertyGridItem* item, int kind) {
    CVorDPMRelatedDlg dialog(m_dpd, kind, VorDPMDecimal::LeadingInt(item->GetValue()), this);
    if (CVorDPMUiService::Instance()->Exec(&dialog) != QDialog::Accepted) return;
    item->ChangeValue(Number(dialog.GetSelectedId()));
}

int CVorDPMProductEdit::CheckRecord() const {
    switch (m_kind) {
        case PropertyKind:
            return m_dpd->IsValid(m_property);
        case ImageKind:
            return m_dpd->IsValid(m_image);
        case ShapeKind:
            return m_dpd->IsValid(m_shape);
        case ProductKind:
            return m_dpd->IsValid(m_product);
        case SerialKind:
            return m_dpd->IsValid(m_serial);
    }
    return VOR::eFail;
}

void CVorDPMProductEdit::OnOK() {
    m_grid->CommitEditing();
    const int status = CheckRecord();
    if (m_kind == SerialKind) {
        // A series row without an existing product is refused without a message box; the
        // product item says why.
        if (status == VOR::eRequiredEmpty) {
            if (CVorDPMPropertyGridItem* product = m_grid->FindItem(tr("产品ID")))
                product->SetNote(tr("没有这个产品"));
            return;
        }
        accept();
        return;
    }
    if (status != VOR::eNameExists && status != VOR::eRequiredEmpty) {
        accept();
        return;
    }
    const CheckMessages& messages = kMessages[m_kind];
    const char* text = status == VOR::eNameExists ? messages.duplicate : messages.empty;
    CVorDPMUiService::Instance()->ShowMessage(this, Tr(text));
}
