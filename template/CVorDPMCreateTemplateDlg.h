// "创建模板": edits one template in the product editor panel; "保存并继续" saves and stays,
// "保存并关闭" saves and closes with OK, "取消" and every other way out drop the unsaved edits.
#pragma once

#include "product/CVorDPMProductHostDlg.h"

class CVorDPMDPT;

class CVorDPMCreateTemplateDlg : public CVorDPMProductHostDlg {
    Q_OBJECT

public:
    enum { IDD = 5214 };
    enum ControlId : int { IDC_SAVE_CONTINUE = 3, IDC_SAVE_CLOSE = 8033 };

    CVorDPMCreateTemplateDlg(CVorDPMDPT* dpt, PreviewDrawCallback draw, PreviewCloseCallback close,
                             PreviewMoveCallback move, QWidget* parent = nullptr);

protected:
    bool OnInitDialog() override;
};
