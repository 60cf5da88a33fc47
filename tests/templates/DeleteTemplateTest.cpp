#include <QFileInfo>
#include <memory>

#include "CVorDPMTreeCtrlEx.h"
#include "TemplateTest.h"
#include "template/VorDPMDeleteTemplateDlg.h"

namespace {

using Dlg = VorDPMDeleteTemplateDlg;

struct DeleteTemplateTest : TemplateTest {
    void SetUp() override {
        TemplateTest::SetUp();
        for (const char* name : {"P1", "P2"}) MakeTemplate(QString(), QString::fromUtf8(name));
        for (const char* name : {"M1", "M2"})
            MakeTemplate(QStringLiteral("QXMaterial"), QString::fromUtf8(name));
        dialog = std::make_unique<Dlg>();
        dialog->show();
        tree = Control<CVorDPMTreeCtrlEx>(dialog.get(), Dlg::IDC_TEMPLATE_TREE);
    }

    QTreeWidgetItem* Node(int top, int child = -1) const {
        QTreeWidgetItem* node = tree->topLevelItem(top);
        return child < 0 ? node : node->child(child);
    }

    std::unique_ptr<Dlg> dialog;
    CVorDPMTreeCtrlEx* tree = nullptr;
};

TEST_F(DeleteTemplateTest, ListsThePlatformsTemplatesThenEachLibrarysWithCheckBoxes) {
    EXPECT_EQ(Outline(*tree), QStringList({"平台模板[P1,P2]", "QXMaterial[M1,M2]", "QXMEP[]"}));
    EXPECT_TRUE(tree->HasCheckBoxes());
}

TEST_F(DeleteTemplateTest, EachTickedTemplateIsRemovedOnlyAfterItsOwnConfirmation) {
    CVorDPMDPT* p1 = nullptr;
    Templates(QString())->GetDPT(QStringLiteral("P1"), p1);
    const QString p1Path = p1->GetFilePath();
    CVorDPMTreeCtrlEx::SetChecked(Node(0, 0), true);
    CVorDPMTreeCtrlEx::SetChecked(Node(1, 0), true);
    ui.ExpectMessage(QStringLiteral("确实要把\"P1\"产品放入回收站吗?"), QMessageBox::Ok);
    ui.ExpectMessage(QStringLiteral("确实要把\"M1\"产品放入回收站吗?"), QMessageBox::Cancel);
    Click(dialog.get(), VorDPMControlId::IDOK);

    EXPECT_TRUE(Accepted(*dialog));
    EXPECT_EQ(TemplateNames(QString()), QStringList{"P2"});
    EXPECT_EQ(TemplateNames(QStringLiteral("QXMaterial")), QStringList({"M1", "M2"}));
    EXPECT_FALSE(QFileInfo::exists(p1Path));
}

TEST_F(DeleteTemplateTest, ATickedLocationIsRefusedAndItsTemplatesAreStillAskedFor) {
    CVorDPMTreeCtrlEx::SetChecked(Node(0), true);
    ui.ExpectMessages({QStringLiteral("请选择正确的模板"),
                       QStringLiteral("确实要把\"P1\"产品放入回收站吗?"),
                       QStringLiteral("确实要把\"P2\"产品放入回收站吗?")});
    Click(dialog.get(), VorDPMControlId::IDOK);

    EXPECT_TRUE(Accepted(*dialog));
    EXPECT_TRUE(TemplateNames(QString()).isEmpty());
    EXPECT_EQ(TemplateNames(QStringLiteral("QXMaterial")).size(), 2);
}

// The tree ticks a location whose templates are all ticked: it is refused like a ticked one.
TEST_F(DeleteTemplateTest, TickingEveryTemplateOfALocationTicksTheLocationToo) {
    CVorDPMTreeCtrlEx::SetChecked(Node(1, 0), true);
    CVorDPMTreeCtrlEx::SetChecked(Node(1, 1), true);
    ui.ExpectMessage(QStringLiteral("请选择正确的模板"));
    ui.ExpectMessages({QStringLiteral("确实要把\"M1\"产品放入回收站吗?"),
                       QStringLiteral("确实要把\"M2\"产品放入回收站吗?")},
                      QMessageBox::Cancel);
    Click(dialog.get(), VorDPMControlId::IDOK);
    EXPECT_EQ(TemplateNames(QStringLiteral("QXMaterial")).size(), 2);
}

TEST_F(DeleteTemplateTest, NothingTickedClosesWithoutAQuestion) {
    Click(dialog.get(), VorDPMControlId::IDOK);
    EXPECT_TRUE(Accepted(*dialog));
    EXPECT_EQ(TemplateNames(QString()).size(), 2);
}

}  // namespace
