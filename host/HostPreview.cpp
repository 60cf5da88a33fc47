#include "HostPreview.h"

#include <QCoreApplication>

#include "PreviewRunner.h"

QPointer<PreviewWidget>& HostPreview::Slot() {
    static QPointer<PreviewWidget> widget;
    return widget;
}

PreviewWidget* HostPreview::Current() {
    return Slot().data();
}

PreviewRunner& HostPreview::Runner() {
    static QPointer<PreviewRunner> runner;
    if (!runner) {
        runner = new PreviewRunner({}, QCoreApplication::instance());
        QObject::connect(runner, &PreviewRunner::Finished, &HostPreview::Show);
    }
    return *runner;
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

PreviewParameters HostPreview::ParametersOf(const std::map<QString, _struParam>& params,
                                            const std::map<int, tagVorDPM_Value>& values) {
    PreviewParameters parameters;
    for (const auto& [name, param] : params) {
        const auto found = values.find(param.index);
        if (found == values.end()) continue;
        const tagVorDPM_Value& value = found->second;
        if (value.type == emVorDPM_VALUETYPE_INT)
            parameters[name] = qint64(value.intValue);
        else if (value.type == emVorDPM_VALUETYPE_DOUBLE)
            parameters[name] = value.doubleValue;
        else if (value.type == emVorDPM_VALUETYPE_STRING)
            parameters[name] = value.stringValue;
    }
    return parameters;
}

void HostPreview::Draw(QRect rect, QWidget* parent, const QString& requestId, const char* script,
                       const std::map<QString, _struParam>& params,
                       const std::map<int, tagVorDPM_Value>& values) {
    if (!parent) return;
    PreviewWidget* widget = WidgetIn(parent);
    widget->setObjectName(requestId);
    widget->setGeometry(rect);
    widget->show();
    widget->raise();
    // A run still going for an older request is abandoned: only the newest is shown.
    PreviewRunner& runner = Runner();
    runner.Start(QByteArray(script ? script : ""), ParametersOf(params, values));
    if (!runner.WaitForFinished(kSettleMs)) widget->ShowRunning();
}

void HostPreview::Show(const PreviewResult& result) {
    if (PreviewWidget* widget = Current()) widget->Show(result.drawing, result.Message());
}

void HostPreview::Move(QRect rect) {
    Runner();
    if (PreviewWidget* widget = Current()) widget->setGeometry(rect);
}

void HostPreview::Close() {
    delete Current();
}
