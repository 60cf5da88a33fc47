// The UI service that shows the real Qt dialogs to the user.
#pragma once

#include "CVorDPMUiService.h"

class CVorDPMDefaultUi : public CVorDPMUiService {
public:
    QMessageBox::StandardButton Ask(QWidget* parent, const QString& text, const QString& caption,
                                    QMessageBox::StandardButtons buttons) override;
    bool InputText(QWidget* parent, const QString& title, const QString& prompt,
                   QString& text) override;
    bool InputLongText(QWidget* parent, const QString& title, const QString& prompt,
                       QString& text) override;
    QString OpenFileName(QWidget* parent, const QString& caption, const QString& filter,
                         const QString& start) override;
    QString SaveFileName(QWidget* parent, const QString& caption, const QString& filter) override;
    QString ExistingDirectory(QWidget* parent, const QString& caption,
                              const QString& start) override;
    int Exec(QDialog* dialog) override;
};
