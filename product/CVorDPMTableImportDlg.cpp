#include "CVorDPMTableImportDlg.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include "FamilyDefinition.h"
#include "FamilyImport.h"
#include "common/VorDPMObjectName.h"
#include "common/VorDPMTabOrder.h"
#include "product/CVorDPMFamilyWork.h"
#include "product/CVorDPMTableImportModel.h"

using VorDPMObjectName::Named;

const char* const CVorDPMTableImportDlg::kDialogName = "tableImportPreview";
const char* const CVorDPMTableImportDlg::kKeyName = "importKey";
const char* const CVorDPMTableImportDlg::kColumnsName = "importColumns";
const char* const CVorDPMTableImportDlg::kRemoveName = "importRemoveMissing";
const char* const CVorDPMTableImportDlg::kSummaryName = "importSummary";
const char* const CVorDPMTableImportDlg::kChangesName = "importChanges";
const char* const CVorDPMTableImportDlg::kProblemsName = "importProblems";
const char* const CVorDPMTableImportDlg::kApplyName = "applyImport";

CVorDPMTableImportDlg::CVorDPMTableImportDlg(FamilyImport& import, const QString& fileName,
                                             QWidget* parent)
    : QDialog(parent),
      m_import(import),
      m_key(Named(new QComboBox(this), kKeyName)),
      m_columns(Named(new QListWidget(this), kColumnsName)),
      m_remove(Named(new QCheckBox(tr("删除文件中没有的系列行"), this), kRemoveName)),
      m_summary(Named(new QLabel(this), kSummaryName)),
      m_changes(Named(new QTableView(this), kChangesName)),
      m_problems(Named(new QListWidget(this), kProblemsName)),
      m_model(new CVorDPMTableImportModel(import, this)) {
    VorDPMTabOrder::FollowLayout(this);
    setObjectName(QLatin1String(kDialogName));
    setWindowTitle(tr("导入表格: %1").arg(fileName));
    resize(720, 560);

    auto* choices = new QFormLayout;
    choices->addRow(tr("关键列:"), m_key);
    choices->addRow(tr("列:"), m_columns);
    choices->addRow(QString(), m_remove);
    m_columns->setMaximumHeight(120);
    m_changes->setModel(m_model);
    m_changes->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_changes->horizontalHeader()->setStretchLastSection(true);
    m_changes->verticalHeader()->hide();
    m_changes->setColumnWidth(CVorDPMTableImportModel::KindColumn, 150);
    m_changes->setColumnWidth(CVorDPMTableImportModel::KeyColumn, 160);
    m_problems->setMaximumHeight(90);
    m_summary->setWordWrap(true);

    auto* buttons = new QDialogButtonBox(this);
    m_apply = Named(buttons->addButton(tr("导入"), QDialogButtonBox::AcceptRole), kApplyName);
    buttons->addButton(tr("取消"), QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(choices);
    layout->addWidget(m_summary);
    layout->addWidget(m_changes, 1);
    layout->addWidget(m_problems);
    layout->addWidget(buttons);

    m_remove->setChecked(import.Options().removeMissing);
    FillKeys();
    ShowResult();
    connect(m_key, &QComboBox::activated, this, &CVorDPMTableImportDlg::Compare);
    connect(m_remove, &QCheckBox::toggled, this, &CVorDPMTableImportDlg::Compare);
    connect(m_columns, &QListWidget::itemChanged, this, &CVorDPMTableImportDlg::Compare);
}

void CVorDPMTableImportDlg::FillKeys() {
    const FamilyTableLayout& layout = m_import.Layout();
    for (int column = 0; column < layout.ColumnCount(); ++column) {
        if (layout.IsBlank(column)) continue;
        m_key->addItem(layout.HeadingText(column), column);
        if (column == m_import.KeyColumn()) m_key->setCurrentIndex(m_key->count() - 1);
    }
}

// Columns that match no property can be ticked to become new properties.
void CVorDPMTableImportDlg::FillColumns() {
    const QSignalBlocker quiet(m_columns);
    m_columns->clear();
    const auto& columns = m_import.Columns();
    for (int column = 0; column < int(columns.size()); ++column) {
        const FamilyImportColumn::Role role = columns[size_t(column)].role;
        if (role == FamilyImportColumn::Blank) continue;
        auto* item = new QListWidgetItem(ColumnText(column), m_columns);
        item->setData(Qt::UserRole, column);
        if (role == FamilyImportColumn::Unmatched || role == FamilyImportColumn::Added)
            item->setCheckState(role == FamilyImportColumn::Added ? Qt::Checked : Qt::Unchecked);
    }
}

QString CVorDPMTableImportDlg::ColumnText(int column) const {
    const FamilyImportColumn& mapped = m_import.Columns()[size_t(column)];
    const QString heading = m_import.Layout().HeadingText(column);
    const auto property = [&] {
        return m_import.Definition().Properties()[size_t(mapped.property)];
    };
    switch (mapped.role) {
        case FamilyImportColumn::Fixed:
            return tr("%1: 产品表的列").arg(heading);
        case FamilyImportColumn::Property:
            return tr("%1 → 属性 %2").arg(heading, property().param);
        case FamilyImportColumn::UnitMismatch:
            return tr("%1: 单位与属性 %2 的单位 \"%3\" 不同, 跳过")
                .arg(heading, property().param, property().unit);
        case FamilyImportColumn::Unmatched:
            return tr("%1: 没有对应的属性, 跳过 (勾选则添加为新属性)").arg(heading);
        case FamilyImportColumn::Added:
            return tr("%1: 添加为新属性").arg(heading);
        case FamilyImportColumn::Blank:
            break;
    }
    return heading;
}

void CVorDPMTableImportDlg::Compare() {
    FamilyImportOptions options = m_import.Options();
    options.keyColumn = m_key->currentData().toInt();
    options.removeMissing = m_remove->isChecked();
    options.addAllColumns = false;
    options.addColumns.clear();
    for (int row = 0; row < m_columns->count(); ++row) {
        const QListWidgetItem* item = m_columns->item(row);
        if (item->checkState() == Qt::Checked)
            options.addColumns.push_back(item->data(Qt::UserRole).toInt());
    }
    m_model->Show(false);
    CVorDPMFamilyWork::OffThread(this, tr("正在比较表格..."), [this, options](FamilyProgress& p) {
        return m_import.Compare(options, p);
    });
    ShowResult();
}

void CVorDPMTableImportDlg::ShowResult() {
    FillColumns();
    m_model->Show(!m_import.Refusal().IsSet());
    m_problems->clear();
    for (const FamilyProblem& misfit : m_import.Misfits()) m_problems->addItem(misfit.Message());
    const int unlisted = m_import.MisfitCount() - int(m_import.Misfits().size());
    if (unlisted > 0) m_problems->addItem(tr("另有 %1 个单元格不合适").arg(unlisted));
    m_problems->setVisible(m_problems->count() > 0);
    if (m_import.Refusal().IsSet())
        m_summary->setText(tr("无法导入: %1").arg(m_import.Refusal().Message()));
    else if (m_import.MisfitCount() > 0)
        m_summary->setText(tr("%1 个单元格与属性不符, 无法导入").arg(m_import.MisfitCount()));
    else if (!m_import.HasChanges())
        m_summary->setText(tr("没有变化"));
    else
        m_summary->setText(tr("新增 %1 行, 修改 %2 行, 不变 %3 行, 文件中没有 %4 行")
                               .arg(m_import.AddedCount())
                               .arg(m_import.ChangedCount())
                               .arg(m_import.UnchangedCount())
                               .arg(m_import.MissingCount()));
    m_apply->setEnabled(m_import.CanApply() && m_import.HasChanges());
}
