#include "CVorDPMSeriesSheet.h"

#include <QApplication>
#include <QClipboard>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLineEdit>

#include "CVorDPMUiService.h"
#include "FamilyCsvReader.h"
#include "FamilyProgress.h"
#include "FamilySheet.h"
#include "controls/CVorDPMListCtrlEx.h"
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
                                       std::function<void()> refill)
    : QObject(list), m_list(list), m_dpd(dpd), m_refill(std::move(refill)) {
    m_list->setSelectionBehavior(QAbstractItemView::SelectItems);
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_list->installEventFilter(this);
}

QString CVorDPMSeriesSheet::CopyText() const {
    const QModelIndexList selected = m_list->selectionModel()->selectedIndexes();
    if (selected.isEmpty()) return QString();
    int top = selected.first().row(), bottom = top;
    int left = selected.first().column(), right = left;
    for (const QModelIndex& index : selected) {
        top = std::min(top, index.row());
        bottom = std::max(bottom, index.row());
        left = std::min(left, index.column());
        right = std::max(right, index.column());
    }
    QString text;
    for (int row = top; row <= bottom; ++row) {
        QStringList cells;
        for (int column = left; column <= right; ++column) {
            const QModelIndex index = m_list->model()->index(row, column);
            const bool shown = m_list->selectionModel()->isSelected(index);
            cells.append(shown ? CopiedCell(index.data().toString()) : QString());
        }
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
    const QModelIndexList selected = m_list->selectionModel()->selectedIndexes();
    // One value fills every selected cell, as spreadsheets do.
    if (block.size() == 1 && block.first().size() == 1 && selected.size() > 1) {
        std::vector<FamilySeriesEdit::Cell> cells;
        for (const QModelIndex& index : selected)
            cells.push_back({index.row(), index.column(), block.first().first()});
        return Write(std::move(cells));
    }
    QModelIndex start = m_list->currentIndex();
    for (const QModelIndex& index : selected)
        if (!start.isValid() || index.row() < start.row() ||
            (index.row() == start.row() && index.column() < start.column()))
            start = index;
    const int top = start.isValid() ? start.row() : m_list->model()->rowCount();
    const int left = start.isValid() ? start.column() : FamilySeriesEdit::kFixedColumns;
    int width = 0;
    for (const QStringList& row : block) width = std::max(width, int(row.size()));
    if (!Write(FamilySeriesEdit::Block(top, left, block))) return false;
    SelectBlock(top, left, top + int(block.size()) - 1, left + width - 1);
    return true;
}

bool CVorDPMSeriesSheet::ClearSelection() {
    std::vector<FamilySeriesEdit::Cell> cells;
    for (const QModelIndex& index : m_list->selectionModel()->selectedIndexes())
        if (index.column() >= FamilySeriesEdit::kFixedColumns)
            cells.push_back({index.row(), index.column(), QString()});
    return !cells.empty() && Write(std::move(cells));
}

bool CVorDPMSeriesSheet::Write(std::vector<FamilySeriesEdit::Cell> cells) {
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
    if (current.isValid())
        SelectBlock(current.row(), current.column(), current.row(), current.column());
    return true;
}

void CVorDPMSeriesSheet::SelectBlock(int top, int left, int bottom, int right) {
    QAbstractItemModel* model = m_list->model();
    const QModelIndex first = model->index(top, left);
    const QModelIndex last = model->index(std::min(bottom, model->rowCount() - 1),
                                          std::min(right, model->columnCount() - 1));
    if (!first.isValid() || !last.isValid()) return;
    m_list->selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
    m_list->selectionModel()->select(QItemSelection(first, last),
                                     QItemSelectionModel::ClearAndSelect);
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
    Write({{m_editRow, m_editColumn, text}});
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
