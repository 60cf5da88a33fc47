#include "VorDPMLastVersion.h"

#include <optional>

#include "CVorDPMLibraryManager.h"
#include "CVorDPMStoredRows.h"
#include "query/CVorDPMData.h"

namespace {

double LastVersion(CVorDPMDPD& definition) {
    if (definition.IsChanged()) {
        CVorDPM_Version* last = nullptr;
        definition.GetLastVersion(last, 0);
        return last ? last->GetVersion() : 0.0;
    }
    // As GetLastVersion picks it: the highest number of the records there are.
    std::optional<double> last;
    CVorDPMStoredRows stored(definition);
    stored.ForEach<CVorDPM_Version>([&last](const CVorDPM_Version& version) {
        if (!last || version.GetVersion() > *last) last = version.GetVersion();
    });
    return last.value_or(0.0);
}

}  // namespace

QString VorDPMLastVersion::Text(const QString& library, const QString& definition) {
    CVorDPMLibraryManager* manager = nullptr;
    CVorDPMData::GetLibraryManger(library, manager);
    CVorDPMDPD* dpd = nullptr;
    if (manager) manager->GetDPD(definition, dpd);
    return QString::asprintf("%0.2f", dpd ? LastVersion(*dpd) : 0.0);
}
