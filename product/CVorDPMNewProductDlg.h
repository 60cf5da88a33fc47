// "添加产品": asks for a new product's file name and an optional template, creates the
// definition, opens it in the create-product dialog, and on "保存关闭" enters it into the
// catalog it was added from; leaving that dialog any other way removes the new definition.
#pragma once

#include "CVorDPMDialogBase.h"
#include "ExportVorDPMEditor.h"

class CVorDPMDPD;
class CVorDPMDPT;
class CVorDPMHistoryComboBox;
class CVorDPMLibraryManager;
class CVorDPMTreeComboBox;

class CVorDPMNewProductDlg : public CVorDPMDialogBase {
    Q_OBJECT

public:
    enum { IDD = 5145 };
    enum ControlId : int {
        IDC_TEMPLATE = 8038,
        IDC_NAME_LABEL = 8079,
        IDC_PRODUCT_NAME = 8010,
        IDC_NEXT = 8030,
    };

    // `catalogPath`: the catalog and the classification texts to enter the product under,
    // joined with "/"; empty for a product in no catalog.
    CVorDPMNewProductDlg(const QString& library, const QString& catalogPath,
                         PreviewDrawCallback draw, PreviewCloseCallback close,
                         PreviewMoveCallback move, QWidget* parent = nullptr);

    // The definition created and saved; null unless the dialog ended with OK.
    CVorDPMDPD* GetCreatedDPD() const { return m_created; }
    // Enters a new product into the catalog and classification of `catalogPath` (as the
    // constructor takes it) and saves; nothing for an empty path or a catalog that is gone.
    static void EnterIntoCatalog(QWidget* parent, CVorDPMLibraryManager& library,
                                 const QString& catalogPath, const QString& product);

protected:
    bool OnInitDialog() override;

private:
    void OnNext();
    // The template chosen, looked up again in its manager (it may be gone since the dialog
    // opened); null for none. False, with a message, when a chosen text names no template.
    bool ChosenTemplate(CVorDPMDPT*& dpt);

    QString m_library;
    QString m_catalogPath;
    CVorDPMTreeComboBox* m_template;
    CVorDPMHistoryComboBox* m_name;
    CVorDPMDPD* m_created = nullptr;
    PreviewDrawCallback m_pPreviewDrawCallback;
    PreviewCloseCallback m_pPreviewCloseCallback;
    PreviewMoveCallback m_pPreviewMoveCallback;
};
