#include "CheckScriptRuns.h"

#include <QRegularExpression>
#include <algorithm>

#include "PreviewLimits.h"

namespace {

// A separator that no parameter name or value holds, for telling value sets apart.
constexpr QChar kUnit(0x1f);

// Lua's message without the "preview:LINE:" it starts with: the line is given on its own.
QString WithoutPosition(const QString& detail) {
    static const QRegularExpression position(QStringLiteral("^preview:\\d+:\\s*"));
    return QString(detail).remove(position);
}

}  // namespace

void CheckScriptRuns::AddScript(int id, const QString& name, const QByteArray& text) {
    m_scripts.insert(id, {name, text});
}

void CheckScriptRuns::AddRun(const Shape& shape, int row, int product, const QStringList& values) {
    QString key = QString::number(shape.scriptId);
    for (qsizetype i = 0; i < shape.parameters.size(); ++i)
        key += kUnit + shape.parameters[i] + kUnit + values.value(i);
    if (m_seen.contains(key)) return;
    m_seen.insert(key);
    const Shape& kept = m_shapes.try_emplace(shape.id, shape).first->second;
    m_runs.push_back({&kept, row, product, values});
}

const QByteArray& CheckScriptRuns::ScriptOf(qsizetype run) const {
    static const QByteArray none;
    const auto script = m_scripts.constFind(m_runs[run].shape->scriptId);
    return script == m_scripts.cend() ? none : script->text;
}

// A value as the script editor hands it to the preview: a number for an integer or real
// property (0 when the text is none), the text otherwise; by its looks when the property's
// type is unknown.
PreviewValue CheckScriptRuns::ValueOf(const QString& text, emVorDPM_VALUETYPE type) {
    const QString trimmed = text.trimmed();
    bool number = false;
    if (type == emVorDPM_VALUETYPE_INT) return trimmed.toLongLong();
    if (type == emVorDPM_VALUETYPE_DOUBLE) return trimmed.toDouble();
    if (type == emVorDPM_VALUETYPE_STRING) return text;
    const double real = trimmed.toDouble(&number);
    return number ? PreviewValue(real) : PreviewValue(text);
}

// An empty value stays nil, as a parameter without a value does in the host's preview.
PreviewParameters CheckScriptRuns::ParametersOf(qsizetype run) const {
    const Run& r = m_runs[run];
    PreviewParameters parameters;
    for (qsizetype i = 0; i < r.shape->parameters.size(); ++i) {
        const QString value = r.values.value(i);
        if (!value.isEmpty())
            parameters[r.shape->parameters[i]] = ValueOf(value, r.shape->types[size_t(i)]);
    }
    return parameters;
}

bool CheckScriptRuns::Failed(const PreviewResult& result) {
    return result.outcome != PreviewResult::Finished || !result.drawing.HasExtent();
}

void CheckScriptRuns::Record(qsizetype run, const PreviewResult& result) {
    if (Failed(result)) {
        const Cause cause{m_runs[run].shape->scriptId, result.outcome, result.Line()};
        Failure& failure = m_failures[cause];
        if (failure.first < 0) {
            failure.first = run;
            failure.result = result;
        } else {
            ++failure.others;
            if (run < failure.first) {
                failure.first = run;
                failure.result = result;
            }
        }
    }
    if (++m_recorded == Count() && m_whenDone) m_whenDone(Findings());
}

QVector<CheckFinding> CheckScriptRuns::Findings() const {
    std::vector<const Failure*> failures;
    for (const auto& [cause, failure] : m_failures) failures.push_back(&failure);
    std::sort(failures.begin(), failures.end(),
              [](const Failure* a, const Failure* b) { return a->first < b->first; });
    CheckFileReport report(m_place);
    for (const Failure* failure : failures) {
        const Run& run = m_runs[failure->first];
        const PreviewResult& result = failure->result;
        CheckKind kind = CheckKind::ScriptDrawsNothing;
        if (result.outcome == PreviewResult::ScriptError)
            kind = CheckKind::ScriptError;
        else if (result.outcome == PreviewResult::TimeLimit ||
                 result.outcome == PreviewResult::MemoryLimit)
            kind = CheckKind::ScriptLimit;
        else if (result.outcome == PreviewResult::SandboxFailure)
            kind = CheckKind::ScriptSandboxFailure;
        // A run with the default values belongs to its shape, one with a row's values to the row.
        if (run.row > 0)
            report.Add(kind, QStringLiteral("serial"), run.row, m_products.value(run.product),
                       Describe(*failure));
        else
            report.Add(kind, QStringLiteral("shape"), run.shape->id, QString(), Describe(*failure));
    }
    return report.Take();
}

QString CheckScriptRuns::Describe(const Failure& failure) const {
    const Run& run = m_runs[failure.first];
    const PreviewResult& result = failure.result;
    const QString script = m_scripts.value(run.shape->scriptId).name;
    QString what;
    switch (result.outcome) {
        case PreviewResult::ScriptError:
            what = result.Line() > 0 ? tr("脚本\"%1\"第 %2 行出错：%3")
                                           .arg(script)
                                           .arg(result.Line())
                                           .arg(WithoutPosition(result.detail))
                                     : tr("脚本\"%1\"出错：%2").arg(script, result.detail);
            break;
        case PreviewResult::TimeLimit:
            what = tr("脚本\"%1\"运行超过 %2 毫秒或 %3 条指令，已被停止")
                       .arg(script)
                       .arg(PreviewLimits{}.wallClockMs)
                       .arg(PreviewLimits{}.instructions);
            break;
        case PreviewResult::MemoryLimit:
            what = tr("脚本\"%1\"占用内存超过 %2 MB，已被停止")
                       .arg(script)
                       .arg(PreviewLimits{}.memoryBytes >> 20);
            break;
        case PreviewResult::SandboxFailure:
            what = tr("无法运行脚本\"%1\"：%2").arg(script, result.detail);
            break;
        case PreviewResult::Finished:
            what = result.drawing.IsEmpty()
                       ? tr("脚本\"%1\"没有绘制任何图形").arg(script)
                       : tr("脚本\"%1\"所绘图形的范围不是有限且非空的").arg(script);
            break;
    }
    if (run.row == 0) what = tr("以默认值运行时，%1").arg(what);
    if (failure.others > 0) what += tr("（另有 %n 组参数值同样如此）", nullptr, failure.others);
    return what;
}
