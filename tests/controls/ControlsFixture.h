// Shared set-up of the control tests: a temporary root, short-hands that build libraries,
// catalogs and product definitions through the store, and a readable dump of a tree.
#pragma once

#include <gtest/gtest.h>

#include <QStringList>
#include <QTreeWidget>

#include "CVorDPMManager.h"
#include "support/TempRoot.h"

class ControlsTest : public ::testing::Test {
protected:
    static CVorDPMManager* Manager() { return CVorDPMManager::GetVorDPMManager(); }

    static CVorDPMLibraryManager* MakeLibrary(const QString& name) {
        CVorDPMLibraryManager* library = nullptr;
        EXPECT_EQ(Manager()->CreateLibrary(name, library), VOR::eOk);
        return library;
    }

    static CVorDPMDPC* MakeCatalog(CVorDPMLibraryManager* library, const QString& name) {
        CVorDPMDPC* catalog = nullptr;
        EXPECT_EQ(library->CreateDPC(name, catalog), VOR::eOk);
        return catalog;
    }

    static CVorDPMDPD* MakeDefinition(CVorDPMLibraryManager* library, const QString& name) {
        CVorDPMDPD* dpd = nullptr;
        EXPECT_EQ(library->CreateDPD(name, dpd), VOR::eOk);
        return dpd;
    }

    // A catalog entry; added to the catalog unless `catalog` is null.
    static CVorDPM_DPC_Content* MakeEntry(CVorDPMDPC* catalog, const QString& dpd,
                                          const QString& level0 = {}, const QString& level1 = {},
                                          const QString& level2 = {}) {
        auto* entry = new CVorDPM_DPC_Content;
        entry->SetDPD(dpd);
        entry->SetType(CVorDPM_DPC_Content::FirstType, level0);
        entry->SetType(CVorDPM_DPC_Content::SecondType, level1);
        entry->SetType(CVorDPM_DPC_Content::ThirdType, level2);
        if (catalog) {
            EXPECT_EQ(catalog->AddContent(entry), VOR::eOk);
        }
        return entry;
    }

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

    TempRoot m_root;
};
