#include "CVorDPMUiService.h"

#include "CVorDPMDefaultUi.h"

namespace {
CVorDPMUiService* g_installed = nullptr;
}

CVorDPMUiService::~CVorDPMUiService() = default;

CVorDPMUiService* CVorDPMUiService::Instance() {
    static CVorDPMDefaultUi real;
    return g_installed ? g_installed : &real;
}

CVorDPMUiService* CVorDPMUiService::Installed() {
    return g_installed;
}

void CVorDPMUiService::Install(CVorDPMUiService* service) {
    g_installed = service;
}

void CVorDPMUiService::ShowMessage(QWidget* parent, const QString& text, const QString& caption) {
    Ask(parent, text, caption, QMessageBox::Ok);
}

bool CVorDPMUiService::Confirm(QWidget* parent, const QString& text, const QString& caption) {
    return Ask(parent, text, caption, QMessageBox::Ok | QMessageBox::Cancel) == QMessageBox::Ok;
}
