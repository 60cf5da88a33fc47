#include "PreviewResult.h"

#include <QRegularExpression>

int PreviewResult::Line() const {
    if (outcome != ScriptError) return 0;
    static const QRegularExpression position(QStringLiteral("^preview:(\\d+):"));
    return position.match(detail).captured(1).toInt();
}

QString PreviewResult::Message() const {
    switch (outcome) {
        case Finished:
            return QString();
        case ScriptError:
            return tr("脚本错误：%1").arg(detail.isEmpty() ? tr("未知错误") : detail);
        case TimeLimit:
            return tr("脚本运行时间过长，已停止。");
        case MemoryLimit:
            return tr("脚本占用内存过多，已停止。");
        case SandboxFailure:
            break;
    }
    return tr("预览程序出错：%1").arg(detail);
}
