// Dialog that creates a catalog in the library chosen from the store's libraries.
// Open: CVorDPMNewContentDlg dlg(this); ui->Exec(&dlg) == Accepted -> dlg.GetNewContent(lib, dpc)
#pragma once

#include <QDialog>
#include <QString>

class CVorDPMListCtrlEx;
class QLineEdit;

class CVorDPMNewContentDlg : public QDialog {
    Q_OBJECT

public:
    enum ControlId : int { IDD = 5190, IDC_CATALOG_NAME = 8002, IDC_LIBRARY_LIST = 8075 };

    explicit CVorDPMNewContentDlg(QWidget* parent = nullptr);

    // The library chosen and the name of the catalog created in it; valid after OK.
    void GetNewContent(QString& library, QString& catalog) const;

private:
    void FillList();
    void OnOK();

    CVorDPMListCtrlEx* m_list;
    QLineEdit* m_nameEdit;
    QString m_library;
    QString m_catalog;
};
