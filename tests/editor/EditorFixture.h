// A main editor dialog over a fresh library root: the library "QXMaterial" with the catalogs
// "目录" and "管道", a library "Other" that the tree does not list, and no "QXMEP".
#pragma once

#include <gtest/gtest.h>

#include <QString>
#include <memory>

#include "CVorDPMEditorDlg.h"
#include "support/GuiTestBase.h"

class QTreeWidgetItem;

class EditorFixture : public GuiTestBase {
protected:
    using GuiTestBase::Click;

    // Settings outlive a test's library root: each test starts from the default library list.
    void SetUp() override;
    void TearDown() override;

    // The dialog, shown (and so initialised) on first use.
    CVorDPMEditorDlg& Dialog();
    // The tree node of a library, or of one of its catalogs; null when absent.
    QTreeWidgetItem* Node(const QString& library, const QString& catalog = QString());
    // Selects the node with a mouse click, as the user does.
    void Click(QTreeWidgetItem* node);
    // Right-button menu of `node`: triggers the entry with the given text; false when none.
    bool TriggerNodeMenu(QTreeWidgetItem* node, const QString& entry);
    // Menu bar: triggers `entry` of the menu `menu`; false when absent or disabled.
    bool TriggerMenuBar(const QString& menu, const QString& entry);
    // The top-level texts of the dialog's tree.
    QStringList RootTexts();

    QString CatalogFile(const QString& library, const QString& catalog) const;

    std::unique_ptr<CVorDPMEditorDlg> dialog;

private:
    static void ForgetSettings();
};
