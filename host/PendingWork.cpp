#include "PendingWork.h"

#include <QCoreApplication>

#include "CVorDPMManager.h"
#include "HostPrompt.h"

bool PendingWork::Finish(CVorDPMManager& store, HostPrompt& prompt) {
    if (!store.HasUnsavedChanges()) return true;
    if (!prompt.AskSaveChanges()) {
        store.DiscardChanges();
        return true;
    }
    if (store.SaveWork() == 1) return true;
    prompt.ShowError(QCoreApplication::translate("PendingWork", "保存失败：%1")
                         .arg(CVorDPMManager::GetLastErrorText()));
    return false;
}
