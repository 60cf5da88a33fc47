#include "VorDPMSaveWork.h"

#include <QCoreApplication>

#include "CVorDPMManager.h"
#include "CVorDPMUiService.h"

QString VorDPMSaveWork::SaveOrTell(QWidget* parent) {
    CVorDPMManager* manager = CVorDPMManager::GetVorDPMManager();
    if (manager && manager->SaveWork() == 1) return QString();
    const QString failure = QCoreApplication::translate("VorDPMSaveWork", "保存失败: %1")
                                .arg(CVorDPMManager::GetLastErrorText());
    CVorDPMUiService::Instance()->ShowMessage(parent, failure);
    return failure;
}
