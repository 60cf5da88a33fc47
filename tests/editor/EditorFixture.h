// A main editor dialog over a fresh library root: the library "QXMaterial" with the catalogs
// "目录" and "管道", a library "Other" that the tree does not list, and no "QXMEP".
#pragma once

#include <gtest/gtest.h>

#include <QString>
#include <functional>
#include <memory>
#include <ostream>

#include "CVorDPMEditorDlg.h"
#include "support/CVorDPMScriptedUi.h"
#include "support/TempRoot.h"

class CVorDPMLibraryManager;
class QDialog;
class QTreeWidgetItem;

// Lets failures show the texts.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

class EditorFixture : public ::testing::Test {
public:
    // Types `text` into `widget` key by key; unlike QTest::keyClicks also Chinese text.
    static void Type(QWidget* widget, const QString& text);
    // A nested-dialog answer: shows the dialog, lets `fill` work its real controls, and
    // returns its result; a dialog that is still open afterwards is cancelled.
    static std::function<int(QDialog*)> Filling(std::function<void(QDialog*)> fill);

protected:
    void SetUp() override;

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
    QStringList ChildTexts(QTreeWidgetItem* node) const;
    QStringList RootTexts();

    QString CatalogFile(const QString& library, const QString& catalog) const;
    static CVorDPMLibraryManager* Library(const QString& name);

    TempRoot root;
    CVorDPMScriptedUi ui;
    std::unique_ptr<CVorDPMEditorDlg> dialog;
};
