#include "CVorDPMPropertyGridItem.h"

#include <QBrush>

#include "CVorDPMPropertyGrid.h"

namespace {

// The Boolean item offers these two texts; anything typed is kept as typed.
QStringList BoolTexts() {
    return {QStringLiteral("True"), QStringLiteral("False")};
}

}  // namespace

CVorDPMPropertyGridItem::CVorDPMPropertyGridItem(Kind kind, const QString& caption,
                                                 const QString& value)
    : QTreeWidgetItem(UserType), m_kind(kind), m_value(value) {
    setText(CaptionColumn, caption);
    if (kind == Bool) m_options = BoolTexts();
    SetReadOnly(false);
    Show();
}

void CVorDPMPropertyGridItem::SetValue(const QString& value) {
    m_value = value;
    m_note.clear();
    Show();
}

void CVorDPMPropertyGridItem::ChangeValue(const QString& value) {
    if (value == m_value) return;
    SetValue(value);
    if (CVorDPMPropertyGrid* grid = Grid()) grid->OnItemValueChanged(this);
}

void CVorDPMPropertyGridItem::SetReadOnly(bool readOnly) {
    m_readOnly = readOnly;
    Qt::ItemFlags itemFlags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (!readOnly) itemFlags |= Qt::ItemIsEditable;
    setFlags(itemFlags);
}

void CVorDPMPropertyGridItem::SetNote(const QString& note) {
    m_note = note;
    Show();
}

void CVorDPMPropertyGridItem::OnInplaceButtonDown() {
    if (CVorDPMPropertyGrid* grid = Grid()) grid->OnItemButtonDown(this);
}

CVorDPMPropertyGrid* CVorDPMPropertyGridItem::Grid() const {
    return qobject_cast<CVorDPMPropertyGrid*>(treeWidget());
}

void CVorDPMPropertyGridItem::Show() {
    const QString shown =
        m_note.isEmpty() ? m_value : m_value + QStringLiteral("  (") + m_note + QLatin1Char(')');
    setText(ValueColumn, shown);
    setToolTip(ValueColumn, m_note);
}

QVariant CVorDPMPropertyGridItem::data(int column, int role) const {
    // The editor starts from the value itself, never from the shown text with its note.
    if (column == ValueColumn && role == Qt::EditRole) return m_value;
    if (column == ValueColumn && role == Qt::ForegroundRole && !m_note.isEmpty())
        return QBrush(Qt::red);
    if (role == Qt::ForegroundRole && m_readOnly) return QBrush(Qt::gray);
    return QTreeWidgetItem::data(column, role);
}
