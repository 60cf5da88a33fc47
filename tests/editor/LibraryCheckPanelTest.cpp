// The library page's check: "检查" lists the findings of the selected library as saved, can be
// cancelled, and a double click on a finding leads to its definition or its catalog.
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTreeView>

#include "CDPMSheet.h"
#include "CVorDPMManager.h"
#include "CVorDPMTreeCtrlEx.h"
#include "EditorFixture.h"
#include "catalog/CDPMContentPage.h"
#include "library/CDPMlibraryPage.h"
#include "library/CVorDPMCheckFindingModel.h"
#include "library/CVorDPMLibraryCheckPanel.h"
#include "product/CVorDPMCreateProductDlg.h"

namespace {

using Panel = CVorDPMLibraryCheckPanel;

class LibraryCheckPanelTest : public EditorFixture {
protected:
    // Two faults saved in "QXMaterial": a naming rule that names no parameter, and an entry of
    // the catalog "目录" for a definition that does not exist.
    void SetUp() override {
        EditorFixture::SetUp();
        CVorDPMLibraryManager* library = Library(QStringLiteral("QXMaterial"));
        AddProduct(MakeDefinition(library, QStringLiteral("螺栓")), QStringLiteral("螺栓 A"),
                   QStringLiteral("螺栓M%x"));
        CVorDPMDPC* catalog = nullptr;
        library->GetDPC(QStringLiteral("目录"), catalog);
        MakeEntry(catalog, QStringLiteral("垫片"));
        ASSERT_EQ(Manager()->SaveWork(), VOR::eOk);
    }

    Panel* CheckPanel() { return Dialog().GetLibraryPage()->GetCheckPanel(); }
    template <class T>
    T* Named(const char* name) {
        return CheckPanel()->findChild<T*>(QLatin1String(name));
    }

    // Selects the library, presses "检查" and waits for the end.
    void RunCheck() {
        Click(Node(QStringLiteral("QXMaterial")));
        QTest::mouseClick(Named<QPushButton>(Panel::kCheckName), Qt::LeftButton);
        QTRY_VERIFY_WITH_TIMEOUT(!CheckPanel()->IsRunning(), 20000);
    }

    // The row of the finding whose file is `file`; -1 when none.
    int RowOf(const QString& file) {
        CVorDPMCheckFindingModel* model = CheckPanel()->GetModel();
        for (int row = 0; row < model->rowCount(); ++row)
            if (model->At(row).place.file == file) return row;
        return -1;
    }

    void DoubleClick(int row) { DoubleClickCell(Named<QTreeView>(Panel::kFindingsName), row); }
};

TEST_F(LibraryCheckPanelTest, ListsTheFindingsOfTheSelectedLibrary) {
    RunCheck();
    CVorDPMCheckFindingModel* model = CheckPanel()->GetModel();
    ASSERT_EQ(model->rowCount(), 2);
    EXPECT_EQ(model->At(RowOf(QStringLiteral("QXMaterial/目录.DPC"))).kind,
              CheckKind::ContentDefinitionMissing);
    EXPECT_EQ(model->At(RowOf(QStringLiteral("QXMaterial/螺栓.DPD"))).kind,
              CheckKind::RuleUnknownParameter);
    EXPECT_TRUE(Named<QLabel>(Panel::kSummaryName)->text().contains(QStringLiteral("2 个错误")));
    EXPECT_FALSE(Named<QProgressBar>(Panel::kProgressName)->isVisible());
    EXPECT_TRUE(Named<QPushButton>(Panel::kCheckName)->isEnabled());
}

TEST_F(LibraryCheckPanelTest, DoubleClickOpensTheDefinitionOrSelectsTheCatalog) {
    RunCheck();
    QString opened;
    ui.ExpectDialog([&](QDialog* nested) {
        opened = nested->windowTitle();
        EXPECT_TRUE(qobject_cast<CVorDPMCreateProductDlg*>(nested));
        return int(QDialog::Rejected);
    });
    DoubleClick(RowOf(QStringLiteral("QXMaterial/螺栓.DPD")));
    EXPECT_FALSE(opened.isEmpty());

    DoubleClick(RowOf(QStringLiteral("QXMaterial/目录.DPC")));
    EXPECT_EQ(Dialog().GetTreeCtrl()->currentItem(),
              Node(QStringLiteral("QXMaterial"), QStringLiteral("目录")));
    EXPECT_EQ(Dialog().GetSheet()->currentWidget(), Dialog().GetContentPage());
    // The library is the same: the findings stay.
    EXPECT_EQ(CheckPanel()->GetModel()->rowCount(), 2);
}

TEST_F(LibraryCheckPanelTest, CancelStopsTheCheck) {
    Click(Node(QStringLiteral("QXMaterial")));
    QTest::mouseClick(Named<QPushButton>(Panel::kCheckName), Qt::LeftButton);
    ASSERT_TRUE(CheckPanel()->IsRunning());
    auto* cancel = Named<QPushButton>(Panel::kCancelName);
    ASSERT_TRUE(cancel->isVisible());
    QTest::mouseClick(cancel, Qt::LeftButton);
    QTRY_VERIFY(!CheckPanel()->IsRunning());
    EXPECT_TRUE(Named<QLabel>(Panel::kSummaryName)->text().contains(QStringLiteral("已取消")));
    EXPECT_FALSE(cancel->isVisible());
}

}  // namespace
