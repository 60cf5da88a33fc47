// Saving the store from the editor: every save the user asks for goes through here, so that a
// failed save (a full disk, a file another user changed since it was loaded) is always told.
#pragma once

#include <QString>

class QWidget;

namespace VorDPMSaveWork {

// Writes every pending change. On failure shows "保存失败: <the store's reason>" and returns
// that text; the changes stay in memory for another try. Empty on success.
QString SaveOrTell(QWidget* parent);

}  // namespace VorDPMSaveWork
