// The catalog page of the main dialog's sheet ("产品目录"): shows one catalog of one library,
// told which one through SetCurrentPath.
#pragma once

#include "CVorDPMPropertPageBase.h"

class CDPMContentPage : public CVorDPMPropertPageBase {
    Q_OBJECT

public:
    enum { IDD = 5139 };

    explicit CDPMContentPage(QWidget* parent = nullptr);

    // Keeps the path of the selected node: a library name, or library "/" catalog.
    int SetCurrentPath(const QString& path) override;
    const QString& GetCurrentPath() const { return m_currentPath; }

private:
    QString m_currentPath;
};
