// The dialog "新建脚本" that adds one preview script (name, description, text) to a product
// definition or template. Opened by the script editor's new-script button:
//     CVorDPMNewScriptDlg dlg(dpd, this); CVorDPMUiService::Instance()->Exec(&dlg);
// It closes with OK also when the definition refused the script ("添加失败！").
#pragma once

#include <QDialog>
#include <QString>

class CVorDPMDPDBase;
class QLineEdit;
class QPlainTextEdit;

class CVorDPMNewScriptDlg : public QDialog {
    Q_OBJECT

public:
    enum { IDD = 5192 };
    enum ControlId : int { IDC_NAME = 8002, IDC_DESCRIPTION = 8003, IDC_SCRIPT_TEXT = 8004 };

    // `dpd` stays owned by the store; with null, OK adds nothing.
    explicit CVorDPMNewScriptDlg(CVorDPMDPDBase* dpd, QWidget* parent = nullptr);

    // The texts as read on OK.
    const QString& GetName() const { return m_name; }
    const QString& GetDescription() const { return m_description; }
    const QString& GetScript() const { return m_script; }

private:
    void OnOK();
    void AddScript();

    CVorDPMDPDBase* m_dpd;
    QLineEdit* m_nameEdit;
    QLineEdit* m_descriptionEdit;
    QPlainTextEdit* m_scriptEdit;
    QString m_name;
    QString m_description;
    QString m_script;
};
