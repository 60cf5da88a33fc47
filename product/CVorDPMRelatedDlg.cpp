#include "CVorDPMRelatedDlg.h"

#include <QVBoxLayout>
#include <memory>

#include "CVorDPMRecordRows.h"
#include "CVorDPMUiService.h"
#include "VorDPMDecimal.h"
#include "VorDPMDefinitionTable.h"
#include "common/VorDPMControlId.h"
#include "controls/CVorDPMlistCtrlBase.h"

namespace {

// Id, name and description of any of the three tables.
template <class TRecord>
std::unique_ptr<CVorDPMListRowSource> RowsOf(CVorDPMDPDBase* dpd, int currentId, int& currentRow) {
    std::vector<TRecord*> records = VorDPMDefinitionTables::LiveRows<TRecord>(dpd);
    for (int row = 0; row < static_cast<int>(records.size()); ++row)
        if (records[row]->GetObjectId() == currentId) currentRow = row;
    return std::make_unique<CVorDPMRecordRows<TRecord>>(
        std::move(records), [](const TRecord& record, int, int column) {
            switch (column) {
                case 0:
                    return QString::number(record.GetObjectId());
                case 1:
                    return record.GetName();
                case 2:
                    return record.GetDescription();
            }
            return QString();
        });
}

}  // namespace

CVorDPMRelatedDlg::CVorDPMRelatedDlg(CVorDPMDPDBase* dpd, int kind, int currentId, QWidget* parent)
    : CVorDPMDialogBase(0, parent), m_list(new CVorDPMlistCtrlBase(this)) {
    const QString captions[] = {tr("选择产品"), tr("选择形体"), tr("选择图片")};
    setWindowTitle(captions[qBound(0, kind, 2)]);
    VorDPMControlId::Set(m_list, IDC_RELATED_LIST);
    m_list->InsertColumn(0, tr("ID"), 50);
    m_list->InsertColumn(1, tr("名称"), 150);
    m_list->InsertColumn(2, tr("描述"), 150);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_list, 1);
    const auto buttons = VorDPMControlId::AddOkCancel(this);
    layout->addLayout(VorDPMControlId::OkCancelRow(buttons));
    connect(buttons.first, &QPushButton::clicked, this, &CVorDPMRelatedDlg::OnOK);
    connect(m_list, &QAbstractItemView::doubleClicked, this, &CVorDPMRelatedDlg::OnOK);
    resize(420, 320);
    Fill(dpd, kind, currentId);
}

bool CVorDPMRelatedDlg::OnInitDialog() {
    CVorDPMDialogBase::OnInitDialog();
    AutoLoadPlacement(QStringLiteral("CVorDPMRelatedDlg"));
    return true;
}

void CVorDPMRelatedDlg::Fill(CVorDPMDPDBase* dpd, int kind, int currentId) {
    int currentRow = -1;
    switch (kind) {
        case Products:
            m_list->SetRowSource(RowsOf<CVorDPM_DPD_Product>(dpd, currentId, currentRow));
            break;
        case Shapes:
            m_list->SetRowSource(RowsOf<CVorDPM_DPD_Shape>(dpd, currentId, currentRow));
            break;
        case Pictures:
            m_list->SetRowSource(RowsOf<CVorDPM_DPD_Image>(dpd, currentId, currentRow));
            break;
    }
    if (currentRow >= 0) m_list->SelectRow(currentRow);
}

void CVorDPMRelatedDlg::OnOK() {
    const int row = m_list->GetSelectedRow();
    if (row < 0) {
        CVorDPMUiService::Instance()->ShowMessage(this, tr("未选择项目, 请重新选择!"));
        return;
    }
    m_selectedId = VorDPMDecimal::LeadingInt(m_list->GetItemText(row, 0));
    accept();
}
