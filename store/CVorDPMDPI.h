// The library information file of a library: one information record and its versions.
#pragma once

#include "CVorDPMDBBase.h"
#include "CVorDPM_DPI_Info.h"

class VORDPM_API CVorDPMDPI : public CVorDPMDBBase {
public:
    // The information file of `library`.
    CVorDPMDPI(CVorDPMStorage* storage, const QString& library);

    // The library's information record; made (empty) when the file has none yet.
    VOR::ErrorStatus GetInfo(CVorDPM_DPI_Info*& out);

protected:
    // A new library's file holds its information record from the start, so that reading it
    // changes nothing.
    void FillNew() override;

private:
    CVorDPMTable* m_info;
};
