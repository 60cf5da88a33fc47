// Base of the editor's widget tests: a fresh library root, the strict scripted UI driver, and
// short-hands that find a window's controls by their id constants and drive them as a user does.
#pragma once

#include <QAbstractItemView>
#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

#include "common/VorDPMControlId.h"
#include "support/CVorDPMScriptedUi.h"
#include "support/StoreTestBase.h"

class GuiTestBase : public StoreTestBase {
public:
    template <class T>
    static T* Control(const QWidget* window, int id) {
        T* control = VorDPMControlId::Find<T>(window, id);
        EXPECT_NE(control, nullptr) << "no control " << id;
        return control;
    }

    // Clicks the button `id`, which must be there and enabled.
    static void Click(const QWidget* window, int id) {
        auto* button = Control<QPushButton>(window, id);
        ASSERT_TRUE(button);
        ASSERT_TRUE(button->isEnabled()) << "button " << id << " is disabled";
        QTest::mouseClick(button, Qt::LeftButton);
    }

    // Sends `text` to `widget` key by key; unlike QTest::keyClicks also non-ASCII text.
    static void Type(QWidget* widget, const QString& text) {
        for (const QChar c : text) {
            QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, QString(c));
            QApplication::sendEvent(widget, &press);
            QKeyEvent release(QEvent::KeyRelease, Qt::Key_unknown, Qt::NoModifier, QString(c));
            QApplication::sendEvent(widget, &release);
        }
    }

    // Replaces the text of the line edit `id` of `window` by typing `text`.
    static void Type(const QWidget* window, int id, const QString& text) {
        QLineEdit* edit = Control<QLineEdit>(window, id);
        edit->clear();
        Type(edit, text);
    }

    // Clicks the cell of `view` as a user does; a double click follows a press on the same cell,
    // as with a real mouse.
    static void ClickCell(QAbstractItemView* view, int row, int column = 0) {
        const QPoint center = view->visualRect(view->model()->index(row, column)).center();
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, center);
    }
    static void DoubleClickCell(QAbstractItemView* view, int row, int column = 0) {
        ClickCell(view, row, column);
        const QPoint center = view->visualRect(view->model()->index(row, column)).center();
        QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, center);
    }

    // Clicks a tree's node as a user does, its branch opened and scrolled into view first.
    static void ClickNode(QTreeWidget* tree, QTreeWidgetItem* node) {
        for (QTreeWidgetItem* parent = node->parent(); parent; parent = parent->parent())
            parent->setExpanded(true);
        tree->scrollToItem(node);
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {},
                          tree->visualItemRect(node).center());
    }

    // The shown texts of one column of a view, top to bottom.
    static QStringList ColumnTexts(const QAbstractItemView* view, int column = 0) {
        QStringList texts;
        const QAbstractItemModel* model = view->model();
        for (int row = 0; row < model->rowCount(); ++row)
            texts << model->index(row, column).data().toString();
        return texts;
    }

    // The texts of a tree's top-level nodes, and of a node's children (none for no node).
    static QStringList TopTexts(const QTreeWidget& tree) {
        QStringList texts;
        for (int i = 0; i < tree.topLevelItemCount(); ++i) texts << tree.topLevelItem(i)->text(0);
        return texts;
    }
    static QStringList ChildTexts(const QTreeWidgetItem* node) {
        QStringList texts;
        for (int i = 0; node && i < node->childCount(); ++i) texts << node->child(i)->text(0);
        return texts;
    }

    static bool Accepted(const QDialog& dialog) {
        return !dialog.isVisible() && dialog.result() == QDialog::Accepted;
    }

    // A nested-dialog answer: shows the dialog, lets `fill` work its real controls, and returns
    // its result; a dialog that is still open afterwards is cancelled.
    static std::function<int(QDialog*)> Filling(std::function<void(QDialog*)> fill) {
        return [fill](QDialog* nested) {
            nested->show();
            fill(nested);
            if (nested->isVisible()) nested->reject();
            return nested->result();
        };
    }

protected:
    CVorDPMScriptedUi ui;
};
