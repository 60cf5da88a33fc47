// A node of the product tree. Its text, image index and store object live in members instead of
// the base class's lists of item data, which take allocations of their own for every node. A
// product node names its definition (library and name) instead of holding it: whether the
// definition exists (the node's image) and the definition itself (its item data) are looked up
// when first asked for, so that building the tree of a large library neither looks up nor makes
// a store object per product.
#pragma once

#include <QIcon>
#include <QList>
#include <QString>
#include <QTreeWidgetItem>

class CVorDPMDBBase;

class CVorDPMTreeItem : public QTreeWidgetItem {
public:
    static constexpr int Type = QTreeWidgetItem::UserType + 1;

    // `icons`: the tree's icons by image index; they outlive the node, which the tree owns.
    CVorDPMTreeItem(const QString& text, int image, CVorDPMDBBase* data, const QList<QIcon>* icons);
    // The node of the definition `name` of `library`: a product, or a missing product when the
    // library has no such definition.
    CVorDPMTreeItem(const QString& name, const QString& library, const QList<QIcon>* icons);

    QVariant data(int column, int role) const override;
    void setData(int column, int role, const QVariant& value) override;

private:
    int Image() const;
    CVorDPMDBBase* Object() const;
    void Forget() const;

    QString m_text;
    const QList<QIcon>* m_icons;
    mutable int m_image;
    mutable CVorDPMDBBase* m_object;
    // The library of the definition still to be looked up, by the node's text; empty once it
    // has been (a new text is set only after the look-up).
    mutable QString m_library;
    mutable bool m_imageKnown = true;
};
