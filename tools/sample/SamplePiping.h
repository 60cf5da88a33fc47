// Piping families of the sample (seamless pipes, plate flanges, gate valves, concentric
// reducers) with sizes from public pipe, flange, valve and fitting standards.
#pragma once

#include <QList>

#include "SampleFamily.h"

class SamplePiping {
public:
    static QList<SampleFamily> Families();

private:
    static SampleFamily Pipes();
    static SampleFamily Flanges();
    static SampleFamily GateValves();
    static SampleFamily Reducers();
};
