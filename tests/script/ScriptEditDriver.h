// Drives the script editor's real controls as a user does: clicks list rows, types into the
// edits and edits report cells in place.
#pragma once

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>

#include "CVorDPMReportCtrlBase.h"
#include "controls/CVorDPMlistCtrlBase.h"
#include "script/CVorDPMScriptEdit.h"
#include "support/GuiTestBase.h"

class ScriptEditDriver {
public:
    explicit ScriptEditDriver(const CVorDPMScriptEdit* dialog) : m_dialog(dialog) {}

    CVorDPMlistCtrlBase* List() const {
        return GuiTestBase::Control<CVorDPMlistCtrlBase>(m_dialog,
                                                         CVorDPMScriptEdit::IDC_SCRIPT_LIST);
    }
    CVorDPMReportCtrlBase* Report() const {
        return GuiTestBase::Control<CVorDPMReportCtrlBase>(m_dialog,
                                                           CVorDPMScriptEdit::IDC_PARAMETERS);
    }
    QLineEdit* Name() const {
        return GuiTestBase::Control<QLineEdit>(m_dialog, CVorDPMScriptEdit::IDC_NAME);
    }
    QPlainTextEdit* Description() const {
        return GuiTestBase::Control<QPlainTextEdit>(m_dialog, CVorDPMScriptEdit::IDC_DESCRIPTION);
    }
    QPlainTextEdit* ScriptText() const {
        return GuiTestBase::Control<QPlainTextEdit>(m_dialog, CVorDPMScriptEdit::IDC_SCRIPT_TEXT);
    }

    QStringList ListNames() const {
        QStringList names;
        for (int row = 0; row < List()->GetItemCount(); ++row)
            names.append(List()->GetItemText(row, 0));
        return names;
    }

    void ClickRow(int row) const { GuiTestBase::ClickCell(List(), row); }

    // The texts of one report column, top to bottom.
    QStringList ReportColumn(int column) const {
        QStringList texts;
        const CVorDPMReportModel* rows = Report()->GetRecords();
        for (int row = 0; row < rows->GetRecordCount(); ++row) {
            const CVorDPMReportRecord::Item* item = rows->GetRecord(row)->GetItem(column);
            texts.append(item ? item->text : QStringLiteral("<none>"));
        }
        return texts;
    }

    // Replaces a text edit's whole text by typing `text` ('\n' as the Return key).
    static void Retype(QWidget* edit, const QString& text) {
        edit->setFocus();
        QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(edit, Qt::Key_Delete);
        const QStringList lines = text.split(QLatin1Char('\n'));
        for (int i = 0; i < lines.size(); ++i) {
            if (i > 0) QTest::keyClick(edit, Qt::Key_Return);
            GuiTestBase::Type(edit, lines[i]);
        }
    }

    // Clicks a report cell, opens its in-place editor with F2, types `text` and presses Return;
    // a category cell chooses `text` among its choices.
    void EditCell(int row, int column, const QString& text) const {
        CVorDPMReportCtrlBase* report = Report();
        const QModelIndex index = report->model()->index(row, column);
        report->scrollTo(index);
        const QPoint at = report->visualRect(index).center();
        QTest::mouseClick(report->viewport(), Qt::LeftButton, {}, at);
        QTest::keyClick(report, Qt::Key_F2);
        if (auto* combo = OpenEditor<QComboBox>()) {
            const int choice = combo->findText(text);
            ASSERT_GE(choice, 0) << text.toStdString();
            combo->showPopup();
            QAbstractItemView* popup = combo->view();
            const QRect item = popup->visualRect(popup->model()->index(choice, 0));
            QTest::mouseClick(popup->viewport(), Qt::LeftButton, {}, item.center());
            FlushClosedEditors();
            return;
        }
        auto* edit = OpenEditor<QLineEdit>();
        ASSERT_NE(edit, nullptr) << "no editor in row " << row << " column " << column;
        QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(edit, Qt::Key_Delete);
        GuiTestBase::Type(edit, text);
        QTest::keyClick(edit, Qt::Key_Return);
        FlushClosedEditors();
    }

    // Lets queued work run; the closed editor must be gone from sight.
    void FlushClosedEditors() const {
        QApplication::processEvents();
        EXPECT_EQ(OpenEditor<QWidget>(), nullptr) << "an in-place editor is still open";
    }

private:
    // The report's in-place editor that is open now; closed ones are hidden until deleted.
    template <class T>
    T* OpenEditor() const {
        const QWidget* viewport = Report()->viewport();
        for (T* editor : viewport->findChildren<T*>(Qt::FindDirectChildrenOnly))
            if (editor->isVisible()) return editor;
        return nullptr;
    }

    const CVorDPMScriptEdit* m_dialog;
};
