// Runs a stored preview script in Lua with drawing functions that record every call, so that
// tests can compare what the script draws with the sketch it was written from.
#pragma once

#include <QHash>
#include <QList>
#include <QString>

struct SampleDrawCall {
    QString function;
    QList<double> numbers;
    QString text;
};

class SampleScriptRunner {
public:
    // Runs `script` with each parameter as a number global; false with Lua's message.
    bool Run(const QByteArray& script, const QHash<QString, double>& params, QString& error);
    const QList<SampleDrawCall>& Calls() const { return m_calls; }

private:
    QList<SampleDrawCall> m_calls;
};
