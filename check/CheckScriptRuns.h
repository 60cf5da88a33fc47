// The script runs one definition needs, and what they found: each shape's script once for each
// distinct set of its parameter values over the series rows that use the shape (once with the
// properties' default values for a shape that no row uses). Failures that have the same cause
// (the same script, the same outcome, at the same line) are reported once, at the first row that
// shows them, with the count of further parameter sets that do: a message that names the
// failing value differs from size to size, the fault does not.
#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QHash>
#include <QSet>
#include <QStringList>
#include <functional>
#include <map>
#include <tuple>
#include <vector>

#include "CheckFileReport.h"
#include "PreviewParameters.h"
#include "PreviewResult.h"
#include "VorDPMTypes.h"

class CheckScriptRuns {
    Q_DECLARE_TR_FUNCTIONS(CheckScriptRuns)

public:
    // A shape as its runs need it: its script and, for each of its parameters, the value type
    // of the property it reads.
    struct Shape {
        int id = 0;
        int scriptId = 0;
        QStringList parameters;
        std::vector<emVorDPM_VALUETYPE> types;
    };

    explicit CheckScriptRuns(CheckPlace place) : m_place(std::move(place)) {}

    void AddScript(int id, const QString& name, const QByteArray& text);
    void AddProduct(int id, const QString& name) { m_products.insert(id, name); }
    // Adds a run of the shape with these values (one per parameter, in the shape's order)
    // unless the shape's script already runs with the same ones. Row 0: the default values.
    void AddRun(const Shape& shape, int row, int product, const QStringList& values);

    qsizetype Count() const { return qsizetype(m_runs.size()); }
    bool IsComplete() const { return m_recorded == Count(); }
    const QByteArray& ScriptOf(qsizetype run) const;
    PreviewParameters ParametersOf(qsizetype run) const;
    // Takes the result of a run; when the last one is in, `whenDone` gets the findings.
    void Record(qsizetype run, const PreviewResult& result);
    void WhenDone(std::function<void(QVector<CheckFinding>)> whenDone) {
        m_whenDone = std::move(whenDone);
    }

private:
    struct Run {
        const Shape* shape;
        int row;
        int product;
        QStringList values;
    };
    struct Script {
        QString name;
        QByteArray text;
    };
    // Failures of one cause: the first run that showed it and how many others did.
    struct Failure {
        qsizetype first = -1;
        int others = 0;
        PreviewResult result;
    };
    using Cause = std::tuple<int, int, int>;  // script, outcome, line

    static PreviewValue ValueOf(const QString& text, emVorDPM_VALUETYPE type);
    static bool Failed(const PreviewResult& result);
    QVector<CheckFinding> Findings() const;
    QString Describe(const Failure& failure) const;

    CheckPlace m_place;
    QHash<int, Script> m_scripts;
    QHash<int, QString> m_products;
    // Shapes by id, kept in a node-based map so that runs can point at them.
    std::map<int, Shape> m_shapes;
    std::vector<Run> m_runs;
    // Each script's parameter sets already added, as one text.
    QSet<QString> m_seen;
    std::map<Cause, Failure> m_failures;
    qsizetype m_recorded = 0;
    std::function<void(QVector<CheckFinding>)> m_whenDone;
};
