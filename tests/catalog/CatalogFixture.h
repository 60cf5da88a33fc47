// Fixture of the catalog tests: a root with two libraries written to disk, and the catalog page
// shown for one catalog, driven through its real widgets.
//
// QXMaterial: definitions 螺栓 (version 1.1), 螺母, 垫圈, 钢板; catalog 标准件 with
//   螺栓 under 紧固件/螺栓类/六角 (described "外六角"), 螺母 under 紧固件/螺母类, 垫圈 and 缺失 (no
//   file) under 紧固件, 钢板 without classification, 扁钢 under 型材/螺母类 (same level-2 text
//   elsewhere); references QXMEP/管道, QXMEP/阀门, 已删除库/目录, QXMEP/保温; an empty catalog
//   板材.
// QXMEP: catalogs 管道 (version 1.5 "初版") and 阀门 (no version).
#pragma once

#include <QMenu>
#include <QStringList>
#include <functional>
#include <map>
#include <memory>

#include "CVorDPMReportCtrlBase.h"
#include "CVorDPMTreeCtrlEx.h"
#include "catalog/CDPMContentPage.h"
#include "support/GuiTestBase.h"
#include "support/QtPrinters.h"

class CatalogFixture : public GuiTestBase {
protected:
    static const QString kLibrary;
    static const QString kCatalog;

    void SetUp() override;
    void TearDown() override;

    static void AddVersion(CVorDPMDBBase* file, double number, const QString& description);
    static void AddReference(CVorDPMDPC* catalog, const QString& library, const QString& name);
    static CVorDPMDPC* Catalog(const QString& library, const QString& name);
    // The catalog's live contents as "product:level0/level1/level2".
    static QStringList Contents(const QString& library, const QString& name);
    // The catalog's live references as "library/catalog".
    static QStringList References(const QString& library, const QString& name);

    // The page, shown for `path`.
    CDPMContentPage& Page(const QString& path = kLibrary + QStringLiteral("/") + kCatalog);
    // The node at `path` below the tree's root ({} is the root itself); null when absent.
    QTreeWidgetItem* Node(const QStringList& path) const;
    void SelectNode(QTreeWidgetItem* node);
    // Clicks the rows of a report, keeping the rows clicked before (Ctrl).
    static void SelectRows(CVorDPMReportCtrlBase* report, const std::vector<int>& rows);
    // Icon index of the contents report's rows.
    static std::vector<int> Icons(const CVorDPMReportCtrlBase* report);

    // Opens a popup menu with `open` (which must run the menu), records whether each entry is
    // enabled and chooses `entry` with the keyboard, or by triggering its action and closing
    // the menu; an empty or disabled `entry` just closes the menu.
    std::map<QString, bool> RunPopup(const std::function<void()>& open, const QString& entry,
                                     bool byKeyboard = true);
    // Right-clicks the node and chooses `entry` of the menu that opens.
    std::map<QString, bool> RightClickNode(QTreeWidgetItem* node, const QString& entry);
    // Types into the open label editor of the contents tree and presses Enter.
    void FinishLabelEdit(const QString& text);
    QLineEdit* LabelEditor() const;

    std::unique_ptr<CDPMContentPage> page;
};
