// Shared set-up of the query tests: a temporary root and short-hands that build libraries,
// catalogs and product definitions through the store.
#pragma once

#include <QStringList>

#include "support/StoreTestBase.h"

// Names of entries in list order, for comparing whole results at once.
inline QStringList EntryNames(const CKZList<CVorDPM_DPC_Content*>& entries) {
    QStringList names;
    for (const CVorDPM_DPC_Content* entry : entries)
        names.append(entry ? entry->GetDPD() : QStringLiteral("<null>"));
    return names;
}

class QueryTest : public StoreTestBase {
protected:
    static CVorDPM_DPD_Property* AddProperty(CVorDPMDPD* dpd, const QString& param) {
        auto* property = new CVorDPM_DPD_Property;
        property->SetPropertyAlias(param + QStringLiteral("-alias"));
        property->SetParamAlias(param);
        EXPECT_EQ(dpd->AddProperty(property), VOR::eOk);
        return property;
    }

    static CVorDPM_DPD_Product* AddProduct(CVorDPMDPD* dpd, const QString& name,
                                           const QString& rule) {
        auto* product = new CVorDPM_DPD_Product;
        product->SetName(name);
        product->SetNameRule(rule);
        EXPECT_EQ(dpd->AddProduct(product), VOR::eOk);
        return product;
    }

    static CVorDPM_DPD_Serial* AddSerial(CVorDPMDPD* dpd, const CVorDPM_DPD_Product* product) {
        auto* serial = new CVorDPM_DPD_Serial;
        serial->SetProductId(product->GetObjectId());
        EXPECT_EQ(dpd->AddSerial(serial), VOR::eOk);
        return serial;
    }

    // Writes everything and forgets it, so that the next lookups read the files again.
    static void SaveAndReopen() {
        ASSERT_EQ(Manager()->SaveWork(), 1);
        Manager()->DiscardChanges();
    }
};
