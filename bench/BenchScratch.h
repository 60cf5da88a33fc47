// Set-up shared by the programs in bench/ that run the editor's windows: they keep the user's
// settings and data untouched and run headless unless the caller chose a platform.
#pragma once

#include <QString>
#include <QtGlobal>

namespace BenchScratch {

// Window placements, the remembered library root and the trash go below `folder`. Call before
// the application object exists.
inline void RedirectUserFolders(const QString& folder) {
    qputenv("XDG_CONFIG_HOME", (folder + QStringLiteral("/config")).toUtf8());
    qputenv("XDG_DATA_HOME", (folder + QStringLiteral("/data")).toUtf8());
}

inline void RunHeadlessUnlessTold() {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
}

}  // namespace BenchScratch
