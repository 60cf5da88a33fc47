// Dialog that creates a new, empty product library in the store under the name the user types.
// Open: CVorDPMNewLibraryDlg dlg(this); ui->Exec(&dlg) == Accepted -> dlg.GetLibraryName()
#pragma once

#include <QDialog>
#include <QString>

class QLineEdit;

class CVorDPMNewLibraryDlg : public QDialog {
    Q_OBJECT

public:
    enum ControlId : int { IDC_LIBRARY_NAME = 8002 };

    explicit CVorDPMNewLibraryDlg(QWidget* parent = nullptr);

    // The name of the library created; valid after the dialog ended with OK.
    const QString& GetLibraryName() const { return m_libraryName; }

private:
    void OnOK();
    // Removes the characters that a folder name cannot hold; true when there were any.
    static bool RemoveForbiddenCharacters(QString& name);
    static bool LibraryExists(const QString& name);

    QLineEdit* m_nameEdit;
    QString m_libraryName;
};
