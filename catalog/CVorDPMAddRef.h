// Dialog that adds external references to a catalog: every catalog ticked in the tree of
// libraries and their catalogs becomes a reference, unless the catalog already holds it.
#pragma once

#include <QString>

#include "CVorDPMDialogBase.h"

class CVorDPMTreeCtrlEx;

class CVorDPMAddRef : public CVorDPMDialogBase {
    Q_OBJECT

public:
    enum { IDD = 5143 };
    enum ControlId : int { IDC_TREE = 8026 };

    // The catalog being edited, by library and catalog name.
    CVorDPMAddRef(const QString& library, const QString& catalog, QWidget* parent = nullptr);

    CVorDPMTreeCtrlEx* GetTreeCtrl() const { return m_tree; }

protected:
    bool OnInitDialog() override;

private:
    void OnOK();

    QString m_library;
    QString m_catalog;
    CVorDPMTreeCtrlEx* m_tree;
};
