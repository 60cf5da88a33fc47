// A product template (".DPT"): a product definition kept as the pattern for new ones.
#pragma once

#include "CVorDPMDPDBase.h"

class CVorDPMTemplateManager;

class VORDPM_API CVorDPMDPT : public CVorDPMDPDBase {
public:
    // The template `name` of `library` (empty: of the root), kept by `manager` (null for a copy
    // that no template manager holds).
    CVorDPMDPT(CVorDPMStorage* storage, const QString& library, const QString& name,
               CVorDPMTemplateManager* manager);

    const QString& GetDPTName() const { return GetName(); }
    CVorDPMTemplateManager* GetVorDPMTemplateManager() const { return m_manager; }

private:
    CVorDPMTemplateManager* m_manager;
};
