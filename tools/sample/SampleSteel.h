// Steel families of the sample (plates, I-beams, channels, equal angles) with sizes and masses
// from the public hot-rolled steel tables (GB/T 709, GB/T 706).
#pragma once

#include <QList>

#include "SampleFamily.h"

class SampleSteel {
public:
    static QList<SampleFamily> Families();

private:
    static SampleFamily Plates();
    static SampleFamily Sections(const QString& definition, const QString& rule,
                                 const QList<QStringList>& rows, void (*draw)(SampleSketch&));
    static SampleFamily Angles();
};
