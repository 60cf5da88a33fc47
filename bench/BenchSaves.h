// Saving after one changed series row, as the store benchmarks of both kinds of root time it.
#pragma once

#include <benchmark/benchmark.h>

#include <QString>

#include "CKZList.h"
#include "CVorDPMDPD.h"
#include "CVorDPMManager.h"

namespace BenchSaves {

// Changes the first property's value of the middle series row of `dpd` and saves, once per
// iteration: the cost should follow the change, not the table.
inline void SaveOneChangedRow(benchmark::State& state, CVorDPMDPD& dpd) {
    CKZList<CVorDPM_DPD_Property*> properties;
    dpd.GetAllProperty(properties);
    CKZList<CVorDPM_DPD_Serial*> rows;
    dpd.GetAllSerial(rows);
    CVorDPM_DPD_Serial* row = rows.GetAt(rows.GetCount() / 2);
    int round = 0;
    for (auto _ : state) {
        row->SetValue(QString::number(++round), properties.GetAt(0)->GetObjectId());
        if (CVorDPMManager::GetVorDPMManager()->SaveWork() != 1) state.SkipWithError("save failed");
    }
}

}  // namespace BenchSaves
