// Shared set-up of the store tests: a temporary root and short-hands for common objects.
#pragma once

#include <gtest/gtest.h>

#include "CVorDPMManager.h"
#include "support/TempRoot.h"

class StoreTest : public ::testing::Test {
protected:
    CVorDPMManager* Manager() { return CVorDPMManager::GetVorDPMManager(); }

    CVorDPMLibraryManager* MakeLibrary(const QString& name = QStringLiteral("QXMaterial")) {
        CVorDPMLibraryManager* library = nullptr;
        EXPECT_EQ(Manager()->CreateLibrary(name, library), VOR::eOk);
        return library;
    }

    CVorDPMDPD* MakeDefinition(CVorDPMLibraryManager* library, const QString& name) {
        CVorDPMDPD* dpd = nullptr;
        EXPECT_EQ(library->CreateDPD(name, dpd), VOR::eOk);
        return dpd;
    }

    CVorDPM_DPD_Property* AddProperty(CVorDPMDPDBase* dpd, const QString& alias,
                                      const QString& param) {
        auto* property = new CVorDPM_DPD_Property;
        property->SetPropertyAlias(alias);
        property->SetParamAlias(param);
        EXPECT_EQ(dpd->AddProperty(property), VOR::eOk);
        return property;
    }

    // Drops everything loaded so that the next lookups read the files again.
    void Reopen() { Manager()->DiscardChanges(); }

    TempRoot m_root;
};
