#include <QTest>

#include "CVorDPMTreeCtrlEx.h"
#include "controls/CVorDPMHistoryComboBox.h"
#include "controls/CVorDPMTreeComboBox.h"
#include "support/GuiTestBase.h"

namespace {

// Two locations that both hold a node "同名", as two libraries may hold templates of one name.
struct ChooserTest : GuiTestBase {
    void SetUp() override {
        CVorDPMTreeCtrlEx* tree = chooser.GetTreeCtrl();
        first = tree->AppendItem(QStringLiteral("Alpha"), 0, nullptr, nullptr);
        firstChild = tree->AppendItem(QStringLiteral("同名"), 2, nullptr, first);
        second = tree->AppendItem(QStringLiteral("Beta"), 0, nullptr, nullptr);
        secondChild = tree->AppendItem(QStringLiteral("同名"), 2, nullptr, second);
        chooser.show();
    }

    void ClickInDropDown(QTreeWidgetItem* node) {
        chooser.ShowDropDown();
        ClickNode(chooser.GetTreeCtrl(), node);
    }

    CVorDPMTreeComboBox chooser;
    QTreeWidgetItem* first = nullptr;
    QTreeWidgetItem* firstChild = nullptr;
    QTreeWidgetItem* second = nullptr;
    QTreeWidgetItem* secondChild = nullptr;
};

// A clicked node stays chosen over an earlier node of the same text; a typed text stands for
// the first node of that text in any letter case; a node its owner removes is chosen no more.
TEST_F(ChooserTest, ClickedAndTypedTextsChooseTheirNode) {
    ClickInDropDown(secondChild);
    EXPECT_FALSE(chooser.IsDroppedDown());
    EXPECT_EQ(chooser.text(), QStringLiteral("同名"));
    EXPECT_EQ(chooser.GetSelectedItem(), secondChild);
    const struct {
        const char* typed;
        QTreeWidgetItem* ChooserTest::*expected;
    } cases[] = {
        {"beta", &ChooserTest::second},
        {"ALPHA", &ChooserTest::first},
        {"同名", &ChooserTest::secondChild},  // the text of the node chosen last, again
        {"Gamma", nullptr},
        {"", nullptr},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.typed);
        chooser.clear();
        Type(&chooser, QString::fromUtf8(c.typed));
        EXPECT_EQ(chooser.GetSelectedItem(), c.expected ? this->*c.expected : nullptr);
    }
    ClickInDropDown(secondChild);
    chooser.GetTreeCtrl()->clear();
    EXPECT_EQ(chooser.GetSelectedItem(), nullptr);
    EXPECT_EQ(chooser.text(), QStringLiteral("同名"));
}

TEST_F(ChooserTest, KeyboardOpensTheDropDownAndEnterChoosesTheCurrentNode) {
    chooser.setFocus();
    QTest::keyClick(&chooser, Qt::Key_Down, Qt::AltModifier);
    ASSERT_TRUE(chooser.IsDroppedDown());
    chooser.GetTreeCtrl()->setCurrentItem(second);
    QTest::keyClick(chooser.GetTreeCtrl(), Qt::Key_Return);
    EXPECT_FALSE(chooser.IsDroppedDown());
    EXPECT_EQ(chooser.text(), QStringLiteral("Beta"));
}

TEST_F(GuiTestBase, HistoryComboKeepsDistinctEntriesMostRecentFirstAcrossInstances) {
    const QString section = QStringLiteral("HistoryComboTest");
    const QString prefix = QStringLiteral("HistoryItem");
    {
        CVorDPMHistoryComboBox combo(section, prefix);
        combo.LoadHistory();
        for (int i = 0; i < CVorDPMHistoryComboBox::kMaxEntries + 2; ++i) {
            combo.setEditText(QStringLiteral("名%1").arg(i));
            combo.SaveHistory();
        }
        combo.setEditText(QStringLiteral("名5"));
        combo.SaveHistory();
        combo.setEditText(QString());
        combo.SaveHistory();
    }
    CVorDPMHistoryComboBox combo(section, prefix);
    combo.LoadHistory();
    EXPECT_EQ(combo.currentText(), QString());
    ASSERT_EQ(combo.count(), CVorDPMHistoryComboBox::kMaxEntries);
    const QStringList expected = {"名5", "名11", "名10", "名9", "名8",
                                  "名7", "名6",  "名4",  "名3", "名2"};
    for (int i = 0; i < combo.count(); ++i) EXPECT_EQ(combo.itemText(i), expected[i]) << i;
}

}  // namespace
