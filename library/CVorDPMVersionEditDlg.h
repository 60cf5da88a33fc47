// Adds a version record to a store file, or changes one, after the store's checks: a version
// number that is not positive or that the file has already keeps the dialog open.
#pragma once

#include "CVorDPMDialogBase.h"

class CVorDPMDBBase;
class CVorDPM_Version;
class QDoubleSpinBox;
class QLineEdit;
class QPlainTextEdit;

class CVorDPMVersionEditDlg : public CVorDPMDialogBase {
    Q_OBJECT

public:
    enum { IDD = 5144 };
    enum ControlId : int {
        IDC_VERSION = 8100,
        IDC_AUTHOR = 8101,
        IDC_TIME = 8102,
        IDC_DESCRIPTION = 8103,
    };

    // With a null `version` the dialog adds a new record to `file`; otherwise it edits `version`.
    CVorDPMVersionEditDlg(CVorDPMDBBase* file, CVorDPM_Version* version, QWidget* parent = nullptr);

private:
    void Fill(const CVorDPM_Version& version);
    void Store(CVorDPM_Version& version) const;
    void OnOK();
    bool AddVersion();
    bool ChangeVersion();
    // The message for a failed check of the store, or empty for success.
    static QString CheckMessage(int status);

    CVorDPMDBBase* m_file;
    CVorDPM_Version* m_version;
    QDoubleSpinBox* m_number;
    QLineEdit* m_author;
    QLineEdit* m_time;
    QPlainTextEdit* m_description;
};
