#include "CVorDPMPropertyGridDelegate.h"

#include <QAction>
#include <QComboBox>
#include <QIntValidator>
#include <QLineEdit>
#include <QStyle>

#include "CVorDPMPropertyGrid.h"

const char* const CVorDPMPropertyGridDelegate::kInplaceButtonName = "InplaceButton";

CVorDPMPropertyGridDelegate::CVorDPMPropertyGridDelegate(CVorDPMPropertyGrid* grid)
    : QStyledItemDelegate(grid), m_grid(grid) {}

CVorDPMPropertyGridItem* CVorDPMPropertyGridDelegate::ItemAt(const QModelIndex& index) const {
    if (index.column() != CVorDPMPropertyGridItem::ValueColumn) return nullptr;
    return m_grid->ItemFromIndex(index);
}

QWidget* CVorDPMPropertyGridDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                                   const QModelIndex& index) const {
    CVorDPMPropertyGridItem* item = ItemAt(index);
    if (!item || item->IsReadOnly()) return nullptr;
    const bool list = item->GetKind() == CVorDPMPropertyGridItem::Bool ||
                      item->GetKind() == CVorDPMPropertyGridItem::Combo;
    return list ? CreateComboBox(parent, item) : CreateLineEdit(parent, item);
}

QWidget* CVorDPMPropertyGridDelegate::CreateLineEdit(QWidget* parent,
                                                     CVorDPMPropertyGridItem* item) const {
    auto* edit = new QLineEdit(parent);
    edit->setFrame(false);
    if (item->GetKind() == CVorDPMPropertyGridItem::Number)
        edit->setValidator(new QIntValidator(edit));
    if (!item->HasButton() && item->GetKind() != CVorDPMPropertyGridItem::File) return edit;
    const QStyle::StandardPixmap icon = item->GetKind() == CVorDPMPropertyGridItem::File
                                            ? QStyle::SP_DirOpenIcon
                                            : QStyle::SP_FileDialogContentsView;
    QAction* button =
        edit->addAction(edit->style()->standardIcon(icon), QLineEdit::TrailingPosition);
    button->setObjectName(QLatin1String(kInplaceButtonName));
    button->setToolTip(QStringLiteral("..."));
    // The press is handed to the item after the click has returned. What it opens (a picker, a
    // file dialog) runs an event loop of its own, in which the grid closes this editor and
    // deletes the button with it: the button must not be inside its click handling then. The
    // item may be gone by the time the press arrives; it is looked up through the grid again.
    const QPersistentModelIndex where = m_grid->IndexOfValue(item);
    connect(
        button, &QAction::triggered, m_grid,
        [grid = m_grid, where] {
            if (CVorDPMPropertyGridItem* pressed = grid->ItemFromIndex(where))
                pressed->OnInplaceButtonDown();
        },
        Qt::QueuedConnection);
    return edit;
}

QWidget* CVorDPMPropertyGridDelegate::CreateComboBox(QWidget* parent,
                                                     CVorDPMPropertyGridItem* item) const {
    auto* combo = new QComboBox(parent);
    combo->setEditable(true);
    combo->setInsertPolicy(QComboBox::NoInsert);
    combo->addItems(item->GetOptions());
    // Picking an entry of the list is a finished edit, as typing and pressing Enter is.
    connect(combo, &QComboBox::activated, this, [this, combo] {
        auto* self = const_cast<CVorDPMPropertyGridDelegate*>(this);
        emit self->commitData(combo);
    });
    return combo;
}

void CVorDPMPropertyGridDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
    const QString value = index.data(Qt::EditRole).toString();
    if (auto* edit = qobject_cast<QLineEdit*>(editor)) {
        edit->setText(value);
        return;
    }
    if (auto* combo = qobject_cast<QComboBox*>(editor)) {
        const QSignalBlocker quiet(combo);
        combo->setCurrentIndex(combo->findText(value));
        combo->setEditText(value);
    }
}

void CVorDPMPropertyGridDelegate::setModelData(QWidget* editor, QAbstractItemModel*,
                                               const QModelIndex& index) const {
    CVorDPMPropertyGridItem* item = ItemAt(index);
    if (!item) return;
    if (auto* edit = qobject_cast<QLineEdit*>(editor)) item->ChangeValue(edit->text());
    if (auto* combo = qobject_cast<QComboBox*>(editor)) item->ChangeValue(combo->currentText());
}
