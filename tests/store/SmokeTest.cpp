#include <gtest/gtest.h>
#include "CVorDPMManager.h"
#include "support/TempRoot.h"
TEST(Smoke, CreateLibrary) {
    TempRoot root;
    CVorDPMLibraryManager* lib = nullptr;
    EXPECT_EQ(CVorDPMManager::GetVorDPMManager()->CreateLibrary("QXMaterial", lib), VOR::eOk);
}
