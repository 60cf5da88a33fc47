// The product editor's series table used as a spreadsheet: rows are selected whole; Ctrl+C copies
// them as tab-separated text (what spreadsheets paste); Ctrl+V pastes such a block at the current
// cell (one value fills the current column of the selected rows), adding rows where it runs past
// the last; F2 or typing edits the current cell in place; Delete clears the current column of the
// selected rows. Each paste or edit is one command of the command manager, inside the one of the
// dialog that hosts the panel.
#pragma once

#include <QObject>
#include <QStringList>
#include <functional>
#include <optional>
#include <vector>

#include "FamilySeriesEdit.h"

class CVorDPMDPDBase;
class CVorDPMEditHistory;
class CVorDPMListCtrlEx;
class QKeyEvent;
class QLineEdit;

class CVorDPMSeriesSheet : public QObject {
    Q_OBJECT

public:
    // The in-place editor's object name.
    static const char* const kEditorName;

    // `refill` shows the store's rows in the list again after a change; each change is a step of
    // `history`.
    CVorDPMSeriesSheet(CVorDPMListCtrlEx* list, CVorDPMDPDBase* dpd, CVorDPMEditHistory* history,
                       std::function<void()> refill);

    // The selected rows as tab-separated rows, from the product column on.
    QString CopyText() const;
    // Pastes tab-separated rows at the current cell. False, after a message, when a cell is
    // refused.
    bool Paste(const QString& text);
    // Clears the current column's values in the selected rows.
    bool ClearSelection();
    // Opens the in-place editor on the current cell, starting with `typed`, else with the cell's
    // own text. Nothing for the ordinal and object id columns, which are not edited.
    void EditCurrent(const std::optional<QString>& typed = std::nullopt);
    // Drops an open in-place edit without writing it, as Escape does.
    void CloseEditor();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool HandleKey(QKeyEvent* event);
    // Writes the cells as one step of the history named `step`.
    bool Write(const QString& step, std::vector<FamilySeriesEdit::Cell> cells);
    void CommitEditor();
    // The selected rows, top to bottom.
    std::vector<int> SelectedRows() const;
    // Selects the rows from top to bottom after a refill, the current cell in `column`.
    void SelectRows(int top, int bottom, int column);

    CVorDPMListCtrlEx* m_list;
    CVorDPMDPDBase* m_dpd;
    CVorDPMEditHistory* m_history;
    std::function<void()> m_refill;
    QLineEdit* m_editor = nullptr;
    int m_editRow = -1;
    int m_editColumn = -1;
};
