// Adding included products: the dialog opened from the catalog page, its tree, series list and
// picture, its deliberately placed classification fields, and what OK enters into the store.
#include <QLineEdit>
#include <QSignalSpy>

#include "CVorDPMDPC.h"
#include "CVorDPMLibraryManager.h"
#include "CatalogFixture.h"
#include "catalog/CVorDPMAddProductDlg.h"
#include "catalog/CVorDPMContentAdder.h"
#include "controls/CVorDPMListCtrlEx.h"
#include "controls/CVorDPMPictureCtrl.h"
#include "support/Pictures.h"

namespace {

using Dlg = CVorDPMAddProductDlg;

// The node of the dialog's tree at `path`, library first.
QTreeWidgetItem* DialogNode(const QDialog* dialog, const QStringList& path) {
    auto* tree = VorDPMControlId::Find<CVorDPMTreeCtrlEx>(dialog, Dlg::IDC_PRODUCT_TREE);
    QTreeWidgetItem* node = nullptr;
    for (const QString& text : path) {
        node = tree->GetItem(text, node);
        if (!node) return nullptr;
    }
    return node;
}

void Tick(const QDialog* dialog, const QStringList& path) {
    QTreeWidgetItem* node = DialogNode(dialog, path);
    ASSERT_TRUE(node) << path.join(QLatin1Char('/')).toStdString();
    CVorDPMTreeCtrlEx::SetChecked(node, true);
}

QStringList ClassTexts(const QDialog* dialog) {
    QStringList texts;
    for (int id : {Dlg::IDC_CLASS1, Dlg::IDC_CLASS2, Dlg::IDC_CLASS3})
        texts << VorDPMControlId::Find<QLineEdit>(dialog, id)->text();
    return texts;
}

}  // namespace

class AddProductDlgTest : public CatalogFixture {
protected:
    // Opens the dialog from the page with `node` selected; `work` fills and closes it.
    void OpenFromPage(QTreeWidgetItem* node, std::function<void(QDialog*)> work) {
        SelectNode(node);
        ui.ExpectDialog(Filling(std::move(work)));
        Click(page.get(), CDPMContentPage::IDC_ADD_PRODUCT);
        ui.VerifyAllUsed();
    }
};

TEST_F(AddProductDlgTest, TickedProductsGoUnderTheNodesClassificationsAndDuplicatesAreReported) {
    Page();
    QSignalSpy modified(page.get(), &CDPMContentPage::Modified);
    QStringList shownClasses;
    OpenFromPage(Node({"紧固件", "螺母类"}), [&](QDialog* dialog) {
        shownClasses = ClassTexts(dialog);
        Tick(dialog, {"QXMaterial", "标准件", "钢板"});
        Tick(dialog, {"QXMaterial", "标准件", "紧固件", "螺母类", "螺母"});
        Tick(dialog, {"QXMaterial", "板材"});  // an empty catalog: a leaf under the root
        ui.ExpectMessage(QStringLiteral("产品：螺母已被添加！"));
        Click(dialog, VorDPMControlId::IDOK);
        EXPECT_TRUE(Accepted(*static_cast<QDialog*>(dialog)));
    });
    EXPECT_EQ(shownClasses, (QStringList{"紧固件", "螺母类", ""}));
    EXPECT_EQ(modified.count(), 1);
    EXPECT_EQ(ChildTexts(Node({"紧固件", "螺母类"})), QStringList()) << "tree rebuilt";

    SaveAndReopen();
    const QStringList contents = Contents(kLibrary, kCatalog);
    EXPECT_EQ(contents.count(QStringLiteral("钢板:紧固件/螺母类/")), 1);
    EXPECT_EQ(contents.count(QStringLiteral("螺母:紧固件/螺母类/")), 1);
    EXPECT_EQ(contents.size(), 7);
}

TEST_F(AddProductDlgTest, FromTheCatalogNodeTheProductsGoWithoutClassification) {
    Page();
    OpenFromPage(Node({}), [&](QDialog* dialog) {
        EXPECT_EQ(ClassTexts(dialog), (QStringList{"", "", ""}));
        Tick(dialog, {"QXMaterial", "标准件", "紧固件", "螺栓类", "六角", "螺栓"});
        Click(dialog, VorDPMControlId::IDOK);
    });
    EXPECT_EQ(ColumnTexts(page->GetContentReport(), CDPMContentPage::ContProduct),
              (QStringList{"钢板", "螺栓"}));
    EXPECT_TRUE(Contents(kLibrary, kCatalog).contains(QStringLiteral("螺栓://")));
}

