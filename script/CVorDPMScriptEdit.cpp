#include "CVorDPMScriptEdit.h"

#include <QFrame>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

#include "CVorDPMDPDBase.h"
#include "CVorDPMDPOProperty.h"
#include "CVorDPMReportCtrlBase.h"
#include "CVorDPMUiService.h"
#include "VorDPMFunctions.h"
#include "common/VorDPMControlId.h"
#include "controls/CVorDPMlistCtrlBase.h"
#include "query/CVorDPMData.h"
#include "script/CVorDPMNewScriptDlg.h"
#include "script/CVorDPMScriptCodeEdit.h"
#include "script/CVorDPMScriptParamDelegate.h"
#include "script/CVorDPMScriptParams.h"
#include "script/VorDPMScriptText.h"

namespace {

// The dialog's layout in dialog units: the script choice and text above, the parameters and
// the preview below.
const QRect kSize(0, 0, 560, 320);
const QRect kScriptGroup(7, 7, 546, 160);
const QRect kScriptList(14, 19, 110, 120);
const QRect kNameLabel(132, 21, 24, 8);
const QRect kName(158, 19, 388, 13);
const QRect kDescriptionLabel(132, 37, 24, 8);
const QRect kDescription(158, 35, 388, 24);
const QRect kScriptText(132, 63, 414, 97);
const QSize kToolButton(16, 14);
const QPoint kFirstToolButton(14, 143);
// Wide enough for the four columns of the parameter report.
const QRect kParameters(7, 172, 290, 120);
const QRect kPreviewArea(303, 172, 250, 120);
const QRect kOk(449, 299, 50, 14);
const QRect kCancel(503, 299, 50, 14);

const int kParameterWidths[] = {130, 100, 80, 100};

}  // namespace

CVorDPMScriptEdit::CVorDPMScriptEdit(CVorDPMDPDBase* dpd, CVorDPM_DPD_Shape* shape,
                                     PreviewDrawCallback draw, PreviewCloseCallback close,
                                     PreviewMoveCallback move, QWidget* parent)
    : CVorDPMDialogBase(IDD, parent),
      m_dpd(dpd),
      m_shape(shape),
      m_pPreviewDrawCallback(draw),
      m_pPreviewCloseCallback(close),
      m_pPreviewMoveCallback(move) {
    setWindowTitle(tr("参数化脚本编辑器"));
    CreateControls();
    PlaceControls();
}

CVorDPMScriptEdit::~CVorDPMScriptEdit() {
    if (m_pPreviewCloseCallback) m_pPreviewCloseCallback();
}

