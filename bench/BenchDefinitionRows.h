// Rows that the benchmarks of large product definitions write.
#pragma once

#include <QString>
#include <vector>

#include "CVorDPMDPDBase.h"

namespace BenchDefinitionRows {

// Adds `count` properties with the property ids 1 to `count`, the aliases "属性0", "属性1", ...
// and the parameter names "P0", "P1", ...; returns their object ids in that order.
inline std::vector<int> AddProperties(CVorDPMDPDBase& dpd, int count) {
    std::vector<int> properties;
    for (int p = 0; p < count; ++p) {
        auto* property = new CVorDPM_DPD_Property;
        property->SetPropertyId(p + 1);
        property->SetPropertyAlias(QStringLiteral("属性%1").arg(p));
        property->SetParamAlias(QStringLiteral("P%1").arg(p));
        dpd.AddProperty(property);
        properties.push_back(property->GetObjectId());
    }
    return properties;
}

}  // namespace BenchDefinitionRows