TEST_F(AddProductDlgTest, CancelAddsNothingAndLeavesTheFlagDown) {
    Page();
    QSignalSpy modified(page.get(), &CDPMContentPage::Modified);
    OpenFromPage(Node({}), [&](QDialog* dialog) {
        Tick(dialog, {"QXMaterial", "标准件", "紧固件", "螺栓类", "六角", "螺栓"});
        Click(dialog, VorDPMControlId::IDCANCEL);
    });
    EXPECT_EQ(modified.count(), 0);
    EXPECT_EQ(Contents(kLibrary, kCatalog).size(), 6);
}

TEST_F(AddProductDlgTest, SeriesRowsShowTheirPicturesAndAnEmptyPictureKeepsTheLastOne) {
    CVorDPMDPD* washer = Definition(QStringLiteral("垫圈"));
    CVorDPM_DPD_Property* diameter =
        AddProperty(washer, QStringLiteral("d"), QStringLiteral("公称直径"));
    CVorDPM_DPD_Product* product =
        AddProduct(washer, QStringLiteral("垫圈"), QStringLiteral("垫圈%d"));
    const QByteArray pictures[] = {Encoded(Solid(8, 6, Qt::red)), QByteArray(),
                                   QByteArray("no picture")};
    for (int i = 0; i < 3; ++i) {
        auto* image = new CVorDPM_DPD_Image;
        image->SetImage(CBinaryData(pictures[i]));
        ASSERT_EQ(washer->AddImage(image), VOR::eOk);
        CVorDPM_DPD_Serial* serial = AddSerial(washer, product);
        serial->SetImageId(image->GetObjectId());
        serial->SetValue(QString::number(10 + i), diameter->GetObjectId());
    }

    Dlg dialog(kLibrary, QStringLiteral("标准件/"));
    dialog.show();
    CVorDPMTreeCtrlEx* tree = dialog.GetTreeCtrl();
    tree->setCurrentItem(DialogNode(&dialog, {"QXMaterial", "标准件", "紧固件", "垫圈"}));
    CVorDPMListCtrlEx* list = dialog.GetSeriesList();
    ASSERT_EQ(list->GetItemCount(), 3);
    EXPECT_EQ(list->model()->headerData(2, Qt::Horizontal).toString(), QStringLiteral("公称直径"));
    EXPECT_EQ(list->GetItemText(1, 0), QStringLiteral("2"));
    EXPECT_EQ(list->GetItemText(1, 2), QStringLiteral("11"));

    CVorDPMPictureCtrl* picture = dialog.GetPictureCtrl();
    list->SelectRow(0);
    ASSERT_TRUE(picture->HasImage());
    EXPECT_EQ(picture->GetImage().size(), QSize(8, 6));
    list->SelectRow(1);
    EXPECT_TRUE(picture->HasImage()) << "an empty picture leaves the last one";
    list->SelectRow(2);
    EXPECT_FALSE(picture->HasImage()) << "bytes that are no picture show none";

    list->SelectRow(0);
    tree->setCurrentItem(DialogNode(&dialog, {"QXMaterial", "标准件", "钢板"}));
    EXPECT_FALSE(picture->HasImage());
    EXPECT_EQ(list->GetItemCount(), 0) << "a product without properties has no series list";
}

// The routine that enters products into a catalog, as new products reuse it.
TEST_F(AddProductDlgTest, ContentAdderRefusesTheSameProductUnderTheSameClassificationOnly) {
    CVorDPMDPC* catalog = Catalog(kLibrary, kCatalog);
    const CVorDPMContentAdder nuts(catalog, QStringLiteral("紧固件"), QStringLiteral("螺母类"),
                                   QString());
    EXPECT_EQ(nuts.Add(QStringLiteral("螺母")), CVorDPMContentAdder::AlreadyPresent);
    EXPECT_EQ(nuts.Add(QStringLiteral("螺母")), CVorDPMContentAdder::AlreadyPresent);
    EXPECT_EQ(nuts.Add(QStringLiteral("钢板")), CVorDPMContentAdder::Added);
    EXPECT_EQ(nuts.Add(QStringLiteral("钢板")), CVorDPMContentAdder::AlreadyPresent);
    const CVorDPMContentAdder elsewhere(catalog, QStringLiteral("紧固件"), QString(), QString());
    EXPECT_EQ(elsewhere.Add(QStringLiteral("螺母")), CVorDPMContentAdder::Added);
    EXPECT_EQ(CVorDPMContentAdder(nullptr, {}, {}, {}).Add(QStringLiteral("螺母")),
              CVorDPMContentAdder::Failed);
    EXPECT_EQ(Contents(kLibrary, kCatalog).size(), 8);
}
