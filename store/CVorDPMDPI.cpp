#include "CVorDPMDPI.h"

#include "VorDPMFileKinds.h"

CVorDPMDPI::CVorDPMDPI(CVorDPMStorage* storage, const QString& library)
    : CVorDPMDBBase(storage, library, VorDPMFileKinds::LibraryInfoName(),
                    VorDPMFileKinds::kLibraryInfo) {
    m_info = AddTable(CVorDPM_DPI_Info::ClassInfo());
}

VOR::ErrorStatus CVorDPMDPI::GetInfo(CVorDPM_DPI_Info*& out) {
    CKZList<CVorDPM_DPI_Info*> records;
    m_info->AppendLive(records);
    if (records.IsEmpty()) {
        auto* record = new CVorDPM_DPI_Info;
        m_info->Add(record);
        records.AddTail(record);
    }
    out = records.GetAt(0);
    return VOR::eOk;
}

void CVorDPMDPI::FillNew() {
    CVorDPM_DPI_Info* record = nullptr;
    GetInfo(record);
}