void CVorDPMScriptEdit::CreateControls() {
    m_scriptGroup = new QGroupBox(tr("选择脚本"), this);
    m_scriptList = new CVorDPMlistCtrlBase(this);
    m_nameLabel = new QLabel(tr("名称:"), this);
    m_nameEdit = new QLineEdit(this);
    m_descriptionLabel = new QLabel(tr("描述:"), this);
    m_descriptionEdit = new QPlainTextEdit(this);
    // Tab moves on: a description has no use for tab characters, unlike the script text.
    m_descriptionEdit->setTabChangesFocus(true);
    m_scriptEdit = new CVorDPMScriptCodeEdit(this);
    m_newButton = AddToolButton(IDC_NEW_SCRIPT, QStyle::SP_FileIcon, tr("新建脚本"));
    m_saveButton = AddToolButton(IDC_SAVE_SCRIPT, QStyle::SP_DialogSaveButton, tr("保存脚本"));
    m_deleteButton = AddToolButton(IDC_DELETE_SCRIPT, QStyle::SP_TrashIcon, tr("删除脚本"));
    m_previewButton = AddToolButton(IDC_PREVIEW, QStyle::SP_MediaPlay, tr("预览"));
    m_previewArea = new QFrame(this);
    m_previewArea->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);

    const std::pair<QWidget*, int> ids[] = {
        {m_scriptGroup, IDC_SCRIPT_GROUP},
        {m_scriptList, IDC_SCRIPT_LIST},
        {m_nameLabel, IDC_NAME_LABEL},
        {m_nameEdit, IDC_NAME},
        {m_descriptionLabel, IDC_DESCRIPTION_LABEL},
        {m_descriptionEdit, IDC_DESCRIPTION},
        {m_scriptEdit, IDC_SCRIPT_TEXT},
        {m_previewArea, IDC_PREVIEW_AREA},
    };
    for (const auto& [control, id] : ids) VorDPMControlId::Set(control, id);

    m_scriptList->InsertColumn(0, tr("脚本"), 0);
    m_scriptList->horizontalHeader()->hide();
    m_scriptList->horizontalHeader()->setStretchLastSection(true);
    connect(m_scriptList->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &CVorDPMScriptEdit::OnScriptSelectionChanged);
    CreateParameterReport();

    const auto [ok, cancel] = VorDPMControlId::AddOkCancel(this);
    ok->setGeometry(MapDialogRect(kOk));
    cancel->setGeometry(MapDialogRect(kCancel));
    connect(ok, &QPushButton::clicked, this, &CVorDPMScriptEdit::OnOK);
    connect(m_newButton, &QPushButton::clicked, this, &CVorDPMScriptEdit::OnNewScript);
    connect(m_saveButton, &QPushButton::clicked, this, &CVorDPMScriptEdit::OnSaveScript);
    connect(m_deleteButton, &QPushButton::clicked, this, &CVorDPMScriptEdit::OnDeleteScript);
    connect(m_previewButton, &QPushButton::clicked, this, &CVorDPMScriptEdit::OnPreview);
}

void CVorDPMScriptEdit::CreateParameterReport() {
    // The report takes the place (and the id) of its placeholder.
    auto* placeholder = new QWidget(this);
    VorDPMControlId::Set(placeholder, IDC_PARAMETERS);
    placeholder->setGeometry(MapDialogRect(kParameters));
    m_parameters = new CVorDPMReportCtrlBase(this);
    m_parameters->CreateFromResource(placeholder);
    m_parameters->SetColumnHeads(
        {tr("脚本参数"), tr("类型"), tr("顺序"), tr("测试值")},
        std::vector<int>(std::begin(kParameterWidths), std::end(kParameterWidths)));
    m_parameters->GetRecords()->SetEditableColumns({CVorDPMScriptParams::CategoryColumn,
                                                    CVorDPMScriptParams::OrderColumn,
                                                    CVorDPMScriptParams::TestValueColumn});
    m_parameters->setItemDelegate(new CVorDPMScriptParamDelegate(m_parameters));
    // Typing into a cell starts editing it, as in a spreadsheet.
    m_parameters->setEditTriggers(QAbstractItemView::DoubleClicked |
                                  QAbstractItemView::EditKeyPressed |
                                  QAbstractItemView::AnyKeyPressed);
}

QPushButton* CVorDPMScriptEdit::AddToolButton(int id, QStyle::StandardPixmap icon,
                                              const QString& tip) {
    QPushButton* button = VorDPMControlId::AddButton(this, id, QString());
    button->setIcon(style()->standardIcon(icon));
    button->setToolTip(tip);
    button->setAutoDefault(false);
    return button;
}

void CVorDPMScriptEdit::PlaceControls() {
    resize(MapDialogRect(kSize).size());
    const std::pair<QWidget*, QRect> placed[] = {
        {m_scriptGroup, kScriptGroup},
        {m_scriptList, kScriptList},
        {m_nameLabel, kNameLabel},
        {m_nameEdit, kName},
        {m_descriptionLabel, kDescriptionLabel},
        {m_descriptionEdit, kDescription},
        {m_scriptEdit, kScriptText},
        {m_previewArea, kPreviewArea},
    };
    for (const auto& [control, rect] : placed) control->setGeometry(MapDialogRect(rect));
    QPushButton* const tools[] = {m_newButton, m_saveButton, m_deleteButton, m_previewButton};
    QPoint at = kFirstToolButton;
    for (QPushButton* button : tools) {
        button->setGeometry(MapDialogRect(QRect(at, kToolButton)));
        at.rx() += kToolButton.width() + 2;
    }
    // The group box only frames the controls drawn over it.
    m_scriptGroup->lower();
}

