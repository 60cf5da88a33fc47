#include "CVorDPMRowSource.h"

CVorDPMRowSource::~CVorDPMRowSource() = default;
