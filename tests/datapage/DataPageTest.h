// Fixture of the product data page tests: the library "QXMaterial" with the catalog "管道",
// whose entry puts "阀门A" under the classification "阀门", and "法兰B" in no catalog. "阀门A"
// has the properties DN and PN and one hidden by property id -1, the product "闸阀" named
// "Z41H DN PN", two pictures and two series rows, the first with the second picture.
#pragma once

#include <QColor>
#include <QPushButton>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <memory>

#include "CBinaryData.h"
#include "CVorDPMTreeCtrlEx.h"
#include "product/CDPMDataPage.h"
#include "support/GuiTestBase.h"
#include "support/Pictures.h"

class DataPageTest : public GuiTestBase {
protected:
    void SetUp() override {
        CVorDPMLibraryManager* library = MakeLibrary(QStringLiteral("QXMaterial"));
        MakeEntry(MakeCatalog(library, QStringLiteral("管道")), QStringLiteral("阀门A"),
                  QStringLiteral("阀门"));
        MakeDefinition(library, QStringLiteral("法兰B"));
        CVorDPMDPD* valve = MakeDefinition(library, QStringLiteral("阀门A"));
        CVorDPM_DPD_Property* dn =
            AddProperty(valve, QStringLiteral("DN"), QStringLiteral("公称直径"));
        CVorDPM_DPD_Property* pn =
            AddProperty(valve, QStringLiteral("PN"), QStringLiteral("公称压力"));
        AddProperty(valve, QStringLiteral("KEY"))->SetPropertyId(-1);
        dn->SetPropertyId(1);
        pn->SetPropertyId(2);
        CVorDPM_DPD_Product* product =
            AddProduct(valve, QStringLiteral("闸阀"), QStringLiteral("Z41H DN PN"));
        AddImage(valve, Qt::red);
        const int blue = AddImage(valve, Qt::blue);
        const struct {
            const char* dn;
            const char* pn;
            int image;
        } rows[] = {{"50", "16", blue}, {"80", "25", 0}};
        for (const auto& row : rows) {
            CVorDPM_DPD_Serial* serial = AddSerial(valve, product);
            serial->SetValue(QString::fromUtf8(row.dn), dn->GetObjectId());
            serial->SetValue(QString::fromUtf8(row.pn), pn->GetObjectId());
            serial->SetImageId(row.image);
        }
        SaveAndReopen();
        page = std::make_unique<CDPMDataPage>();
        page->resize(800, 600);
        page->show();
    }

    void TearDown() override { page.reset(); }

    // Adds a picture of one colour; returns its object id.
    static int AddImage(CVorDPMDPDBase* dpd, Qt::GlobalColor color) {
        auto* row = new CVorDPM_DPD_Image;
        row->SetName(QColor(color).name());
        row->SetImage(CBinaryData(Encoded(Solid(4, 4, color))));
        EXPECT_EQ(dpd->AddImage(row), VOR::eOk);
        return row->GetObjectId();
    }

    CVorDPMTreeCtrlEx* Tree() const { return page->GetTreeCtrl(); }

    // The first node of that text, in tree order; null when none.
    QTreeWidgetItem* Node(const QString& text) const {
        const QList<QTreeWidgetItem*> found =
            Tree()->findItems(text, Qt::MatchExactly | Qt::MatchRecursive);
        return found.isEmpty() ? nullptr : found.first();
    }

    void Select(const QString& text) {
        QTreeWidgetItem* node = Node(text);
        ASSERT_TRUE(node) << text.toStdString();
        Tree()->setCurrentItem(node);
    }

    // Every node as its texts from the top, joined with "/", in tree order.
    QStringList Outline() const {
        QStringList lines;
        for (QTreeWidgetItemIterator it(Tree()); *it; ++it) {
            QStringList texts;
            for (QTreeWidgetItem* node = *it; node; node = node->parent())
                texts.prepend(node->text(0));
            lines.append(texts.join(QLatin1Char('/')));
        }
        return lines;
    }

    // The buttons add, remove, edit and version: "1" enabled, "0" not.
    QString ButtonStates() const {
        QString states;
        for (int id : {CDPMDataPage::IDC_ADD_PRODUCT, CDPMDataPage::IDC_REMOVE_PRODUCT,
                       CDPMDataPage::IDC_EDIT_PRODUCT, CDPMDataPage::IDC_VERSION})
            states += Control<QPushButton>(page.get(), id)->isEnabled() ? '1' : '0';
        return states;
    }

    static QStringList CatalogEntries() {
        CVorDPMDPC* catalog = nullptr;
        Library(QStringLiteral("QXMaterial"))->GetDPC(QStringLiteral("管道"), catalog);
        CKZList<CVorDPM_DPC_Content*> entries;
        if (catalog) catalog->GetAllContent(entries);
        QStringList names;
        for (const CVorDPM_DPC_Content* entry : entries) names.append(entry->GetDPD());
        return names;
    }

    std::unique_ptr<CDPMDataPage> page;
};
