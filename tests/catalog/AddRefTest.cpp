// External references: the dialog's tree of libraries and catalogs, and which ticked catalogs
// become references of the edited catalog.
#include "CVorDPMDPC.h"
#include "CatalogFixture.h"
#include "catalog/CVorDPMAddRef.h"

namespace {

void Tick(CVorDPMAddRef& dialog, const QString& library, const QString& catalog = QString()) {
    CVorDPMTreeCtrlEx* tree = dialog.GetTreeCtrl();
    QTreeWidgetItem* node = tree->GetItem(library, nullptr);
    if (node && !catalog.isEmpty()) node = tree->GetItem(catalog, node);
    ASSERT_TRUE(node) << library.toStdString() << "/" << catalog.toStdString();
    CVorDPMTreeCtrlEx::SetChecked(node, true);
}

}  // namespace

class AddRefTest : public CatalogFixture {};

TEST_F(AddRefTest, TickedCatalogsBecomeReferencesAndPresentOnesAreReportedEach) {
    CVorDPMAddRef dialog(kLibrary, kCatalog);
    dialog.show();
    Tick(dialog, QStringLiteral("QXMEP"));  // the library and with it both of its catalogs
    Tick(dialog, kLibrary, QStringLiteral("板材"));
    ui.ExpectMessages({QStringLiteral("QXMEP/管道添加失败，该外部目录已被包含！"),
                       QStringLiteral("QXMEP/阀门添加失败，该外部目录已被包含！")});
    Click(&dialog, VorDPMControlId::IDOK);
    EXPECT_TRUE(Accepted(dialog));

    SaveAndReopen();
    EXPECT_EQ(References(kLibrary, kCatalog),
              (QStringList{"QXMEP/管道", "QXMEP/阀门", "已删除库/目录", "QXMEP/保温",
                           "QXMaterial/板材"}));
}

TEST_F(AddRefTest, APresentReferenceIsRecognisedWhateverTheLetterCase) {
    AddReference(Catalog(kLibrary, QStringLiteral("板材")), QStringLiteral("qxmep"),
                 QStringLiteral("管道"));
    CVorDPMAddRef dialog(kLibrary, QStringLiteral("板材"));
    dialog.show();
    Tick(dialog, QStringLiteral("QXMEP"), QStringLiteral("管道"));
    ui.ExpectMessage(QStringLiteral("QXMEP/管道添加失败，该外部目录已被包含！"));
    Click(&dialog, VorDPMControlId::IDOK);
    EXPECT_EQ(References(kLibrary, QStringLiteral("板材")), (QStringList{"qxmep/管道"}));
}

TEST_F(AddRefTest, WithoutTheEditedCatalogNothingIsAddedAndTheDialogStillCloses) {
    CVorDPMAddRef dialog(kLibrary, QStringLiteral("不存在"));
    dialog.show();
    Tick(dialog, QStringLiteral("QXMEP"), QStringLiteral("管道"));
    Click(&dialog, VorDPMControlId::IDOK);
    EXPECT_TRUE(Accepted(dialog));
    EXPECT_FALSE(Catalog(kLibrary, QStringLiteral("不存在")));
    EXPECT_FALSE(Manager()->HasUnsavedChanges());
}
