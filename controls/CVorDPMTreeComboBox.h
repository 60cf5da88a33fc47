// An edit field with a drop-down tree: the user types a text or picks a node of the tree, whose
// text then fills the field. The owner fills the tree; the dialogs that choose a template or a
// template location use it.
#pragma once

#include <QLineEdit>

class CVorDPMTreeCtrlEx;
class QFrame;
class QTreeWidgetItem;

class CVorDPMTreeComboBox : public QLineEdit {
    Q_OBJECT

public:
    explicit CVorDPMTreeComboBox(QWidget* parent = nullptr);
    ~CVorDPMTreeComboBox() override;

    // The drop-down tree (no check boxes), for the owner to fill.
    CVorDPMTreeCtrlEx* GetTreeCtrl() const { return m_tree; }

    void ShowDropDown();
    void HideDropDown();
    bool IsDroppedDown() const;

    // Chooses a node as a click in the drop-down does: its text fills the field.
    void SelectItem(QTreeWidgetItem* node);
    // The node the field stands for: the node last chosen while the field still shows its text,
    // otherwise the first node in tree order whose text equals the field's without regard to
    // case; null when none does.
    QTreeWidgetItem* GetSelectedItem() const;

signals:
    void ItemChosen(QTreeWidgetItem* node);

protected:
    // Alt+Down and F4 open the drop-down, as on a combo box.
    void keyPressEvent(QKeyEvent* event) override;

private:
    QFrame* m_popup;
    CVorDPMTreeCtrlEx* m_tree;
    QTreeWidgetItem* m_chosen = nullptr;
};
