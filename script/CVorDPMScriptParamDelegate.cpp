#include "CVorDPMScriptParamDelegate.h"

#include <QComboBox>
#include <QDoubleValidator>
#include <QIntValidator>
#include <QKeyEvent>
#include <QLineEdit>

#include "CVorDPMReportModel.h"
#include "script/CVorDPMScriptParams.h"

namespace {

// The value type that the report keeps as the test value's item data.
int ValueTypeOf(const QModelIndex& index) {
    const auto* model = qobject_cast<const CVorDPMReportModel*>(index.model());
    const CVorDPMReportRecord* record = model ? model->GetRecord(index.row()) : nullptr;
    const CVorDPMReportRecord::Item* item = record ? record->GetItem(index.column()) : nullptr;
    return item ? static_cast<int>(item->data) : emVorDPM_VALUETYPE_UNKNOWN;
}

QLineEdit* IntegerEdit(QWidget* parent) {
    auto* edit = new QLineEdit(parent);
    edit->setValidator(new QIntValidator(edit));
    return edit;
}

QLineEdit* RealEdit(QWidget* parent) {
    auto* edit = new QLineEdit(parent);
    auto* validator = new QDoubleValidator(edit);
    // Scripts read numbers with a decimal point, whatever the user's locale says.
    validator->setLocale(QLocale::c());
    edit->setValidator(validator);
    return edit;
}

}  // namespace

QWidget* CVorDPMScriptParamDelegate::createEditor(QWidget* parent,
                                                  const QStyleOptionViewItem& option,
                                                  const QModelIndex& index) const {
    switch (index.column()) {
        case CVorDPMScriptParams::CategoryColumn: {
            auto* combo = new QComboBox(parent);
            combo->addItems(CVorDPMScriptParams::CategoryChoices());
            // Picking a category is the whole edit. The signals belong to the delegate, which
            // createEditor() sees as const.
            auto* self = const_cast<CVorDPMScriptParamDelegate*>(this);
            connect(combo, &QComboBox::activated, self, [self, combo] {
                emit self->commitData(combo);
                emit self->closeEditor(combo);
            });
            return combo;
        }
        case CVorDPMScriptParams::OrderColumn:
            return IntegerEdit(parent);
        case CVorDPMScriptParams::TestValueColumn:
            return CreateTestValueEditor(parent, index);
        default:
            return QStyledItemDelegate::createEditor(parent, option, index);
    }
}

QWidget* CVorDPMScriptParamDelegate::CreateTestValueEditor(QWidget* parent,
                                                           const QModelIndex& index) const {
    switch (ValueTypeOf(index)) {
        case emVorDPM_VALUETYPE_INT:
            return IntegerEdit(parent);
        case emVorDPM_VALUETYPE_DOUBLE:
            return RealEdit(parent);
        default:
            return new QLineEdit(parent);
    }
}

void CVorDPMScriptParamDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
    const QString text = index.data(Qt::EditRole).toString();
    if (auto* combo = qobject_cast<QComboBox*>(editor)) {
        // A category outside the two choices (shown as unknown) starts the choice at the first.
        combo->setCurrentIndex(qMax(0, combo->findText(text)));
        return;
    }
    if (auto* edit = qobject_cast<QLineEdit*>(editor)) {
        edit->setText(text);
        return;
    }
    QStyledItemDelegate::setEditorData(editor, index);
}

void CVorDPMScriptParamDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                              const QModelIndex& index) const {
    if (auto* combo = qobject_cast<QComboBox*>(editor)) {
        model->setData(index, combo->currentText());
        return;
    }
    if (auto* edit = qobject_cast<QLineEdit*>(editor)) {
        model->setData(index, edit->text());
        return;
    }
    QStyledItemDelegate::setModelData(editor, model, index);
}

bool CVorDPMScriptParamDelegate::eventFilter(QObject* object, QEvent* event) {
    auto* editor = qobject_cast<QWidget*>(object);
    const auto* key = event->type() == QEvent::KeyPress ? static_cast<QKeyEvent*>(event) : nullptr;
    if (!editor || !key || (key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter))
        return QStyledItemDelegate::eventFilter(object, event);
    // Any text is kept (a value that does not parse reads as 0); the edit ends at once.
    emit commitData(editor);
    emit closeEditor(editor, QAbstractItemDelegate::SubmitModelCache);
    return true;
}
