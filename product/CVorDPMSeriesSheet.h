// The product editor's series table used as a spreadsheet: a block of cells is selected; Ctrl+C
// copies it as tab-separated text (what spreadsheets paste); Ctrl+V pastes such a block at the
// selection's first cell (one value fills the whole selection), adding rows where it runs past
// the last; F2 or typing edits a cell in place; Delete clears the selected values. Each paste or
// edit is one command of the command manager, inside the one of the dialog that hosts the panel.
#pragma once

#include <QObject>
#include <QStringList>
#include <functional>
#include <optional>
#include <vector>

#include "FamilySeriesEdit.h"

class CVorDPMDPDBase;
class CVorDPMListCtrlEx;
class QKeyEvent;
class QLineEdit;

class CVorDPMSeriesSheet : public QObject {
    Q_OBJECT

public:
    // The in-place editor's object name.
    static const char* const kEditorName;

    // `refill` shows the store's rows in the list again after a change.
    CVorDPMSeriesSheet(CVorDPMListCtrlEx* list, CVorDPMDPDBase* dpd, std::function<void()> refill);

    // The selected block as tab-separated rows; cells of the block that are not selected are
    // empty.
    QString CopyText() const;
    // Pastes tab-separated rows at the selection. False, after a message, when a cell is refused.
    bool Paste(const QString& text);
    // Clears the values of the selected cells.
    bool ClearSelection();
    // Opens the in-place editor on the current cell, starting with `typed`, else with the cell's
    // own text. Nothing for the ordinal and object id columns, which are not edited.
    void EditCurrent(const std::optional<QString>& typed = std::nullopt);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool HandleKey(QKeyEvent* event);
    bool Write(std::vector<FamilySeriesEdit::Cell> cells);
    void CommitEditor();
    void CloseEditor();
    // Selects the cells from (top, left) to (bottom, right) after a refill.
    void SelectBlock(int top, int left, int bottom, int right);

    CVorDPMListCtrlEx* m_list;
    CVorDPMDPDBase* m_dpd;
    std::function<void()> m_refill;
    QLineEdit* m_editor = nullptr;
    int m_editRow = -1;
    int m_editColumn = -1;
};
