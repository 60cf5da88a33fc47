#include <QMenu>
#include <QMenuBar>
#include <memory>

#include "CVorDPMEditorDlg.h"
#include "CVorDPMTreeCtrlEx.h"
#include "TemplateTest.h"

namespace {

using Editor = CVorDPMEditorDlg;

// The entry of the menu bar that carries the command.
QAction* MenuEntry(const Editor& editor, int command) {
    for (QAction* menu : editor.GetMenuBar()->actions()) {
        if (!menu->menu()) continue;
        for (QAction* action : menu->menu()->actions())
            if (action->data().toInt() == command) return action;
    }
    return nullptr;
}

// The menu's texts and their being enabled are checked with the whole menu bar (editor tests).
TEST_F(TemplateTest, TheMainMenusTemplateEntriesOpenTheirDialogs) {
    Editor editor(nullptr, nullptr, nullptr);
    editor.show();
    const std::pair<int, const char*> entries[] = {
        {Editor::ID_NEW_TEMPLATE, "新建模板"},
        {Editor::ID_EDIT_TEMPLATE, "编辑模板"},
        {Editor::ID_DELETE_TEMPLATE, "删除模板"},
    };
    for (const auto& [command, expected] : entries) {
        SCOPED_TRACE(expected);
        QAction* action = MenuEntry(editor, command);
        ASSERT_TRUE(action);
        QString caption;
        ui.ExpectDialog([&](QDialog* dialog) {
            caption = dialog->windowTitle();
            return QDialog::Rejected;
        });
        action->trigger();
        ui.VerifyAllUsed();
        EXPECT_EQ(caption, QString::fromUtf8(expected));
    }
}

// "新建模板" needs the library of the selected node; a library the store lacks opens nothing.
TEST_F(TemplateTest, NewTemplateOpensNothingForALibraryTheStoreLacks) {
    ASSERT_EQ(Manager()->RemoveLibrary(QStringLiteral("QXMEP")), 1);
    Editor editor(nullptr, nullptr, nullptr);
    editor.show();
    CVorDPMTreeCtrlEx* tree = editor.GetTreeCtrl();
    tree->setCurrentItem(tree->GetItem(QStringLiteral("QXMEP"), nullptr));
    EXPECT_TRUE(editor.OnCommand(Editor::ID_NEW_TEMPLATE));
    EXPECT_TRUE(ui.dialogClasses.isEmpty());
}

}  // namespace
