// Entry point of the editor library and the three preview callbacks a host passes in.
#pragma once

#include <QRect>
#include <QString>
#include <map>

#include "VorDPMParam.h"
#include "query/VorDPMEditorExport.h"
#include "tagVorDPM_Value.h"

class QWidget;

// Draw (or redraw) a preview of a parametric shape into `rect` of `parent`: request id (GUID),
// script text (UTF-8, zero-terminated), parameter descriptors by name, values by index.
using PreviewDrawCallback = void (*)(QRect rect, QWidget* parent, const QString& requestId,
                                     const char* script,
                                     const std::map<QString, _struParam>& params,
                                     const std::map<int, tagVorDPM_Value>& values);
// The window that hosts the preview is going away.
using PreviewCloseCallback = void (*)();
// The preview area has a new position or size.
using PreviewMoveCallback = void (*)(QRect rect);

// Runs the editor modally on the current store and returns when the user closes it.
// Options a caller may set beforehand in the editor's settings (QSettings organisation "VorDPM",
// application "VorDPMEditor"; see CVorDPMEditorSettings.h): "ShowAllLibraries" (bool, default
// false): the library trees list every library of the root instead of the two fixed ones. The
// user can change it in the main window, and the editor remembers it.
VORDPM_EDITOR_API void ExportVorDPMEditor(PreviewDrawCallback draw, PreviewCloseCallback close,
                                          PreviewMoveCallback move);
