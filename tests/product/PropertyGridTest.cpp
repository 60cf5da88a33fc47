#include <gtest/gtest.h>

#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

#include "product/CVorDPMPropertyGrid.h"
#include "product/CVorDPMPropertyGridDelegate.h"
#include "product/CXTPPropertyGridItemFile.h"
#include "support/GuiTestBase.h"

namespace {

using Item = CVorDPMPropertyGridItem;

class PropertyGridTest : public GuiTestBase {
protected:
    void SetUp() override {
        QTreeWidgetItem* category = m_grid.AddCategory(QStringLiteral("分类"));
        m_text = m_grid.AddItem(category, new Item(Item::Text, QStringLiteral("名字"), "a"));
        m_number = m_grid.AddItem(category, new Item(Item::Number, QStringLiteral("号"), "7"));
        m_bool = m_grid.AddItem(category, new Item(Item::Bool, QStringLiteral("是否"), "False"));
        m_fixed = m_grid.AddItem(category, new Item(Item::Number, QStringLiteral("ID"), "3"));
        m_fixed->SetReadOnly(true);
        m_file = m_grid.AddItem(category, new CXTPPropertyGridItemFile(QStringLiteral("图片")));
        m_grid.resize(300, 300);
        m_grid.show();
        QObject::connect(&m_grid, &CVorDPMPropertyGrid::ValueChanged, [this](Item* item) {
            changes << item->GetCaption() + "=" + item->GetValue();
        });
    }

    // Opens the item's editor, types `text` into it and presses Enter.
    void TypeInto(Item* item, const QString& text) {
        auto* edit = qobject_cast<QLineEdit*>(m_grid.EditValue(item));
        ASSERT_TRUE(edit) << item->GetCaption().toStdString();
        edit->selectAll();
        QTest::keyClick(edit, Qt::Key_Delete);
        Type(edit, text);
        QTest::keyClick(edit, Qt::Key_Return);
        QCoreApplication::processEvents();  // the view takes the value in a queued call
    }

    static QAction* InplaceButton(QWidget* editor) {
        return editor ? editor->findChild<QAction*>(CVorDPMPropertyGridDelegate::kInplaceButtonName)
                      : nullptr;
    }

    // Presses the editor's in-place button; the press reaches the item once events are handled.
    static void Press(QWidget* editor) {
        QAction* button = InplaceButton(editor);
        ASSERT_TRUE(button);
        button->trigger();
        QCoreApplication::processEvents();
    }

    CVorDPMPropertyGrid m_grid;
    Item* m_text = nullptr;
    Item* m_number = nullptr;
    Item* m_bool = nullptr;
    Item* m_fixed = nullptr;
    Item* m_file = nullptr;
    QStringList changes;
};

TEST_F(PropertyGridTest, TypedValuesAreReportedOnceAndOnlyWhenChanged) {
    TypeInto(m_text, QStringLiteral("长度"));
    TypeInto(m_text, QStringLiteral("长度"));    // the same again: no change
    TypeInto(m_number, QStringLiteral("-12x"));  // the number editor takes no letters
    EXPECT_EQ(changes, (QStringList{QStringLiteral("名字=长度"), QStringLiteral("号=-12")}));
    EXPECT_EQ(m_grid.FindItem(QStringLiteral("名字")), m_text);
    EXPECT_EQ(m_grid.FindItem(QStringLiteral("无")), nullptr);
    EXPECT_EQ(m_grid.EditValue(m_fixed), nullptr);  // read-only: no editor
}

TEST_F(PropertyGridTest, BooleanItemTakesAPickedEntryAtOnceOrTypedText) {
    auto* combo = qobject_cast<QComboBox*>(m_grid.EditValue(m_bool));
    ASSERT_TRUE(combo);
    EXPECT_EQ(combo->count(), 2);
    combo->setFocus();
    QTest::keyClick(combo, Qt::Key_Up);  // "False" -> "True", taken without Enter
    ASSERT_EQ(changes, QStringList{QStringLiteral("是否=True")});
    combo->lineEdit()->selectAll();
    Type(combo->lineEdit(), QStringLiteral("是"));
    QTest::keyClick(combo, Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(changes.value(1), QStringLiteral("是否=是"));
}

TEST_F(PropertyGridTest, InplaceButtonReachesTheOwnerAndItsResultShowsInTheOpenEditor) {
    m_number->SetHasButton(true);
    QObject::connect(&m_grid, &CVorDPMPropertyGrid::ButtonDown,
                     [](Item* item) { item->ChangeValue(QStringLiteral("42")); });
    QWidget* editor = m_grid.EditValue(m_number);
    ASSERT_TRUE(InplaceButton(editor));
    EXPECT_FALSE(InplaceButton(m_grid.EditValue(m_text)));  // no button where none is offered
    editor = m_grid.EditValue(m_number);
    Press(editor);
    EXPECT_EQ(changes, QStringList{QStringLiteral("号=42")});
    EXPECT_EQ(qobject_cast<QLineEdit*>(editor)->text(), QStringLiteral("42"));
    m_grid.CommitEditing();  // closing the editor does not report the value again
    EXPECT_EQ(changes.size(), 1);
}

TEST_F(PropertyGridTest, FileItemAsksForAPictureFromItsValueAndKeepsItWhenCancelled) {
    for (const char* answer : {"", "/tmp/a.bmp", ""}) {
        ui.ExpectFile(QString::fromUtf8(answer));
        Press(m_grid.EditValue(m_file));
    }
    EXPECT_EQ(changes, QStringList{QStringLiteral("图片=/tmp/a.bmp")});
    EXPECT_EQ(ui.fileStarts, QStringList({"", "", "/tmp/a.bmp"}));
}

TEST_F(PropertyGridTest, NoteShowsAfterTheValueUntilTheValueChanges) {
    m_text->SetNote(QStringLiteral("文件为空"));
    EXPECT_EQ(m_text->text(Item::ValueColumn), QStringLiteral("a  (文件为空)"));
    EXPECT_EQ(m_text->data(Item::ValueColumn, Qt::EditRole).toString(), QStringLiteral("a"));
    m_text->ChangeValue(QStringLiteral("b"));
    EXPECT_EQ(m_text->text(Item::ValueColumn), QStringLiteral("b"));
}

}  // namespace
