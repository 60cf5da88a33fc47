#include "CVorDPMTableCreateDlg.h"

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTableWidget>
#include <QVBoxLayout>

#include "CVorDPMUiService.h"
#include "FamilyCreate.h"
#include "FamilyFileReader.h"
#include "common/VorDPMObjectName.h"
#include "common/VorDPMTabOrder.h"
#include "product/CVorDPMFamilyWork.h"

const char* const CVorDPMTableCreateDlg::kDialogName = "tableCreatePreview";
const char* const CVorDPMTableCreateDlg::kRowsName = "createRows";
const char* const CVorDPMTableCreateDlg::kHeaderRowName = "createHeaderRow";
const char* const CVorDPMTableCreateDlg::kNameName = "createName";
const char* const CVorDPMTableCreateDlg::kRuleName = "createRule";
const char* const CVorDPMTableCreateDlg::kSummaryName = "createSummary";
const char* const CVorDPMTableCreateDlg::kCreateName = "createDefinition";

namespace {

using VorDPMObjectName::Named;

// The rows shown to pick the header from: a title and notes above a header are a few lines.
constexpr int kShownRows = 20;
constexpr int kShownColumns = 60;

}  // namespace

CVorDPMTableCreateDlg::CVorDPMTableCreateDlg(FamilyCreate& create, const FamilyFile& file,
                                             const QString& name, QWidget* parent)
    : QDialog(parent),
      m_create(create),
      m_file(file),
      m_rows(Named(new QTableWidget(this), kRowsName)),
      m_headerRow(Named(new QSpinBox(this), kHeaderRowName)),
      m_name(Named(new QLineEdit(name, this), kNameName)),
      m_rule(Named(new QLineEdit(this), kRuleName)),
      m_summary(Named(new QLabel(this), kSummaryName)) {
    VorDPMTabOrder::FollowLayout(this);
    setObjectName(QLatin1String(kDialogName));
    setWindowTitle(tr("从表格新建产品"));
    resize(720, 520);

    const int rows = int(file.sheet.RowCount());
    m_headerRow->setRange(1, std::max(rows, 1));
    m_headerRow->setValue(FamilyTableLayout::ProposeHeaderRow(file) + 1);
    m_summary->setWordWrap(true);
    FillRows();

    auto* form = new QFormLayout;
    form->addRow(tr("表头所在行:"), m_headerRow);
    form->addRow(tr("产品名:"), m_name);
    form->addRow(tr("命名规则:"), m_rule);
    auto* buttons = new QDialogButtonBox(this);
    m_createButton =
        Named(buttons->addButton(tr("创建"), QDialogButtonBox::AcceptRole), kCreateName);
    buttons->addButton(tr("取消"), QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(tr("文件的前几行 (单击一行把它作为表头):"), this));
    layout->addWidget(m_rows, 1);
    layout->addLayout(form);
    layout->addWidget(m_summary);
    layout->addWidget(buttons);

    Plan();
    connect(m_headerRow, &QSpinBox::valueChanged, this, &CVorDPMTableCreateDlg::Plan);
    connect(m_rows, &QTableWidget::cellClicked, this,
            [this](int row) { m_headerRow->setValue(row + 1); });
    connect(m_name, &QLineEdit::textEdited, this, &CVorDPMTableCreateDlg::OnNameEdited);
}

void CVorDPMTableCreateDlg::FillRows() {
    const int rows = int(std::min<qsizetype>(m_file.sheet.RowCount(), kShownRows));
    const int columns = int(std::min<qsizetype>(m_file.sheet.Width(), kShownColumns));
    m_rows->setRowCount(rows);
    m_rows->setColumnCount(columns);
    m_rows->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_rows->setSelectionBehavior(QAbstractItemView::SelectRows);
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column)
            m_rows->setItem(row, column,
                            new QTableWidgetItem(m_file.sheet.Cell(row, column).toString()));
}

bool CVorDPMTableCreateDlg::Plan() {
    FamilyCreateOptions options;
    options.headerRow = m_headerRow->value() - 1;
    options.rule = m_rule->text() == m_proposedRule ? QString() : m_rule->text();
    const QString name = m_name->text().trimmed();
    const auto outcome = CVorDPMFamilyWork::OffThread(
        this, tr("正在读取表格..."),
        [&](FamilyProgress& progress) { return m_create.Plan(name, options, progress); });
    const bool planned = outcome == CVorDPMFamilyWork::Done;
    if (m_headerRow->value() - 1 < m_rows->rowCount()) m_rows->selectRow(m_headerRow->value() - 1);
    if (!planned) {
        m_summary->setText(outcome == CVorDPMFamilyWork::Cancelled
                               ? QString()
                               : tr("无法创建: %1").arg(m_create.Problem().Message()));
        m_createButton->setEnabled(false);
        return false;
    }
    if (options.rule.isEmpty()) {
        m_proposedRule = m_create.ProposedRule();
        m_rule->setText(m_proposedRule);
    }
    QStringList properties;
    for (const FamilyCreate::Column& column : m_create.Columns())
        if (!column.blank && column.fixed == FamilyFixedColumns::None)
            properties.append(column.param);
    m_summary->setText(tr("%1 个属性 (%2), %3 个系列行")
                           .arg(properties.size())
                           .arg(properties.join(QStringLiteral(", ")))
                           .arg(m_create.RowCount()));
    m_createButton->setEnabled(true);
    return true;
}

// The proposed rule starts with the name; it follows the name as it is typed.
void CVorDPMTableCreateDlg::OnNameEdited(const QString& name) {
    if (m_rule->text() != m_proposedRule) return;
    const QString planned = m_create.ProposedRule();
    const qsizetype keyPart = planned.indexOf(QLatin1Char('%'));
    m_proposedRule = name.trimmed() + (keyPart < 0 ? QString() : planned.mid(keyPart));
    m_rule->setText(m_proposedRule);
}

void CVorDPMTableCreateDlg::accept() {
    if (m_name->text().trimmed().isEmpty()) {
        CVorDPMUiService::Instance()->ShowMessage(this, tr("请输入产品名。"));
        return;
    }
    if (Plan()) QDialog::accept();
}

CVorDPMDPD* CVorDPMTableCreateDlg::Run(QWidget* parent, CVorDPMLibraryManager* library) {
    const QString caption = tr("从表格新建产品");
    QString path;
    FamilyFile file;
    if (!CVorDPMFamilyWork::OpenTable(parent, caption, path, file)) return nullptr;
    FamilyCreate create(library, file);
    CVorDPMTableCreateDlg dialog(create, file, QFileInfo(path).completeBaseName(), parent);
    if (CVorDPMUiService::Instance()->Exec(&dialog) != QDialog::Accepted) return nullptr;
    const auto outcome = CVorDPMFamilyWork::Here(parent, tr("正在创建产品..."),
                                                 [&](FamilyProgress& p) { return create.Run(p); });
    return CVorDPMFamilyWork::Succeeded(parent, outcome, create.Problem(), caption)
               ? create.Created()
               : nullptr;
}
