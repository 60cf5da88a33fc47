// Shared set-up of the query tests: a temporary root and short-hands that build libraries,
// catalogs and product definitions through the store.
#pragma once

#include <gtest/gtest.h>

#include <QStringList>

#include "CVorDPMManager.h"
#include "support/TempRoot.h"

// Names of entries in list order, for comparing whole results at once.
inline QStringList EntryNames(const CKZList<CVorDPM_DPC_Content*>& entries) {
    QStringList names;
    for (const CVorDPM_DPC_Content* entry : entries)
        names.append(entry ? entry->GetDPD() : QStringLiteral("<null>"));
    return names;
}

class QueryTest : public ::testing::Test {
protected:
    static CVorDPMManager* Manager() { return CVorDPMManager::GetVorDPMManager(); }

    static CVorDPMLibraryManager* MakeLibrary(const QString& name) {
        CVorDPMLibraryManager* library = nullptr;
        EXPECT_EQ(Manager()->CreateLibrary(name, library), VOR::eOk);
        return library;
    }

    static CVorDPMDPC* MakeCatalog(CVorDPMLibraryManager* library, const QString& name) {
        CVorDPMDPC* catalog = nullptr;
        EXPECT_EQ(library->CreateDPC(name, catalog), VOR::eOk);
        return catalog;
    }

    static CVorDPMDPD* MakeDefinition(CVorDPMLibraryManager* library, const QString& name) {
        CVorDPMDPD* dpd = nullptr;
        EXPECT_EQ(library->CreateDPD(name, dpd), VOR::eOk);
        return dpd;
    }

    static CVorDPM_DPC_Content* AddEntry(CVorDPMDPC* catalog, const QString& dpd,
                                         const QString& level0 = {}, const QString& level1 = {},
                                         const QString& level2 = {}) {
        auto* entry = new CVorDPM_DPC_Content;
        entry->SetDPD(dpd);
        entry->SetType(CVorDPM_DPC_Content::FirstType, level0);
        entry->SetType(CVorDPM_DPC_Content::SecondType, level1);
        entry->SetType(CVorDPM_DPC_Content::ThirdType, level2);
        EXPECT_EQ(catalog->AddContent(entry), VOR::eOk);
        return entry;
    }

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

    TempRoot m_root;
};
