// Creates a template of the platform or of a library under the name the user types, then opens
// it for editing.
#pragma once

#include "CVorDPMDialogBase.h"
#include "ExportVorDPMEditor.h"

class CVorDPMTreeComboBox;
class QComboBox;

class CVorDPMNewTemplateDlg : public CVorDPMDialogBase {
    Q_OBJECT

public:
    enum { IDD = 5212 };
    enum ControlId : int { IDC_LOCATION = 8038, IDC_TEMPLATE_NAME = 8010, IDC_NEXT = 8030 };

    CVorDPMNewTemplateDlg(PreviewDrawCallback draw, PreviewCloseCallback close,
                          PreviewMoveCallback move, QWidget* parent = nullptr);

protected:
    bool OnInitDialog() override;

private:
    void OnNext();

    CVorDPMTreeComboBox* m_location;
    QComboBox* m_name;
    PreviewDrawCallback m_pPreviewDrawCallback;
    PreviewCloseCallback m_pPreviewCloseCallback;
    PreviewMoveCallback m_pPreviewMoveCallback;
};
