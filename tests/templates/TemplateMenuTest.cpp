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

TEST_F(TemplateTest, TheMainMenusTemplateEntriesAreEnabledAndOpenTheirDialogs) {
    Editor editor(nullptr, nullptr, nullptr);
    editor.show();
    const struct {
        int command;
        const char* text;
        const char* caption;
    } entries[] = {
        {Editor::ID_NEW_TEMPLATE, "新建模板", "新建模板"},
        {Editor::ID_EDIT_TEMPLATE, "编辑模板", "编辑模板"},
        {Editor::ID_DELETE_TEMPLATE, "删除模板", "删除模板"},
    };
    for (const auto& entry : entries) {
        SCOPED_TRACE(entry.text);
        QAction* action = MenuEntry(editor, entry.command);
        ASSERT_TRUE(action);
        EXPECT_EQ(action->text(), QString::fromUtf8(entry.text));
        EXPECT_TRUE(action->isEnabled());
        QString caption;
        ui.ExpectDialog([&](QDialog* dialog) {
            caption = dialog->windowTitle();
            return QDialog::Rejected;
        });
        action->trigger();
        ui.VerifyAllUsed();
        EXPECT_EQ(caption, QString::fromUtf8(entry.caption));
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
