// Where the editor keeps window placements, name histories and its options between runs.
// Header-only, so that a host can write the options before it runs the editor.
#pragma once

#include <QSettings>

namespace CVorDPMEditorSettings {

// The editor's settings; one group per dialog class name, options at the top level.
inline QSettings Open() {
    return QSettings(QStringLiteral("VorDPM"), QStringLiteral("VorDPMEditor"));
}

// Option: the trees that list libraries show every library of the root in the store's order
// (true) instead of the two fixed libraries "QXMaterial" and "QXMEP" (false, the default).
inline constexpr char kShowAllLibraries[] = "ShowAllLibraries";

inline bool ShowAllLibraries() {
    return Open().value(QLatin1String(kShowAllLibraries), false).toBool();
}

inline void SetShowAllLibraries(bool all) {
    Open().setValue(QLatin1String(kShowAllLibraries), all);
}

}  // namespace CVorDPMEditorSettings
