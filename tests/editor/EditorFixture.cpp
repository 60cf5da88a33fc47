#include "EditorFixture.h"

#include <QMenu>
#include <QMenuBar>
#include <QTest>

#include "CVorDPMEditorSettings.h"
#include "CVorDPMManager.h"
#include "CVorDPMTreeCtrlEx.h"

void EditorFixture::SetUp() {
    ForgetSettings();
    CVorDPMLibraryManager* library = MakeLibrary(QStringLiteral("QXMaterial"));
    MakeCatalog(library, QStringLiteral("目录"));
    MakeCatalog(library, QStringLiteral("管道"));
    MakeCatalog(MakeLibrary(QStringLiteral("Other")), QStringLiteral("X"));
}

void EditorFixture::TearDown() {
    dialog.reset();
    ForgetSettings();
}

void EditorFixture::ForgetSettings() {
    CVorDPMEditorSettings::Open().remove(QLatin1String(CVorDPMEditorSettings::kShowAllLibraries));
}

CVorDPMEditorDlg& EditorFixture::Dialog() {
    if (!dialog) {
        dialog = std::make_unique<CVorDPMEditorDlg>(nullptr, nullptr, nullptr);
        dialog->show();
    }
    return *dialog;
}

QTreeWidgetItem* EditorFixture::Node(const QString& library, const QString& catalog) {
    CVorDPMTreeCtrlEx* tree = Dialog().GetTreeCtrl();
    for (int i = 0; i < tree->topLevelItemCount(); ++i) {
        QTreeWidgetItem* root = tree->topLevelItem(i);
        if (root->text(0) != library) continue;
        if (catalog.isEmpty()) return root;
        for (int j = 0; j < root->childCount(); ++j)
            if (root->child(j)->text(0) == catalog) return root->child(j);
    }
    return nullptr;
}

void EditorFixture::Click(QTreeWidgetItem* node) {
    ClickNode(Dialog().GetTreeCtrl(), node);
}

bool EditorFixture::TriggerNodeMenu(QTreeWidgetItem* node, const QString& entry) {
    const std::unique_ptr<QMenu> menu = Dialog().CreateNodeMenu(node);
    if (!menu) return false;
    for (QAction* action : menu->actions()) {
        if (action->text() != entry) continue;
        action->trigger();
        return true;
    }
    return false;
}

bool EditorFixture::TriggerMenuBar(const QString& menu, const QString& entry) {
    for (QAction* top : Dialog().GetMenuBar()->actions()) {
        if (top->text() != menu || !top->menu()) continue;
        for (QAction* action : top->menu()->actions()) {
            if (action->text() != entry || !action->isEnabled()) continue;
            action->trigger();
            return true;
        }
    }
    return false;
}

QStringList EditorFixture::RootTexts() {
    return TopTexts(*Dialog().GetTreeCtrl());
}

QString EditorFixture::CatalogFile(const QString& library, const QString& catalog) const {
    return root.File(library + QLatin1Char('/') + catalog + QStringLiteral(".DPC"));
}
