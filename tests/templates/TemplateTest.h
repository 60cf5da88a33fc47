// Fixture of the template tests: a fresh root with the libraries "QXMaterial" (a definition
// "阀门" with one property and one product) and "QXMEP", and helpers that make and find
// templates on disk.
#pragma once

#include <QStringList>
#include <QTreeWidget>

#include "support/GuiTestBase.h"

class QTreeWidgetItem;

class TemplateTest : public GuiTestBase {
protected:
    void SetUp() override {
        CVorDPMLibraryManager* library = MakeLibrary(QStringLiteral("QXMaterial"));
        MakeLibrary(QStringLiteral("QXMEP"));
        valve = MakeDefinition(library, QStringLiteral("阀门"));
        AddProperty(valve, QStringLiteral("DN"));
        AddProduct(valve, QStringLiteral("闸阀"), QStringLiteral("Z DN"));
        ASSERT_EQ(Manager()->SaveWork(), 1);
    }

    // The templates of the platform (empty location) or of a library.
    static CVorDPMTemplateManager* Templates(const QString& location) {
        if (location.isEmpty()) return Manager()->GetTemplateManager();
        CVorDPMLibraryManager* library = Library(location);
        return library ? library->GetVorDPMTemplateManager() : nullptr;
    }

    static CVorDPMDPT* MakeTemplate(const QString& location, const QString& name) {
        CVorDPMDPT* dpt = nullptr;
        EXPECT_EQ(Templates(location)->CreateDPT(name, dpt), VOR::eOk) << name.toStdString();
        return dpt;
    }

    static QStringList TemplateNames(const QString& location) {
        QStringList names;
        Templates(location)->GetAllDPTName(names);
        return names;
    }

    // The texts of the top-level nodes of a tree, each followed by its children's in brackets.
    static QStringList Outline(const QTreeWidget& tree) {
        QStringList lines;
        for (int i = 0; i < tree.topLevelItemCount(); ++i) {
            QTreeWidgetItem* top = tree.topLevelItem(i);
            QStringList children;
            for (int j = 0; j < top->childCount(); ++j) children.append(top->child(j)->text(0));
            lines.append(top->text(0) + QStringLiteral("[") + children.join(QLatin1Char(',')) +
                         QStringLiteral("]"));
        }
        return lines;
    }

    CVorDPMDPD* valve = nullptr;
};
