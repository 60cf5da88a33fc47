#include "CVorDPMLabelEditDelegate.h"

#include <QLineEdit>

void CVorDPMLabelEditDelegate::setModelData(QWidget*, QAbstractItemModel*,
                                            const QModelIndex&) const {}

void CVorDPMLabelEditDelegate::WatchEdits() {
    connect(this, &QAbstractItemDelegate::closeEditor, this, [this](QWidget* editor) {
        if (const auto* edit = qobject_cast<QLineEdit*>(editor)) emit LabelEditEnded(edit->text());
    });
}
