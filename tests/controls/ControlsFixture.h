// Shared set-up of the control tests: a temporary root, short-hands that build libraries,
// catalogs and product definitions through the store, and a readable dump of a tree.
#pragma once

#include <QStringList>
#include <QTreeWidget>

#include "support/StoreTestBase.h"

class ControlsTest : public StoreTestBase {
protected:
    // One line per node, indented by depth: "text:image".
    static QStringList Dump(const QTreeWidget& tree) {
        QStringList lines;
        for (int i = 0; i < tree.topLevelItemCount(); ++i) DumpNode(tree.topLevelItem(i), 0, lines);
        return lines;
    }

    static void DumpNode(const QTreeWidgetItem* node, int depth, QStringList& lines) {
        lines.append(QString(depth * 2, QLatin1Char(' ')) + node->text(0) + QLatin1Char(':') +
                     QString::number(node->data(0, Qt::UserRole + 1).toInt()));
        for (int i = 0; i < node->childCount(); ++i) DumpNode(node->child(i), depth + 1, lines);
    }
};
