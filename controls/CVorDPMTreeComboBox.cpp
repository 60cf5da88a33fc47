#include "CVorDPMTreeComboBox.h"

#include <QAction>
#include <QFrame>
#include <QKeyEvent>
#include <QStyle>
#include <QTreeWidgetItemIterator>
#include <QVBoxLayout>

#include "CVorDPMTreeCtrlEx.h"

namespace {
constexpr int kDropDownHeight = 220;
}  // namespace

CVorDPMTreeComboBox::CVorDPMTreeComboBox(QWidget* parent)
    : QLineEdit(parent), m_popup(new QFrame(this, Qt::Popup)), m_tree(new CVorDPMTreeCtrlEx) {
    m_tree->SetCheckBoxes(false);
    m_tree->setHeaderHidden(true);
    m_popup->setFrameStyle(QFrame::Box | QFrame::Plain);
    auto* layout = new QVBoxLayout(m_popup);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_tree);

    QAction* arrow = addAction(style()->standardIcon(QStyle::SP_ArrowDown), TrailingPosition);
    connect(arrow, &QAction::triggered, this, &CVorDPMTreeComboBox::ShowDropDown);
    // A click chooses; so do Enter and Return on the current node (the tree's "activated").
    connect(m_tree, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* node) {
        SelectItem(node);
        HideDropDown();
    });
    connect(m_tree, &QTreeWidget::itemActivated, this, [this](QTreeWidgetItem* node) {
        SelectItem(node);
        HideDropDown();
    });
    // A node the owner removes can no longer be the chosen one.
    QAbstractItemModel* model = m_tree->model();
    connect(model, &QAbstractItemModel::modelAboutToBeReset, this, [this] { m_chosen = nullptr; });
    connect(model, &QAbstractItemModel::rowsAboutToBeRemoved, this, [this] { m_chosen = nullptr; });
}

// The drop-down and its tree go away after this object has: they must no longer call it.
CVorDPMTreeComboBox::~CVorDPMTreeComboBox() {
    m_tree->model()->disconnect(this);
    m_tree->disconnect(this);
}

void CVorDPMTreeComboBox::ShowDropDown() {
    m_popup->resize(width(), kDropDownHeight);
    m_popup->move(mapToGlobal(QPoint(0, height())));
    m_tree->expandAll();
    if (QTreeWidgetItem* selected = GetSelectedItem()) m_tree->setCurrentItem(selected);
    m_popup->show();
    m_tree->setFocus();
}

void CVorDPMTreeComboBox::HideDropDown() {
    m_popup->hide();
}

bool CVorDPMTreeComboBox::IsDroppedDown() const {
    return m_popup->isVisible();
}

void CVorDPMTreeComboBox::SelectItem(QTreeWidgetItem* node) {
    if (!node) return;
    m_chosen = node;
    setText(node->text(0));
    emit ItemChosen(node);
}

QTreeWidgetItem* CVorDPMTreeComboBox::GetSelectedItem() const {
    if (m_chosen && m_chosen->text(0) == text()) return m_chosen;
    if (text().isEmpty()) return nullptr;
    for (QTreeWidgetItemIterator it(m_tree); *it; ++it) {
        if ((*it)->text(0).compare(text(), Qt::CaseInsensitive) == 0) return *it;
    }
    return nullptr;
}

void CVorDPMTreeComboBox::keyPressEvent(QKeyEvent* event) {
    const bool altDown = event->key() == Qt::Key_Down && event->modifiers() & Qt::AltModifier;
    if (altDown || event->key() == Qt::Key_F4) {
        ShowDropDown();
        return;
    }
    QLineEdit::keyPressEvent(event);
}
