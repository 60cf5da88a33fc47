// A product template (".DPT"): a product definition kept as the pattern for new ones.
#pragma once

#include "CVorDPMDPDBase.h"

class CVorDPMTemplateManager;

class VORDPM_API CVorDPMDPT : public CVorDPMDPDBase {
public:
    CVorDPMDPT(const QString& name, const QString& path, CVorDPMTemplateManager* manager);

    const QString& GetDPTName() const { return GetName(); }
    CVorDPMTemplateManager* GetVorDPMTemplateManager() const { return m_manager; }

private:
    CVorDPMTemplateManager* m_manager;
};
