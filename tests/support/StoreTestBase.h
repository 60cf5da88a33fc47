// Base of tests that build their data through the store: a temporary root and short-hands
// that make libraries, catalogs, definitions and catalog entries.
#pragma once

#include <gtest/gtest.h>

#include "CVorDPMManager.h"
#include "support/TempRoot.h"

class StoreTestBase : public ::testing::Test {
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

    // A catalog entry; added to the catalog unless `catalog` is null.
    static CVorDPM_DPC_Content* MakeEntry(CVorDPMDPC* catalog, const QString& dpd,
                                          const QString& level0 = {}, const QString& level1 = {},
                                          const QString& level2 = {}) {
        auto* entry = new CVorDPM_DPC_Content;
        entry->SetDPD(dpd);
        entry->SetType(CVorDPM_DPC_Content::FirstType, level0);
        entry->SetType(CVorDPM_DPC_Content::SecondType, level1);
        entry->SetType(CVorDPM_DPC_Content::ThirdType, level2);
        if (catalog) {
            EXPECT_EQ(catalog->AddContent(entry), VOR::eOk);
        }
        return entry;
    }

    TempRoot m_root;
};
