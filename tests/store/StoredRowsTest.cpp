// One pass over a definition's rows as its file holds them, without loading it.
#include <vector>

#include "CVorDPMStoredRows.h"
#include "support/StoreFileEdits.h"
#include "support/StoreTestBase.h"

class StoredRowsTest : public StoreTestBase {
protected:
    void SetUp() override {
        CVorDPMDPD* bolt = MakeDefinition(MakeLibrary(), QStringLiteral("Bolt"));
        const CVorDPM_DPD_Property* d = AddProperty(bolt, QStringLiteral("d"));
        const CVorDPM_DPD_Product* product =
            AddProduct(bolt, QStringLiteral("螺栓"), QStringLiteral("M%d"));
        for (const char* size : {"M12", "M16", "M20"}) {
            CVorDPM_DPD_Serial* row = AddSerial(bolt, product);
            row->SetValue(QString::fromUtf8(size), d->GetObjectId());
        }
        m_d = d->GetObjectId();
        ASSERT_EQ(Manager()->SaveWork(), 1);
        Reopen();
    }

    // Id and value of each series row the file holds, in the order visited.
    std::vector<std::pair<int, QString>> StoredSeries(CVorDPMStoredRows& stored) const {
        std::vector<std::pair<int, QString>> rows;
        EXPECT_TRUE(stored.ForEach<CVorDPM_DPD_Serial>([&](const CVorDPM_DPD_Serial& row) {
            rows.emplace_back(row.GetObjectId(), row.GetValue(m_d));
        })) << stored.Error().toStdString();
        return rows;
    }

    int m_d = 0;
};

TEST_F(StoredRowsTest, VisitsTheSavedRowsInIdOrderAndNotUnsavedChanges) {
    const std::vector<std::pair<int, QString>> saved{{1, "M12"}, {2, "M16"}, {3, "M20"}};
    {
        CVorDPMStoredRows before(*Definition(QStringLiteral("Bolt")));
        EXPECT_TRUE(before.Error().isEmpty()) << before.Error().toStdString();
        EXPECT_EQ(StoredSeries(before), saved);
    }
    // Changes in memory are not the file's until saved.
    CVorDPMDPD* bolt = Definition(QStringLiteral("Bolt"));
    CVorDPM_DPD_Serial* first = nullptr;
    ASSERT_EQ(bolt->GetSerial(1, first, 0), VOR::eOk);
    first->SetValue(QStringLiteral("M10"), m_d);
    CVorDPM_DPD_Serial* second = nullptr;
    ASSERT_EQ(bolt->GetSerial(2, second, 0), VOR::eOk);
    second->SetDeleted(1);
    {
        CVorDPMStoredRows unsaved(*bolt);
        EXPECT_EQ(StoredSeries(unsaved), saved);
    }
    // The file is locked for reading while a pass over it lives, so it is saved after.
    ASSERT_EQ(Manager()->SaveWork(), 1);
    CVorDPMStoredRows after(*bolt);
    EXPECT_EQ(StoredSeries(after), (std::vector<std::pair<int, QString>>{{1, "M10"}, {3, "M20"}}));
    // Every table can be read in the same pass, any number of times.
    int products = 0;
    EXPECT_TRUE(after.ForEach<CVorDPM_DPD_Product>([&](const CVorDPM_DPD_Product& product) {
        EXPECT_EQ(product.GetName(), QStringLiteral("螺栓"));
        ++products;
    }));
    EXPECT_EQ(products, 1);
    EXPECT_EQ(StoredSeries(after).size(), 2u);
}

// The rows before the one that cannot be read have been visited; the rest are not.
TEST_F(StoredRowsTest, StopsAtARowThatCannotBeReadAndSaysWhy) {
    Exec(Definition(QStringLiteral("Bolt"))->GetDPDFullPath(),
         "UPDATE serial SET product_id = 4294967297 WHERE id = 2");
    CVorDPMStoredRows stored(*Definition(QStringLiteral("Bolt")));
    ASSERT_TRUE(stored.Error().isEmpty()) << stored.Error().toStdString();
    std::vector<int> visited;
    EXPECT_FALSE(stored.ForEach<CVorDPM_DPD_Serial>(
        [&](const CVorDPM_DPD_Serial& row) { visited.push_back(row.GetObjectId()); }));
    EXPECT_EQ(visited, std::vector<int>{1});
    EXPECT_TRUE(stored.Error().contains(QStringLiteral("超出本程序可保存范围的数字")))
        << stored.Error().toStdString();
    EXPECT_FALSE(stored.ForEach<CVorDPM_DPD_Product>([](const CVorDPM_DPD_Product&) {}));
}
