#include "HostPreview.h"

#include "LuaPreviewScript.h"

QPointer<PreviewWidget>& HostPreview::Slot() {
    static QPointer<PreviewWidget> widget;
    return widget;
}

PreviewWidget* HostPreview::Current() {
    return Slot().data();
}

// The preview widget inside `parent`: the current one when it already lives there, otherwise a
// new one (the editor may ask for previews from a second script window).
PreviewWidget* HostPreview::WidgetIn(QWidget* parent) {
    QPointer<PreviewWidget>& slot = Slot();
    if (slot && slot->parentWidget() == parent) return slot.data();
    delete slot.data();
    slot = new PreviewWidget(parent);
    return slot.data();
}

void HostPreview::Draw(QRect rect, QWidget* parent, const QString& requestId, const char* script,
                       const std::map<QString, _struParam>& params,
                       const std::map<int, tagVorDPM_Value>& values) {
    if (!parent) return;
    PreviewWidget* widget = WidgetIn(parent);
    widget->setObjectName(requestId);
    widget->setGeometry(rect);
    const LuaPreviewScript::Result result =
        LuaPreviewScript::Run(QByteArray(script ? script : ""), params, values);
    widget->Show(result.drawing, result.error);
    widget->show();
    widget->raise();
}

void HostPreview::Move(QRect rect) {
    if (PreviewWidget* widget = Current()) widget->setGeometry(rect);
}

void HostPreview::Close() {
    delete Current();
}
