#include "CVorDPMSeriesSheet.h"

#include <QApplication>
#include <QClipboard>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLineEdit>
#include <algorithm>

#include "CVorDPMUiService.h"
#include "FamilyCsvReader.h"
#include "FamilyProgress.h"
#include "FamilySheet.h"
#include "controls/CVorDPMListCtrlEx.h"
#include "product/CVorDPMEditHistory.h"
#include "product/VorDPMDefinitionTable.h"

const char* const CVorDPMSeriesSheet::kEditorName = "seriesCellEditor";

namespace {

// Columns before this one (ordinal and object id) are never written.
constexpr int kFirstWritableColumn = 2;

// A cell as spreadsheets copy it: quoted when it holds a tab, a line break or a quote.
QString CopiedCell(const QString& text) {
    if (!text.contains(QLatin1Char('\t')) && !text.contains(QLatin1Char('\n')) &&
        !text.contains(QLatin1Char('"')))
        return text;
    QString quoted = text;
    quoted.replace(QLatin1String("\""), QLatin1String("\"\""));
    return QLatin1Char('"') + quoted + QLatin1Char('"');
}

// Tab-separated rows, quoted cells included; trailing blank rows (a copied block ends with a
// line break) left out.
QList<QStringList> PastedRows(const QString& text, FamilyProblem& problem) {
    FamilySheet sheet;
    FamilyCsvReader::Text decoded{text, QStringLiteral("UTF-8"), false};
    QList<QStringList> rows;
    if (!FamilyCsvReader::Parse(decoded, QLatin1Char('\t'), sheet, problem, FamilyProgress::None()))
        return rows;
    qsizetype count = sheet.RowCount();
    while (count > 0 && sheet.IsBlankRow(count - 1) && sheet.CellCount(count - 1) <= 1) --count;
    for (qsizetype row = 0; row < count; ++row) {
        QStringList cells;
        for (qsizetype column = 0; column < sheet.CellCount(row); ++column)
            cells.append(sheet.Cell(row, column).toString());
        rows.append(cells);
    }
    return rows;
}

}  // namespace

CVorDPMSeriesSheet::CVorDPMSeriesSheet(CVorDPMListCtrlEx* list, CVorDPMDPDBase* dpd,
                                       CVorDPMEditHistory* history, std::function<void()> refill)
    : QObject(list), m_list(list), m_dpd(dpd), m_history(history), m_refill(std::move(refill)) {
    // Whole rows stay the unit of selection, as in every list of the editor; several rows may be
    // selected at once. The current cell (clicked, or moved with the arrow keys) says where a
    // paste starts and which column an edit, a fill or Delete writes.
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_list->installEventFilter(this);
}

QString CVorDPMSeriesSheet::CopyText() const {
    QString text;
    const int columns = m_list->model()->columnCount();
    for (int row : SelectedRows()) {
        QStringList cells;
        for (int column = kFirstWritableColumn; column < columns; ++column)
            cells.append(CopiedCell(m_list->model()->index(row, column).data().toString()));
        text += cells.join(QLatin1Char('\t')) + QLatin1Char('\n');
    }
    return text;
}

bool CVorDPMSeriesSheet::Paste(const QString& text) {
    FamilyProblem problem;
    const QList<QStringList> block = PastedRows(text, problem);
    if (problem.IsSet()) {
        CVorDPMUiService::Instance()->ShowMessage(m_list, problem.Message());
        return false;
    }
    if (block.isEmpty()) return false;
    const std::vector<int> rows = SelectedRows();
    // Without a current cell in a written column (none, or the ordinal or object id), a paste
    // starts at the first value column: a block copied from a spreadsheet holds values.
    const int current = m_list->currentIndex().column();
    const int left = current >= kFirstWritableColumn ? current : FamilySeriesEdit::kFixedColumns;
    // One value fills the current column of every selected row, as spreadsheets fill a block.
    if (block.size() == 1 && block.first().size() == 1 && rows.size() > 1) {
        std::vector<FamilySeriesEdit::Cell> cells;
        for (int row : rows) cells.push_back({row, left, block.first().first()});
        return Write(tr("粘贴"), std::move(cells));
    }
    const int top = rows.empty() ? m_list->model()->rowCount() : rows.front();
    if (!Write(tr("粘贴"), FamilySeriesEdit::Block(top, left, block))) return false;
    SelectRows(top, top + int(block.size()) - 1, left);
    return true;
}

bool CVorDPMSeriesSheet::ClearSelection() {
    const int column = m_list->currentIndex().column();
    if (column < FamilySeriesEdit::kFixedColumns) return false;
    std::vector<FamilySeriesEdit::Cell> cells;
    for (int row : SelectedRows()) cells.push_back({row, column, QString()});
    return !cells.empty() && Write(tr("清除"), std::move(cells));
}

