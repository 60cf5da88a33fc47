// Control ids of the editor's dialogs: each control carries its numeric id as object name, so
// that code and tests find a dialog's controls by the same constants.
#pragma once

#include <QPushButton>
#include <QString>
#include <QWidget>
#include <utility>

class QDialog;
class QHBoxLayout;

namespace VorDPMControlId {

// The ids of the OK and Cancel buttons of every dialog.
enum : int { IDOK = 1, IDCANCEL = 2 };

inline void Set(QWidget* control, int id) {
    control->setObjectName(QString::number(id));
}

template <class T>
T* Find(const QWidget* dialog, int id) {
    return dialog->findChild<T*>(QString::number(id));
}

// A push button of `parent` with the given id and text.
QPushButton* AddButton(QWidget* parent, int id, const QString& text);
// "确定" (IDOK, the default button, left for the dialog to connect) and "取消" (IDCANCEL,
// rejects the dialog); the dialog places them.
std::pair<QPushButton*, QPushButton*> AddOkCancel(QDialog* dialog);
// The same with another default button (such as "下一步"), left for the dialog to connect.
std::pair<QPushButton*, QPushButton*> AddButtonAndCancel(QDialog* dialog, int id,
                                                         const QString& text);
// A row holding the two buttons, right-aligned, for dialogs laid out by Qt layouts.
QHBoxLayout* OkCancelRow(const std::pair<QPushButton*, QPushButton*>& buttons);

}  // namespace VorDPMControlId
