#include "VorDPMTemplateTree.h"

#include <QCoreApplication>
#include <vector>

#include "CVorDPMManager.h"
#include "CVorDPMTreeCtrlEx.h"
#include "query/CVorDPMData.h"

namespace VorDPMTemplateTree {

namespace {

void AppendTemplates(CVorDPMTreeCtrlEx& tree, CVorDPMTemplateManager* manager,
                     QTreeWidgetItem* node) {
    if (!manager) return;
    QStringList names;
    manager->GetAllDPTName(names);
    for (const QString& name : names) {
        CVorDPMDPT* dpt = nullptr;
        manager->GetDPT(name, dpt);
        tree.AppendItem(name, CVorDPMTreeCtrlEx::ImageProduct, dpt, node);
    }
}

// Calls `add` with the text of each location node and its template manager, platform first.
template <class Add>
void ForEachLocation(Add&& add) {
    CVorDPMManager* manager = CVorDPMManager::GetVorDPMManager();
    if (!manager) return;
    add(PlatformText(), manager->GetTemplateManager());
    std::vector<QString> libraries;
    CVorDPMData::GetAllLibraryName(libraries);
    for (const QString& library : libraries) add(library, ManagerOf(library));
}

}  // namespace

QString PlatformText() {
    return QCoreApplication::translate("VorDPMTemplateTree", "平台模板");
}

bool IsPlatform(const QString& location) {
    return location.compare(PlatformText(), Qt::CaseInsensitive) == 0;
}

void FillLocations(CVorDPMTreeCtrlEx& tree) {
    ForEachLocation([&](const QString& text, CVorDPMTemplateManager*) {
        tree.AppendItem(text, CVorDPMTreeCtrlEx::ImageLibrary, nullptr, nullptr);
    });
}

void FillTemplates(CVorDPMTreeCtrlEx& tree) {
    ForEachLocation([&](const QString& text, CVorDPMTemplateManager* manager) {
        QTreeWidgetItem* node =
            tree.AppendItem(text, CVorDPMTreeCtrlEx::ImageLibrary, nullptr, nullptr);
        AppendTemplates(tree, manager, node);
    });
}

CVorDPMDPT* TemplateOf(const QTreeWidgetItem* node) {
    return dynamic_cast<CVorDPMDPT*>(CVorDPMTreeCtrlEx::GetItemData(node));
}

CVorDPMDPT* LiveTemplateOf(const QTreeWidgetItem* node) {
    const CVorDPMDPT* shown = TemplateOf(node);
    CVorDPMDPT* live = nullptr;
    if (shown) shown->GetVorDPMTemplateManager()->GetDPT(shown->GetDPTName(), live);
    return live;
}

CVorDPMTemplateManager* ManagerOf(const QString& location) {
    CVorDPMManager* manager = CVorDPMManager::GetVorDPMManager();
    if (!manager) return nullptr;
    if (IsPlatform(location)) return manager->GetTemplateManager();
    CVorDPMLibraryManager* library = nullptr;
    manager->GetLibrary(location, library);
    return library ? library->GetVorDPMTemplateManager() : nullptr;
}

}  // namespace VorDPMTemplateTree
