// The parametric script editor "参数化脚本编辑器": picks, writes and tests the preview script of
// one shape of a product definition or template, with the shape's parameter settings and test
// values, and asks the host to draw a live preview into the dialog.
//
// Open (e.g. from the shape record's "DPS ID" item):
//     CVorDPMScriptEdit dlg(dpd, shape, draw, close, move, this);
//     if (CVorDPMUiService::Instance()->Exec(&dlg) == QDialog::Accepted)
//         shape->SetDPSId(dlg.GetChosenScriptId());
// After OK the shape row's parameter settings (SetParam, SetParamType, SetParamIndex) are
// written; registering the shape row with the command manager is the caller's part. Scripts
// saved, added or deleted in the dialog are changed in the definition also after Cancel.
#pragma once

#include <QStyle>

#include "CVorDPMDialogBase.h"
#include "ExportVorDPMEditor.h"

class CVorDPMDPDBase;
class CVorDPMReportCtrlBase;
class CVorDPM_DPD_Dps;
class CVorDPM_DPD_Shape;
class CVorDPMlistCtrlBase;
class QFrame;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

class CVorDPMScriptEdit : public CVorDPMDialogBase {
    Q_OBJECT

public:
    enum { IDD = 5191 };
    enum ControlId : int {
        IDC_SCRIPT_GROUP = 1010,
        IDC_PREVIEW_AREA = 1012,
        IDC_NAME_LABEL = 1013,
        IDC_DESCRIPTION_LABEL = 1014,
        IDC_NAME = 8002,
        IDC_DESCRIPTION = 8003,
        IDC_NEW_SCRIPT = 8031,
        IDC_SAVE_SCRIPT = 8035,
        IDC_PREVIEW = 8037,
        IDC_DELETE_SCRIPT = 8071,
        IDC_SCRIPT_TEXT = 8082,
        IDC_SCRIPT_LIST = 8084,
        IDC_PARAMETERS = 8085,
    };

    // `dpd` and `shape` stay owned by the store and must outlive the dialog; either may be null
    // (the dialog then offers nothing to pick). Each callback may be null and is then not
    // called: draw on the preview button, move on every resize, close when the dialog is
    // destroyed.
    CVorDPMScriptEdit(CVorDPMDPDBase* dpd, CVorDPM_DPD_Shape* shape, PreviewDrawCallback draw,
                      PreviewCloseCallback close, PreviewMoveCallback move,
                      QWidget* parent = nullptr);
    // Tells the host that the preview's window goes away.
    ~CVorDPMScriptEdit() override;

    // The object id of the script selected when OK was pressed; 0 before.
    int GetChosenScriptId() const { return m_chosenScriptId; }
    // The selected row of the script list, -1 when none is.
    int GetSelectedScriptIndex() const;
    // The preview area in the dialog's client coordinates, as the host callbacks receive it.
    QRect PreviewRect() const;

protected:
    bool OnInitDialog() override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void CreateControls();
    void CreateParameterReport();
    void PlaceControls();
    void AnchorControls();
    QPushButton* AddToolButton(int id, QStyle::StandardPixmap icon, const QString& tip);

    void FillScriptList();
    void FillParameters();
    void OnScriptSelectionChanged();
    // The script of the selected row, or null when none is selected or the definition no
    // longer holds it.
    CVorDPM_DPD_Dps* SelectedScript() const;
    // True when a script is selected; otherwise tells the user `noSelection`.
    bool CheckSelection(const QString& noSelection);

    void OnNewScript();
    void OnSaveScript();
    void OnDeleteScript();
    void OnPreview();
    void OnOK();

    CVorDPMDPDBase* m_dpd;
    CVorDPM_DPD_Shape* m_shape;
    PreviewDrawCallback m_pPreviewDrawCallback;
    PreviewCloseCallback m_pPreviewCloseCallback;
    PreviewMoveCallback m_pPreviewMoveCallback;
    int m_chosenScriptId = 0;

    QWidget* m_scriptGroup;
    CVorDPMlistCtrlBase* m_scriptList;
    QWidget* m_nameLabel;
    QLineEdit* m_nameEdit;
    QWidget* m_descriptionLabel;
    QPlainTextEdit* m_descriptionEdit;
    QPlainTextEdit* m_scriptEdit;
    QPushButton* m_newButton;
    QPushButton* m_saveButton;
    QPushButton* m_deleteButton;
    QPushButton* m_previewButton;
    CVorDPMReportCtrlBase* m_parameters;
    QFrame* m_previewArea;
};
