// Fastener families of the sample (hex bolts, hex nuts, plain washers) with metric sizes from
// the public GB/T (ISO) size tables.
#pragma once

#include <QList>

#include "SampleFamily.h"

class SampleFasteners {
public:
    static QList<SampleFamily> Families();

private:
    static SampleFamily Bolts();
    static SampleFamily Nuts();
    static SampleFamily Washers();
};
