// Enters product definitions into a catalog as content rows under up to three classification
// texts, refusing a product that the catalog already holds under the same classification.
// Used when products are added to a catalog and when a new product is entered in one.
#pragma once

#include <QString>

class CVorDPMDPC;

class CVorDPMContentAdder {
public:
    enum Result { Added, AlreadyPresent, Failed };

    // `catalog` may be null: every add then fails without effect.
    CVorDPMContentAdder(CVorDPMDPC* catalog, const QString& class1, const QString& class2,
                        const QString& class3);

    // Adds one content row naming `product`; nothing is added unless the result is Added.
    Result Add(const QString& product) const;

private:
    CVorDPMDPC* m_catalog;
    QString m_classes[3];
};
