// Dialog that moves the libraries chosen in a list to the trash and reports which ones it removed.
// Open: CVorDPMDeletLibDlg dlg(this); ui->Exec(&dlg) == Accepted -> dlg.GetRemovedLibraries()
#pragma once

#include <QDialog>
#include <QStringList>

class QListWidget;

class CVorDPMDeletLibDlg : public QDialog {
    Q_OBJECT

public:
    enum ControlId : int { IDD = 5188, IDC_REMOVE = 8071, IDC_LIBRARY_LIST = 8074 };

    explicit CVorDPMDeletLibDlg(QWidget* parent = nullptr);

    // Every library that "移除" was asked to remove, in removal order, whether or not the
    // store could remove it.
    const QStringList& GetRemovedLibraries() const { return m_removed; }

private:
    void FillList();
    void OnRemove();

    QListWidget* m_list;
    QStringList m_removed;
};