void CVorDPMScriptEdit::AnchorControls() {
    using A = CVorDPMAnchorResizer;
    const QPointF middleLeft(0.0, 0.5), middleRight(1.0, 0.5), centre(0.5, 0.5);
    SetResize(m_scriptGroup, A::TopLeft, middleRight);
    SetResize(m_scriptList, A::TopLeft, middleLeft);
    for (QPushButton* button : {m_newButton, m_saveButton, m_deleteButton, m_previewButton})
        SetResize(button, middleLeft, middleLeft);
    SetResize(m_nameLabel, A::TopLeft, A::TopLeft);
    SetResize(m_descriptionLabel, A::TopLeft, A::TopLeft);
    SetResize(m_nameEdit, A::TopLeft, A::TopRight);
    SetResize(m_descriptionEdit, A::TopLeft, A::TopRight);
    SetResize(m_scriptEdit, A::TopLeft, middleRight);
    SetResize(m_parameters, middleLeft, QPointF(0.5, 1.0));
    SetResize(m_previewArea, centre, A::BottomRight);
    for (int id : {VorDPMControlId::IDOK, VorDPMControlId::IDCANCEL})
        SetResize(VorDPMControlId::Find<QPushButton>(this, id), A::BottomRight, A::BottomRight);
}

bool CVorDPMScriptEdit::OnInitDialog() {
    CVorDPMDialogBase::OnInitDialog();
    FillScriptList();
    FillParameters();
    AnchorControls();
    AutoLoadPlacement(QStringLiteral("CVorDPMScriptEdit"));
    return true;
}

QRect CVorDPMScriptEdit::PreviewRect() const {
    return QRect(m_previewArea->mapTo(this, QPoint(0, 0)), m_previewArea->size());
}

void CVorDPMScriptEdit::resizeEvent(QResizeEvent* event) {
    CVorDPMDialogBase::resizeEvent(event);
    if (m_pPreviewMoveCallback && windowHandle()) m_pPreviewMoveCallback(PreviewRect());
}

void CVorDPMScriptEdit::FillScriptList() {
    // Whatever was shown belonged to the rows that go away now.
    m_nameEdit->clear();
    m_descriptionEdit->clear();
    m_scriptEdit->clear();
    m_scriptList->DeleteAllItems();
    CKZList<CVorDPM_DPD_Dps*> scripts;
    if (m_dpd) m_dpd->GetAllDps(scripts, 0);
    int row = 0;
    for (CVorDPM_DPD_Dps* script : scripts) {
        m_scriptList->InsertItem(row, script->GetName());
        m_scriptList->SetItemData(row, static_cast<quint64>(script->GetObjectId()));
        ++row;
    }
    if (!m_shape) return;
    for (row = 0; row < m_scriptList->GetItemCount(); ++row) {
        if (m_scriptList->GetItemData(row) != static_cast<quint64>(m_shape->GetDPSId())) continue;
        m_scriptList->SelectRow(row);
        m_scriptList->setFocus();
        return;
    }
}

int CVorDPMScriptEdit::GetSelectedScriptIndex() const {
    return m_scriptList->GetSelectedRow();
}

void CVorDPMScriptEdit::OnScriptSelectionChanged() {
    const CVorDPM_DPD_Dps* script = SelectedScript();
    if (!script) return;
    m_nameEdit->setText(script->GetName());
    m_descriptionEdit->setPlainText(script->GetDescription());
    m_scriptEdit->setPlainText(VorDPMScriptText::FromContent(script->GetContent()));
}

