// The three preview callbacks the host hands to the editor. At most one preview exists at a
// time: a child widget of the window the editor names, placed at the rectangle it gives. Scripts
// run in the preview sandbox's child process, so that the host stays responsive whatever a
// script does.
#pragma once

#include <QPointer>
#include <QRect>
#include <QString>
#include <map>

#include "PreviewParameters.h"
#include "PreviewWidget.h"
#include "VorDPMParam.h"
#include "tagVorDPM_Value.h"

class PreviewRunner;
struct PreviewResult;

class HostPreview {
public:
    // How long a draw waits for its script before it returns and lets the result follow from
    // the event loop. Nearly every script ends well within it, so its drawing shows at once,
    // without a "running" text in between.
    static constexpr int kSettleMs = 100;

    // Runs the script and shows what it drew, or why it failed, in the preview area.
    static void Draw(QRect rect, QWidget* parent, const QString& requestId, const char* script,
                     const std::map<QString, _struParam>& params,
                     const std::map<int, tagVorDPM_Value>& values);
    static void Close();
    // Also starts the sandbox's child process when none runs yet: the script editor moves its
    // preview area when it opens, so the first preview finds the child ready.
    static void Move(QRect rect);

    // The preview shown now, or null.
    static PreviewWidget* Current();

private:
    // The script parameters as the sandbox takes them: each name with the value at its
    // parameter's index; a parameter without a value (or of no known type) is left out.
    static PreviewParameters ParametersOf(const std::map<QString, _struParam>& params,
                                          const std::map<int, tagVorDPM_Value>& values);
    static PreviewWidget* WidgetIn(QWidget* parent);
    static QPointer<PreviewWidget>& Slot();
    // The runner of every preview, owned by the application object.
    static PreviewRunner& Runner();
    static void Show(const PreviewResult& result);
};
