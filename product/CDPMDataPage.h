// The product data page of the main dialog's sheet ("产品数据"): the product definitions of the
// selected library; it holds the host's preview callbacks for the dialogs it opens.
#pragma once

#include "CVorDPMPropertPageBase.h"
#include "ExportVorDPMEditor.h"

class CDPMDataPage : public CVorDPMPropertPageBase {
    Q_OBJECT

public:
    enum { IDD = 5142 };

    explicit CDPMDataPage(QWidget* parent = nullptr);

    // Keeps the path of the selected node: a library name, or library "/" catalog.
    int SetCurrentPath(const QString& path) override;
    const QString& GetCurrentPath() const { return m_currentPath; }

    // The host's preview callbacks, written by the main dialog and passed on unchanged.
    PreviewDrawCallback m_pPreviewDrawCallback = nullptr;
    PreviewCloseCallback m_pPreviewCloseCallback = nullptr;
    PreviewMoveCallback m_pPreviewMoveCallback = nullptr;

private:
    QString m_currentPath;
};
