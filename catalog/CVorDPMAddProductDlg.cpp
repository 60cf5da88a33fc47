#include "CVorDPMAddProductDlg.h"

#include <QGroupBox>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>

#include "CVorDPMContentAdder.h"
#include "CVorDPMDPD.h"
#include "CVorDPMTreeCtrlEx.h"
#include "CVorDPMUiService.h"
#include "common/VorDPMControlId.h"
#include "controls/CVorDPMListCtrlEx.h"
#include "controls/CVorDPMPictureCtrl.h"
#include "query/CVorDPMData.h"

namespace {

// The template's size and places, in dialog units. The classification group lies below the
// initial area on purpose: it comes into view when the user enlarges the dialog.
const QRect kDialogRect(0, 0, 420, 315);
const QRect kProductGroupRect(7, 7, 406, 280);
const QRect kTreeRect(14, 19, 190, 262);
const QRect kSeriesRect(212, 19, 194, 130);
const QRect kPictureRect(212, 153, 145, 128);
const QRect kOkRect(303, 293, 50, 14);
const QRect kCancelRect(359, 293, 50, 14);
const QRect kClassGroupRect(7, 331, 406, 26);
constexpr int kClassLabelTop = 341;
constexpr int kClassEditTop = 339;
constexpr int kClassStep = 134;  // horizontal distance between the three label/edit pairs

const int kEditIds[3] = {CVorDPMAddProductDlg::IDC_CLASS1, CVorDPMAddProductDlg::IDC_CLASS2,
                         CVorDPMAddProductDlg::IDC_CLASS3};
const int kLabelIds[3] = {CVorDPMAddProductDlg::IDC_CLASS1_LABEL,
                          CVorDPMAddProductDlg::IDC_CLASS2_LABEL,
                          CVorDPMAddProductDlg::IDC_CLASS3_LABEL};

}  // namespace

CVorDPMAddProductDlg::CVorDPMAddProductDlg(const QString& library, const QString& nodePath,
                                           QWidget* parent)
    : CVorDPMDialogBase(IDD, parent),
      m_library(library),
      m_nodePath(nodePath),
      m_productGroup(new QGroupBox(tr("产品信息"), this)),
      m_tree(new CVorDPMTreeCtrlEx(this)),
      m_series(new CVorDPMListCtrlEx(this)),
      m_picture(new CVorDPMPictureCtrl(this)),
      m_classGroup(new QGroupBox(tr("分类信息"), this)) {
    setWindowTitle(tr("添加包含产品"));
    CreateControls();
    connect(m_tree, &QTreeWidget::currentItemChanged, this,
            [this](QTreeWidgetItem* current) { OnProductChanged(current); });
    connect(m_series->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &CVorDPMAddProductDlg::OnSeriesChanged);
    connect(m_ok, &QPushButton::clicked, this, &CVorDPMAddProductDlg::OnOK);
}

void CVorDPMAddProductDlg::CreateControls() {
    VorDPMControlId::Set(m_productGroup, IDC_PRODUCT_GROUP);
    VorDPMControlId::Set(m_tree, IDC_PRODUCT_TREE);
    VorDPMControlId::Set(m_series, IDC_SERIES_LIST);
    VorDPMControlId::Set(m_picture, IDC_PICTURE);
    VorDPMControlId::Set(m_classGroup, IDC_CLASS_GROUP);
    resize(MapDialogRect(kDialogRect).size());
    m_productGroup->setGeometry(MapDialogRect(kProductGroupRect));
    m_classGroup->setGeometry(MapDialogRect(kClassGroupRect));
    // The product group is drawn behind the controls it frames.
    m_productGroup->lower();
    m_tree->setGeometry(MapDialogRect(kTreeRect));
    m_series->setGeometry(MapDialogRect(kSeriesRect));
    m_picture->setGeometry(MapDialogRect(kPictureRect));
    const QString labels[3] = {tr("分类1:"), tr("分类2:"), tr("分类3:")};
    for (int level = 0; level < 3; ++level) {
        const int left = 14 + level * kClassStep;
        m_classLabels[level] = new QLabel(labels[level], this);
        VorDPMControlId::Set(m_classLabels[level], kLabelIds[level]);
        m_classLabels[level]->setGeometry(MapDialogRect(QRect(left, kClassLabelTop, 28, 10)));
        m_classEdits[level] = new QLineEdit(this);
        VorDPMControlId::Set(m_classEdits[level], kEditIds[level]);
        m_classEdits[level]->setGeometry(MapDialogRect(QRect(left + 30, kClassEditTop, 94, 12)));
    }
    // The classification fields stay on top: once the dialog has grown enough to show them,
    // the product tree, which grows with it, reaches behind them.
    m_classGroup->raise();
    for (int level = 0; level < 3; ++level) {
        m_classLabels[level]->raise();
        m_classEdits[level]->raise();
    }
    std::tie(m_ok, m_cancel) = VorDPMControlId::AddOkCancel(this);
    m_ok->setGeometry(MapDialogRect(kOkRect));
    m_cancel->setGeometry(MapDialogRect(kCancelRect));
}

