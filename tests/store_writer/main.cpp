// Child process for the crash tests: sets every series value of one definition and saves,
// telling the parent on standard output when the save starts so that it can kill it mid-write.
#include <cstdio>

#include "CVorDPMManager.h"

int main(int argc, char** argv) {
    if (argc != 5) {
        std::fprintf(stderr, "usage: store_writer ROOT LIBRARY DEFINITION VALUE\n");
        return 2;
    }
    CVorDPMManager* manager = CVorDPMManager::GetVorDPMManager();
    if (!manager->SetDPMLibraryRootPath(QString::fromUtf8(argv[1]))) return 1;
    CVorDPMLibraryManager* library = nullptr;
    CVorDPMDPD* dpd = nullptr;
    manager->GetLibrary(QString::fromUtf8(argv[2]), library);
    if (!library || library->GetDPD(QString::fromUtf8(argv[3]), dpd) != VOR::eOk) return 1;
    CKZList<CVorDPM_DPD_Property*> properties;
    CKZList<CVorDPM_DPD_Serial*> serials;
    dpd->GetAllProperty(properties);
    dpd->GetAllSerial(serials);
    const QString value = QString::fromUtf8(argv[4]);
    for (CVorDPM_DPD_Serial* serial : serials)
        for (CVorDPM_DPD_Property* property : properties)
            serial->SetValue(value, property->GetObjectId());
    std::printf("saving\n");
    std::fflush(stdout);
    const int saved = manager->SaveWork();
    std::printf(saved ? "saved\n" : "failed\n");
    return saved ? 0 : 1;
}
