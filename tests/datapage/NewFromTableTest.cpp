// "从表格新建…" on the product data page: a size table with a title line becomes a definition
// under the selected classification, with the header row and naming rule proposed in the dialog.
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>

#include "CVorDPMCommandManager.h"
#include "DataPageTest.h"
#include "product/CVorDPMTableCreateDlg.h"
#include "product/VorDPMDefinitionTable.h"

namespace {

using CreateDlg = CVorDPMTableCreateDlg;

struct NewFromTableTest : DataPageTest {
    void SetUp() override {
        DataPageTest::SetUp();
        page->SetCurrentPath(QStringLiteral("QXMaterial/管道"));
        Select(QStringLiteral("阀门"));
    }

    void TearDown() override {
        DataPageTest::TearDown();
        EXPECT_EQ(CVorDPMCommandManager::GetInstance()->GetOpenCommandCount(), 0);
    }

    QString WriteTable(const QString& text) const {
        return root.Write(QStringLiteral("六角螺母.csv"), text.toUtf8());
    }

    void PressNewFromTable() const {
        auto* button =
            page->findChild<QPushButton*>(QLatin1String(CDPMDataPage::kNewFromTableName));
        ASSERT_TRUE(button && button->isEnabled());
        QTest::mouseClick(button, Qt::LeftButton);
    }

    template <class T>
    static T* Named(QDialog* dialog, const char* name) {
        T* control = dialog->findChild<T*>(QLatin1String(name));
        EXPECT_TRUE(control) << name;
        return control;
    }
};

TEST_F(NewFromTableTest, ASizeTableWithATitleBecomesADefinitionUnderTheClassification) {
    ui.ExpectFile(
        WriteTable(QStringLiteral("GB/T 6170 六角螺母\n"
                                  "d [mm],s [mm],m [mm]\n"
                                  "6,10,5.2\n"
                                  "8,13,6.8\n")));
    ui.ExpectDialog(Filling([](QDialog* dialog) {
        EXPECT_EQ(Named<QSpinBox>(dialog, CreateDlg::kHeaderRowName)->value(), 2);
        auto* rule = Named<QLineEdit>(dialog, CreateDlg::kRuleName);
        EXPECT_EQ(rule->text(), QStringLiteral("六角螺母%d"));
        // The proposed rule follows the name as it is typed.
        auto* name = Named<QLineEdit>(dialog, CreateDlg::kNameName);
        name->clear();
        Type(name, QStringLiteral("螺母"));
        EXPECT_EQ(rule->text(), QStringLiteral("螺母%d"));
        QTest::mouseClick(Named<QPushButton>(dialog, CreateDlg::kCreateName), Qt::LeftButton);
    }));
    PressNewFromTable();
    ui.VerifyAllUsed();

    ASSERT_TRUE(Tree()->currentItem());
    EXPECT_EQ(Tree()->currentItem()->text(0), QStringLiteral("螺母"));
    EXPECT_EQ(Tree()->currentItem()->parent()->text(0), QStringLiteral("阀门"));
    // The page shows the new rows; it goes before the store drops them to read the files again.
    page.reset();
    Reopen();
    CVorDPMDPD* dpd = Definition(QStringLiteral("螺母"));
    ASSERT_TRUE(dpd);
    const auto rows = VorDPMDefinitionTables::LiveRows<CVorDPM_DPD_Serial>(dpd);
    const auto properties = VorDPMDefinitionTables::ValueProperties(dpd);
    ASSERT_EQ(rows.size(), 2u);
    ASSERT_EQ(properties.size(), 3u);
    EXPECT_EQ(properties[2]->GetParamAlias(), "m");
    EXPECT_EQ(rows[1]->GetValue(properties[2]->GetObjectId()), "6.8");
    EXPECT_EQ(CatalogEntries(), QStringList({"阀门A", "螺母"}));
}

// A header row that cannot make a definition is said in the dialog, which offers no "创建";
// another row can be picked. Cancelling writes nothing.
TEST_F(NewFromTableTest, AHeaderThatCannotMakeADefinitionIsRefusedInTheDialog) {
    ui.ExpectFile(WriteTable(QStringLiteral("d,d,k\n6,10,5\n")));
    ui.ExpectDialog(Filling([](QDialog* dialog) {
        const QString summary = Named<QLabel>(dialog, CreateDlg::kSummaryName)->text();
        EXPECT_TRUE(summary.contains(QStringLiteral("第 1 行第 2 列"))) << summary.toStdString();
        EXPECT_FALSE(Named<QPushButton>(dialog, CreateDlg::kCreateName)->isEnabled());
    }));
    PressNewFromTable();
    ui.VerifyAllUsed();
    EXPECT_FALSE(Definition(QStringLiteral("六角螺母")));
}

}  // namespace