bool CVorDPMAddProductDlg::OnInitDialog() {
    CVorDPMDialogBase::OnInitDialog();
    QString class1, class2, class3;
    CVorDPMData::GetDPCType(m_nodePath, m_catalog, class1, class2, class3);
    m_classEdits[0]->setText(class1);
    m_classEdits[1]->setText(class2);
    m_classEdits[2]->setText(class3);
    m_tree->InsertTree(m_library);
    SetAnchors();
    AutoLoadPlacement(QStringLiteral("CVorDPMDialogBase"));
    return true;
}

// Fractions of the dialog's growth by which each edge moves. The picture's right edge follows
// three quarters of it, so a strip opens beside it as the dialog widens.
void CVorDPMAddProductDlg::SetAnchors() {
    SetResize(m_tree, {0, 0}, {0.5, 1});
    SetResize(m_series, {0.5, 0}, {1, 0.5});
    SetResize(m_picture, {0.5, 0.5}, {0.75, 1});
    SetResize(m_productGroup, {0, 0}, {1, 1});
    SetResize(m_classGroup, {0, 0}, {0, 0});
    for (int level = 0; level < 3; ++level) {
        SetResize(m_classEdits[level], {0, 0}, {0, 0});
        SetResize(m_classLabels[level], {0, 0}, {0, 0});
    }
    SetResize(m_ok, {1, 1}, {1, 1});
    SetResize(m_cancel, {1, 1}, {1, 1});
}

void CVorDPMAddProductDlg::OnProductChanged(QTreeWidgetItem* node) {
    m_productNode = node;
    m_listReady = 0;
    FillSeriesList(node);
    m_listReady = 1;
    m_picture->Clear();
    update();
}

// The first column numbers the rows; the row's cells follow from the second column on, the
// series row's id under "系列" and then one value under each property.
void CVorDPMAddProductDlg::FillSeriesList(QTreeWidgetItem* node) {
    m_series->DeleteAllItems();
    m_series->DeleteAllColumns();
    std::vector<QString> heads;
    m_tree->GetDataListColunmHead(node, heads);
    for (const QString& head : heads) m_series->InsertColumn(m_series->GetColumnCount(), head, 80);
    if (heads.empty()) return;
    std::vector<std::vector<QString>> rows;
    m_tree->GetDataListItemText(node, rows);
    for (const std::vector<QString>& cells : rows) {
        const int row = m_series->InsertItem(m_series->GetItemCount(),
                                             QString::number(m_series->GetItemCount() + 1));
        for (size_t column = 0; column < cells.size(); ++column)
            m_series->SetItemText(row, static_cast<int>(column) + 1, cells[column]);
        m_series->SetItemData(row, cells.empty() ? 0 : cells.front().toULongLong());
    }
}

void CVorDPMAddProductDlg::OnSeriesChanged() {
    if (!m_listReady || !m_productNode) return;
    CVorDPMDPD* dpd = nullptr;
    if (!m_tree->GetSelItemDPD(m_productNode, dpd)) return;
    const int row = m_series->GetSelectedRow();
    if (row < 0) return;
    CVorDPM_DPD_Serial* serial = nullptr;
    dpd->GetSerial(static_cast<int>(m_series->GetItemData(row)), serial, 0);
    if (!serial) return;
    CVorDPM_DPD_Image* image = nullptr;
    dpd->GetImage(serial->GetImageId(), image, 0);
    if (!image) return;
    // An empty picture leaves the one on display.
    m_picture->LoadFromBuffer(image->GetImage());
}

// Only leaves are products; a leaf right under the library root is an empty catalog.
void CVorDPMAddProductDlg::OnOK() {
    CVorDPMDPC* catalog = nullptr;
    CVorDPMData::GetDPCManger(m_library, m_catalog, catalog);
    const CVorDPMContentAdder adder(catalog, m_classEdits[0]->text(), m_classEdits[1]->text(),
                                    m_classEdits[2]->text());
    std::vector<QTreeWidgetItem*> checked;
    m_tree->GetAllCheckedItem(checked);
    const QTreeWidgetItem* firstRoot = m_tree->topLevelItem(0);
    for (const QTreeWidgetItem* node : checked) {
        if (node->childCount() > 0 || node->parent() == firstRoot) continue;
        const QString product = node->text(0);
        if (adder.Add(product) == CVorDPMContentAdder::AlreadyPresent)
            CVorDPMUiService::Instance()->ShowMessage(this, tr("产品：%1已被添加！").arg(product));
    }
    accept();
}
