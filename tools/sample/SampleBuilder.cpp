#include "SampleBuilder.h"

#include "CVorDPMManager.h"
#include "SampleCatalogs.h"
#include "SampleDefinitionWriter.h"
#include "SampleFasteners.h"
#include "SampleLibrary.h"
#include "SampleLibraryInfo.h"
#include "SamplePiping.h"
#include "SampleSteel.h"
#include "SampleStep.h"
#include "SampleTemplates.h"
#include "SampleVersions.h"

SampleBuilder::SampleBuilder(CVorDPMManager* manager, int scale)
    : m_manager(manager), m_scale(scale) {
    m_families = SampleFasteners::Families() + SampleSteel::Families() + SamplePiping::Families();
}

bool SampleBuilder::CheckRootIsFree(QString& error) const {
    for (const QString& name : SampleLibrary::LibraryNames()) {
        CVorDPMLibraryManager* library = nullptr;
        m_manager->GetLibrary(name, library);
        if (!library) continue;
        error = QStringLiteral("%1 already holds the library %2")
                    .arg(m_manager->GetDPMLibraryRootPath(), name);
        return false;
    }
    if (m_manager->GetTemplateManager()->HasDPT(SampleTemplates::PlatformTemplate())) {
        error = QStringLiteral("%1 already holds the template %2")
                    .arg(m_manager->GetDPMLibraryRootPath(), SampleTemplates::PlatformTemplate());
        return false;
    }
    return true;
}

bool SampleBuilder::Build(QString& error) {
    if (WriteAll(error)) {
        if (m_manager->SaveWork()) return true;
        SampleStep::Fail(QStringLiteral("saving the sample"), error);
    }
    TakeBack();
    return false;
}

// Catalogs need the definitions, and the library information counts the catalogs of both
// libraries, hence this order.
bool SampleBuilder::WriteAll(QString& error) {
    return m_common.Write(m_manager->GetCommonManager(), error) && WriteDefinitions(error) &&
           SampleCatalogs::Write(m_manager, error) && SampleLibraryInfo::Write(m_manager, error) &&
           SampleTemplates::Write(m_manager, m_common, m_families, error);
}

bool SampleBuilder::WriteDefinitions(QString& error) {
    for (const SampleFamily& family : m_families)
        if (!WriteDefinition(family, error)) return false;
    return true;
}

bool SampleBuilder::WriteDefinition(const SampleFamily& family, QString& error) {
    CVorDPMLibraryManager* library = Library(family.library, error);
    if (!library) return false;
    CVorDPMDPD* definition = nullptr;
    if (!SampleStep::Ok(library->CreateDPD(family.definition, definition), family.definition,
                        error))
        return false;
    SampleDefinitionWriter writer(m_common, family);
    return writer.WriteDefinition(definition, m_scale, error) &&
           SampleVersions::Add(definition,
                               {QStringLiteral("按标准尺寸表建立"), QStringLiteral("补充材料系列")},
                               error);
}

CVorDPMLibraryManager* SampleBuilder::Library(const QString& name, QString& error) {
    CVorDPMLibraryManager* library = nullptr;
    m_manager->GetLibrary(name, library);
    if (library) return library;
    SampleStep::Ok(m_manager->CreateLibrary(name, library), name, error);
    return library;
}

// The root held neither the libraries nor the platform template when the run started, so
// whatever of them exists now is the run's own. Unsaved rows are dropped; files and folders go
// to the trash like any removal.
void SampleBuilder::TakeBack() {
    m_manager->DiscardChanges();
    for (const QString& name : SampleLibrary::LibraryNames()) m_manager->RemoveLibrary(name);
    m_manager->GetTemplateManager()->RemoveDPT(SampleTemplates::PlatformTemplate());
}
