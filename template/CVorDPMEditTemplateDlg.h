// Chooses a template of the platform or of a library and opens it for editing.
#pragma once

#include "CVorDPMDialogBase.h"
#include "ExportVorDPMEditor.h"

class CVorDPMTreeComboBox;

class CVorDPMEditTemplateDlg : public CVorDPMDialogBase {
    Q_OBJECT

public:
    enum { IDD = 5213 };
    enum ControlId : int { IDC_TEMPLATE = 8038, IDC_OK = 8030 };

    CVorDPMEditTemplateDlg(PreviewDrawCallback draw, PreviewCloseCallback close,
                           PreviewMoveCallback move, QWidget* parent = nullptr);

    CVorDPMTreeComboBox* GetTemplateChooser() const { return m_template; }

protected:
    bool OnInitDialog() override;

private:
    void OnOK();

    CVorDPMTreeComboBox* m_template;
    PreviewDrawCallback m_pPreviewDrawCallback;
    PreviewCloseCallback m_pPreviewCloseCallback;
    PreviewMoveCallback m_pPreviewMoveCallback;
};
