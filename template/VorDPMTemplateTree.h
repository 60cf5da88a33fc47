// The trees through which the template dialogs and the new-product dialog offer templates and
// template locations: the platform's templates under "平台模板", then each library's.
#pragma once

#include <QString>

class CVorDPMDPT;
class CVorDPMTemplateManager;
class CVorDPMTreeCtrlEx;
class QTreeWidgetItem;

namespace VorDPMTemplateTree {

// The text that stands for the platform's templates, in trees and in location fields.
QString PlatformText();
// True when a location field names the platform (compared without regard to case).
bool IsPlatform(const QString& location);

// Appends "平台模板" and one node per library of the store, in the store's order, all on the
// top level and without children.
void FillLocations(CVorDPMTreeCtrlEx& tree);
// As FillLocations, each node with its templates as children (product image, the template as
// item data).
void FillTemplates(CVorDPMTreeCtrlEx& tree);

// The template a node carries, or null.
CVorDPMDPT* TemplateOf(const QTreeWidgetItem* node);
// The same, looked up again in its manager: null also when the template was removed since the
// tree was filled (the store keeps the removed object alive, but it is no template any more).
CVorDPMDPT* LiveTemplateOf(const QTreeWidgetItem* node);
// The template manager of a location: the platform's for "平台模板", else the library's of
// that name; null when there is no such library.
CVorDPMTemplateManager* ManagerOf(const QString& location);

}  // namespace VorDPMTemplateTree
