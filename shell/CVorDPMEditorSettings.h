// Where the editor keeps window placements and name histories between runs.
#pragma once

#include <QSettings>

namespace CVorDPMEditorSettings {

// The editor's settings; one group per dialog class name.
inline QSettings Open() {
    return QSettings(QStringLiteral("VorDPM"), QStringLiteral("VorDPMEditor"));
}

}  // namespace CVorDPMEditorSettings
