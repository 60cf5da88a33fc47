// The three preview callbacks the host hands to the editor. At most one preview exists at a
// time: a child widget of the window the editor names, placed at the rectangle it gives.
#pragma once

#include <QPointer>
#include <QRect>
#include <QString>
#include <map>

#include "PreviewWidget.h"
#include "VorDPMParam.h"
#include "tagVorDPM_Value.h"

class HostPreview {
public:
    // Runs the script and shows what it drew, or why it failed, in the preview area.
    static void Draw(QRect rect, QWidget* parent, const QString& requestId, const char* script,
                     const std::map<QString, _struParam>& params,
                     const std::map<int, tagVorDPM_Value>& values);
    static void Close();
    static void Move(QRect rect);

    // The preview shown now, or null.
    static PreviewWidget* Current();

private:
    static PreviewWidget* WidgetIn(QWidget* parent);
    static QPointer<PreviewWidget>& Slot();
};
