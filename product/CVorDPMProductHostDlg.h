// Base of the dialogs that host the product editor panel on a definition or a template and own
// its saving. The edits since the last save form one command of the command manager: a save
// commits it and writes the store; leaving the dialog any other way (Cancel, Escape, the
// window's close button) rolls it back, so the definition stays exactly as saved last.
#pragma once

#include <QPushButton>

#include "CVorDPMDialogBase.h"
#include "ExportVorDPMEditor.h"

class CVorDPMDPDBase;
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

private:
    void AbortEdits();

    QHBoxLayout* m_buttons;
    bool m_commandOpen = false;
};