std::vector<int> CVorDPMSeriesSheet::SelectedRows() const {
    std::vector<int> rows;
    for (const QModelIndex& index : m_list->selectionModel()->selectedRows())
        rows.push_back(index.row());
    std::sort(rows.begin(), rows.end());
    return rows;
}

bool CVorDPMSeriesSheet::Write(const QString& step, std::vector<FamilySeriesEdit::Cell> cells) {
    return m_history->Record(step, [&] {
        const int valueColumns = m_list->model()->columnCount() - FamilySeriesEdit::kFixedColumns;
        const QModelIndex current = m_list->currentIndex();
        FamilySeriesEdit edit(m_dpd, VorDPMDefinitionTables::LiveRows<CVorDPM_DPD_Serial>(m_dpd),
                              FamilySeriesEdit::SeriesColumns(m_dpd, std::max(valueColumns, 0)));
        FamilyProblem problem;
        if (!edit.Write(std::move(cells), problem)) {
            CVorDPMUiService::Instance()->ShowMessage(m_list, problem.Message());
            return false;
        }
        m_refill();
        if (current.isValid()) SelectRows(current.row(), current.row(), current.column());
        return true;
    });
}

void CVorDPMSeriesSheet::SelectRows(int top, int bottom, int column) {
    QAbstractItemModel* model = m_list->model();
    const QModelIndex first = model->index(top, column);
    const QModelIndex last = model->index(std::min(bottom, model->rowCount() - 1), column);
    if (!first.isValid() || !last.isValid()) return;
    m_list->selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
    m_list->selectionModel()->select(
        QItemSelection(first, last),
        QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void CVorDPMSeriesSheet::EditCurrent(const std::optional<QString>& typed) {
    const QModelIndex index = m_list->currentIndex();
    if (!index.isValid() || index.column() < kFirstWritableColumn || m_editor) return;
    m_editRow = index.row();
    m_editColumn = index.column();
    m_editor = new QLineEdit(typed.value_or(index.data().toString()), m_list->viewport());
    m_editor->setObjectName(QLatin1String(kEditorName));
    m_editor->setGeometry(m_list->visualRect(index));
    m_editor->installEventFilter(this);
    // Return, and leaving the editor, write the cell. A signal, not a focus event: a widget
    // being destroyed still gets its focus taken, but no longer emits.
    connect(m_editor, &QLineEdit::editingFinished, this, &CVorDPMSeriesSheet::CommitEditor);
    m_editor->show();
    m_editor->setFocus();
    if (!typed) m_editor->selectAll();
}

// The editor is let go before the write: a message about a refused value takes the focus away,
// which must not write again.
void CVorDPMSeriesSheet::CommitEditor() {
    if (!m_editor) return;
    const QString text = m_editor->text();
    CloseEditor();
    Write(tr("修改单元格"), {{m_editRow, m_editColumn, text}});
}

void CVorDPMSeriesSheet::CloseEditor() {
    QLineEdit* editor = m_editor;
    if (!editor) return;
    m_editor = nullptr;
    editor->removeEventFilter(this);
    disconnect(editor, nullptr, this, nullptr);
    editor->hide();
    // Out of the list at once; deleted later, as it may be inside its own key event now.
    editor->setParent(nullptr);
    editor->deleteLater();
    m_list->setFocus();
}

bool CVorDPMSeriesSheet::eventFilter(QObject* watched, QEvent* event) {
    // Escape drops the edit.
    if (m_editor && watched == m_editor) {
        if (event->type() != QEvent::KeyPress ||
            static_cast<QKeyEvent*>(event)->key() != Qt::Key_Escape)
            return false;
        CloseEditor();
        return true;
    }
    if (watched == m_list && event->type() == QEvent::KeyPress)
        return HandleKey(static_cast<QKeyEvent*>(event));
    return false;
}

bool CVorDPMSeriesSheet::HandleKey(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) {
        QApplication::clipboard()->setText(CopyText());
        return true;
    }
    if (event->matches(QKeySequence::Paste)) {
        Paste(QApplication::clipboard()->text());
        return true;
    }
    if (event->key() == Qt::Key_Delete) {
        ClearSelection();
        return true;
    }
    if (event->key() == Qt::Key_F2) {
        EditCurrent();
        return true;
    }
    const QString text = event->text();
    const bool plain = !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier));
    if (plain && !text.isEmpty() && text.front().isPrint()) {
        EditCurrent(text);
        return true;
    }
    return false;
}
