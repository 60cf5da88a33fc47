// "创建产品": edits one product definition in the product editor panel; "保存继续" saves and
// stays, "保存关闭" saves and closes with OK, any other way out drops the unsaved edits.
#pragma once

#include "product/CVorDPMProductHostDlg.h"

class CVorDPMDPD;

class CVorDPMCreateProductDlg : public CVorDPMProductHostDlg {
    Q_OBJECT

public:
    enum { IDD = 107 };
    enum ControlId : int {
        IDC_VERSION = 8031,
        IDC_SAVE_AS_TEMPLATE = 1001,
        IDC_SAVE_CONTINUE = 8032,
        IDC_SAVE_CLOSE = 8033,
    };

    CVorDPMCreateProductDlg(CVorDPMDPD* dpd, PreviewDrawCallback draw, PreviewCloseCallback close,
                            PreviewMoveCallback move, QWidget* parent = nullptr);

protected:
    bool OnInitDialog() override;

private:
    void OnSave(bool close);
    void OnSaveAsTemplate();
    void OnVersion();
    void OnImportTable();

    CVorDPMDPD* m_dpd;
};
