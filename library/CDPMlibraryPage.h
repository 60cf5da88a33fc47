// The library page of the main dialog's sheet ("产品库"): the selected library's information
// record (texts, picture, product counts), edited through input boxes and saved to the store,
// the library's version history, and the health check of the library's files.
#pragma once

#include <QString>
#include <functional>

#include "CVorDPMPropertPageBase.h"

class CVorDPMLibraryCheckPanel;
class CVorDPMLibraryManager;
class CVorDPMPictureCtrl;
class CVorDPMReportCtrlBase;
class CVorDPM_DPI_Info;
class QLabel;
class QPushButton;

class CDPMlibraryPage : public CVorDPMPropertPageBase {
    Q_OBJECT

public:
    enum { IDD = 5141 };
    enum ControlId : int {
        IDC_VERSION = 8011,
        IDC_INFO_REPORT = 8110,
        IDC_PICTURE = 8111,
        IDC_EDIT_TEXT = 8112,
        IDC_LOAD_PICTURE = 8113,
        IDC_SAVE = 8114,
        IDC_STATUS = 8115,
    };

    explicit CDPMlibraryPage(QWidget* parent = nullptr);

    // Shows the information of the path's library (the text before any "/").
    int SetCurrentPath(const QString& path) override;
    void UpdateCommandUi() override;
    CVorDPMReportCtrlBase* GetReportCtrl() const { return m_report; }
    CVorDPMPictureCtrl* GetPictureCtrl() const { return m_picture; }
    const QString& GetCurrentPath() const { return m_currentPath; }
    CVorDPMLibraryCheckPanel* GetCheckPanel() const { return m_checkPanel; }

private:
    void Reload();
    // A line of text below the report: why nothing is shown, or how a save went.
    void ShowStatus(const QString& text);
    // The selected library and its record; a reason for the user when there is none.
    CVorDPMLibraryManager* Library() const;
    CVorDPM_DPI_Info* Info(QString* problem = nullptr) const;
    void ShowInfo(const CVorDPM_DPI_Info& info);
    void ShowProblem(const QString& problem);
    int SelectedTextField() const;
    // One store command around a change of the record.
    void Modify(const std::function<void(CVorDPM_DPI_Info&)>& change);

    void OnEditText();
    void OnLoadPicture();
    void OnSave();
    void OnVersion();

    QString m_currentPath;
    QString m_library;
    CVorDPMReportCtrlBase* m_report;
    CVorDPMPictureCtrl* m_picture;
    QLabel* m_status;
    QPushButton* m_editText;
    QPushButton* m_loadPicture;
    QPushButton* m_save;
    QPushButton* m_version;
    CVorDPMLibraryCheckPanel* m_checkPanel;
};
