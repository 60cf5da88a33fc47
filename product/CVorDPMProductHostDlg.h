// Base of the dialogs that host the product editor panel on a definition or a template and own
// its saving. The edits since the last save form one command of the command manager: a save
// commits it and writes the store; leaving the dialog any other way (Cancel, Escape, the
// window's close button) rolls it back, so the definition stays exactly as saved last.
#pragma once

#include <QPushButton>
#include <functional>

#include "CVorDPMDialogBase.h"
#include "ExportVorDPMEditor.h"

class CVorDPMCommand;
class CVorDPMDPDBase;
class CVorDPMEditProductDlg;
class QHBoxLayout;

class CVorDPMProductHostDlg : public CVorDPMDialogBase {
    Q_OBJECT

public:
    CVorDPMProductHostDlg(int templateId, CVorDPMDPDBase* dpd, PreviewDrawCallback draw,
                          PreviewCloseCallback close, PreviewMoveCallback move,
                          QWidget* parent = nullptr);
    // Rolls back edits not saved, also when the dialog never ended.
    ~CVorDPMProductHostDlg() override;

protected:
    // A button of the row; none is a default button, so Enter never closes the dialog.
    QPushButton* AddRowButton(int id, const QString& text);
    // Commits the edits and writes the store; with `keepEditing` a new command collects the
    // next edits. False, with a message, when writing failed.
    bool SaveEdits(bool keepEditing);
    void done(int result) override;

    CVorDPMEditProductDlg* Panel() const { return m_panel; }
    // Whether the panel changed anything since the last save.
    bool HasUnsavedEdits() const;
    // Runs `change`, a change that saves by itself, outside the command of the panel's edits,
    // which must have none: its command is the only one, so an abort of the panel's next edits
    // cannot undo what `change` saved. Afterwards the panel shows the store as it is.
    void ChangeOutsideEdits(const std::function<void()>& change);

private:
    void StartEdits();
    void AbortEdits();

    QHBoxLayout* m_buttons;
    CVorDPMEditProductDlg* m_panel;
    CVorDPMCommand* m_command = nullptr;
};