CVorDPM_DPD_Dps* CVorDPMScriptEdit::SelectedScript() const {
    const int row = GetSelectedScriptIndex();
    if (!m_dpd || row < 0) return nullptr;
    const int objectId = static_cast<int>(m_scriptList->GetItemData(row));
    CVorDPM_DPD_Dps* script = nullptr;
    if (m_dpd->GetDps(objectId, script, 0) != VOR::eOk) return nullptr;
    return script;
}

void CVorDPMScriptEdit::FillParameters() {
    m_parameters->GetRecords()->RemoveAllRecords();
    CVorDPMDPOProperty* common = nullptr;
    if (!m_dpd || !CVorDPMData::GetDPOProperty(common) || !common) return;
    CKZList<CVorDPM_DPD_Property*> properties;
    m_dpd->GetAllProperty(properties, 0);
    for (CVorDPM_DPD_Property* property : properties) {
        CVorDPM_DPOPROPERTY_Content* definition = nullptr;
        if (common->GetContent(property->GetPropertyId(), definition, 0) != VOR::eOk || !definition)
            continue;
        const QString alias = property->GetParamAlias();
        const int category = m_shape ? m_shape->GetParamType(alias) : -1;
        const int order = m_shape ? m_shape->GetParamIndex(alias) : -1;
        auto* record = new CVorDPMReportRecord;
        record->AddTextItem(alias);
        record->AddTextItem(CVorDPMScriptParams::CategoryText(category));
        record->AddTextItem(QString::asprintf("%d", order));
        record->AddTextItem(property->GetDefValue(),
                            static_cast<quint64>(definition->GetValueType()));
        m_parameters->GetRecords()->AddRecord(record);
    }
}

void CVorDPMScriptEdit::OnNewScript() {
    CVorDPMNewScriptDlg dialog(m_dpd, this);
    CVorDPMUiService::Instance()->Exec(&dialog);
    FillScriptList();
}

bool CVorDPMScriptEdit::CheckSelection(const QString& noSelection) {
    if (GetSelectedScriptIndex() >= 0) return true;
    CVorDPMUiService::Instance()->ShowMessage(this, noSelection);
    return false;
}

void CVorDPMScriptEdit::OnSaveScript() {
    if (!CheckSelection(tr("请选择需要保存的脚本"))) return;
    CVorDPM_DPD_Dps* script = SelectedScript();
    if (!script) return;
    script->SetName(m_nameEdit->text());
    script->SetDescription(m_descriptionEdit->toPlainText());
    script->SetContent(VorDPMScriptText::ToContent(m_scriptEdit->toPlainText()));
    // The list shows the saved name at once.
    m_scriptList->SetItemText(GetSelectedScriptIndex(), 0, script->GetName());
}

void CVorDPMScriptEdit::OnDeleteScript() {
    if (!CheckSelection(tr("请选择脚本"))) return;
    CVorDPM_DPD_Dps* script = SelectedScript();
    if (!script) return;
    script->SetDeleted(1);
    FillScriptList();
}

void CVorDPMScriptEdit::OnPreview() {
    const VorDPMScriptText::Bytes script = VorDPMScriptText::ToBytes(m_scriptEdit->toPlainText());
    const CVorDPMScriptParams::PreviewMaps maps =
        CVorDPMScriptParams::CollectPreview(*m_parameters->GetRecords());
    const QString key = VOR::CreateGuid();
    if (!m_pPreviewDrawCallback) return;
    m_pPreviewDrawCallback(PreviewRect(), this, key, script.data.get(), maps.params, maps.values);
}

void CVorDPMScriptEdit::OnOK() {
    if (!CheckSelection(tr("请选择脚本"))) return;
    m_chosenScriptId = static_cast<int>(m_scriptList->GetItemData(GetSelectedScriptIndex()));
    if (m_shape) {
        const CVorDPMScriptParams::ShapeSettings settings =
            CVorDPMScriptParams::CollectShapeSettings(*m_parameters->GetRecords());
        m_shape->SetParam(settings.names);
        m_shape->SetParamType(settings.categories);
        m_shape->SetParamIndex(settings.orders);
    }
    accept();
}
