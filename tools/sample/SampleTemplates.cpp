#include "SampleTemplates.h"

#include "CVorDPMManager.h"
#include "SampleDefinitionWriter.h"
#include "SampleStep.h"
#include "SampleVersions.h"

namespace {

struct Template {
    const char* library;  // empty for the platform
    const char* name;
    const char* family;
};

const Template kTemplates[] = {
    {"", "螺栓模板", "六角头螺栓"},
    {"QXMaterial", "型钢模板", "热轧工字钢"},
    {"QXMEP", "管子模板", "无缝钢管"},
};

CVorDPMTemplateManager* Manager(CVorDPMManager* manager, const QString& library) {
    if (library.isEmpty()) return manager->GetTemplateManager();
    CVorDPMLibraryManager* owner = nullptr;
    manager->GetLibrary(library, owner);
    return owner ? owner->GetVorDPMTemplateManager() : nullptr;
}

const SampleFamily* Family(const QList<SampleFamily>& families, const QString& definition) {
    for (const SampleFamily& family : families)
        if (family.definition == definition) return &family;
    return nullptr;
}

}  // namespace

QString SampleTemplates::PlatformTemplate() {
    return QString::fromUtf8(kTemplates[0].name);
}

bool SampleTemplates::Write(CVorDPMManager* manager, const SampleCommonTables& common,
                            const QList<SampleFamily>& families, QString& error) {
    for (const Template& spec : kTemplates) {
        const QString name = QString::fromUtf8(spec.name);
        CVorDPMTemplateManager* templates = Manager(manager, QString::fromUtf8(spec.library));
        const SampleFamily* family = Family(families, QString::fromUtf8(spec.family));
        if (!templates || !family) return SampleStep::Fail(name, error);
        CVorDPMDPT* pattern = nullptr;
        if (!SampleStep::Ok(templates->CreateDPT(name, pattern), name, error)) return false;
        SampleDefinitionWriter writer(common, *family);
        if (!writer.WriteProperties(pattern, error) ||
            !SampleVersions::Add(pattern, {QStringLiteral("建立模板")}, error))
            return false;
    }
    return true;
}
