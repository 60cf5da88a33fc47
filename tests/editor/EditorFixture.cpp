#include "EditorFixture.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QTest>

#include "CVorDPMManager.h"
#include "CVorDPMTreeCtrlEx.h"

void EditorFixture::SetUp() {
    CVorDPMManager* manager = CVorDPMManager::GetVorDPMManager();
    CVorDPMLibraryManager* library = nullptr;
    ASSERT_EQ(manager->CreateLibrary(QStringLiteral("QXMaterial"), library), VOR::eOk);
    CVorDPMDPC* catalog = nullptr;
    ASSERT_EQ(library->CreateDPC(QStringLiteral("目录"), catalog), VOR::eOk);
    ASSERT_EQ(library->CreateDPC(QStringLiteral("管道"), catalog), VOR::eOk);
    ASSERT_EQ(manager->CreateLibrary(QStringLiteral("Other"), library), VOR::eOk);
    ASSERT_EQ(library->CreateDPC(QStringLiteral("X"), catalog), VOR::eOk);
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
    CVorDPMTreeCtrlEx* tree = Dialog().GetTreeCtrl();
    if (node->parent()) node->parent()->setExpanded(true);
    tree->scrollToItem(node);
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualItemRect(node).center());
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

QStringList EditorFixture::ChildTexts(QTreeWidgetItem* node) const {
    QStringList texts;
    for (int i = 0; node && i < node->childCount(); ++i) texts << node->child(i)->text(0);
    return texts;
}

QStringList EditorFixture::RootTexts() {
    QStringList texts;
    CVorDPMTreeCtrlEx* tree = Dialog().GetTreeCtrl();
    for (int i = 0; i < tree->topLevelItemCount(); ++i) texts << tree->topLevelItem(i)->text(0);
    return texts;
}

QString EditorFixture::CatalogFile(const QString& library, const QString& catalog) const {
    return root.File(library + QLatin1Char('/') + catalog + QStringLiteral(".DPC"));
}

CVorDPMLibraryManager* EditorFixture::Library(const QString& name) {
    CVorDPMLibraryManager* library = nullptr;
    CVorDPMManager::GetVorDPMManager()->GetLibrary(name, library);
    return library;
}

std::function<int(QDialog*)> EditorFixture::Filling(std::function<void(QDialog*)> fill) {
    return [fill](QDialog* nested) {
        nested->show();
        fill(nested);
        if (nested->isVisible()) nested->reject();
        return nested->result();
    };
}

void EditorFixture::Type(QWidget* widget, const QString& text) {
    for (const QChar c : text) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, QString(c));
        QApplication::sendEvent(widget, &press);
        QKeyEvent release(QEvent::KeyRelease, Qt::Key_unknown, Qt::NoModifier, QString(c));
        QApplication::sendEvent(widget, &release);
    }
}
