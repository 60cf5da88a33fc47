// The version history of a library, catalog or product definition: lists its version records
// and adds and changes them through the store.
#pragma once

#include "CVorDPMDialogBase.h"

class CVorDPMDBBase;
class CVorDPMReportCtrlBase;
class CVorDPM_Version;
class QPushButton;

class CVorDPMVersionDlg : public CVorDPMDialogBase {
    Q_OBJECT

public:
    enum { IDD = 5143 };
    enum ControlId : int {
        IDC_VERSION_LIST = 8097,
        IDC_ADD_VERSION = 8098,
        IDC_EDIT_VERSION = 8099,
    };

    // `file` holds the versions (the library's information file, a catalog, a definition);
    // `title` is the dialog's caption.
    CVorDPMVersionDlg(CVorDPMDBBase* file, const QString& title, QWidget* parent = nullptr);

    CVorDPMReportCtrlBase* GetReportCtrl() const { return m_list; }
    void UpdateCommandUi() override;

protected:
    bool OnInitDialog() override;

private:
    void FillList();
    void OnAddVersion();
    void OnEditVersion();
    CVorDPM_Version* SelectedVersion() const;

    CVorDPMDBBase* m_file;
    CVorDPMReportCtrlBase* m_list;
    QPushButton* m_add;
    QPushButton* m_edit;
};
