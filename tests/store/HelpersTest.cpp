#include <QTemporaryDir>

#include "CBinaryData.h"
#include "CVorDPMCacheTableMangerCollect.h"
#include "CVorDPMSQL.h"
#include "VorDPMFunctions.h"
#include "support/StoreTestBase.h"

TEST(VorFunctions, ParseStringSplitsAtTheWholeDelimiterAndSkipsEmptyParts) {
    struct Case {
        QString text, delimiter;
        QStringList expected;
    };
    const Case cases[] = {
        {"目录/A/B", "/", {"目录", "A", "B"}},
        {"//C//A/", "/", {"C", "A"}},
        {"a::b:c", "::", {"a", "b:c"}},
        {"", "/", {}},
    };
    for (const Case& c : cases) {
        QStringList out{QStringLiteral("kept")};
        VOR::ParseString(c.text, c.delimiter, out);
        EXPECT_EQ(out, QStringList{"kept"} + c.expected) << c.text.toStdString();
    }
}

TEST(VorFunctions, GuidsAndTextConversion) {
    EXPECT_NE(VOR::CreateGuid(), VOR::CreateGuid());
    EXPECT_EQ(VOR::CreateGuid().size(), 38);
    const QString script = QStringLiteral("text(0, 0, \"螺栓\")\n");
    char* bytes = nullptr;
    int length = 0;
    VOR::WCharToMByte(script, bytes, length);
    EXPECT_EQ(bytes[length], '\0');
    QString back;
    VOR::MByteToWChar(bytes, length, back);
    delete[] bytes;
    EXPECT_EQ(back, script);
}

TEST(ValueRecords, BinaryDataLoadsAndSavesFilesAndKeepsItsBytesOnFailure) {
    QTemporaryDir dir;
    CBinaryData data(16);
    data.Append("ab\0c", 4);
    EXPECT_EQ(data.GetSize(), 4);
    const QString path = dir.filePath(QStringLiteral("x.bin"));
    ASSERT_EQ(data.SaveToFile(path), 1);
    CBinaryData loaded;
    ASSERT_EQ(loaded.LoadFromFile(path), 1);
    EXPECT_EQ(loaded, data);
    EXPECT_EQ(loaded.LoadFromFile(dir.filePath(QStringLiteral("missing"))), 0);
    EXPECT_EQ(loaded.GetSize(), 4);
    EXPECT_EQ(data.SaveToFile(dir.filePath(QStringLiteral("no/such/dir/x"))), 0);
    loaded.Empty();
    EXPECT_EQ(loaded.GetSize(), 0);
}

class CursorTest : public StoreTestBase {};

TEST_F(CursorTest, ReadsAnyStoreFileAndNeverWritesIt) {
    CVorDPMDPD* dpd = MakeDefinition(MakeLibrary(), QStringLiteral("D"));
    CVorDPM_DPD_Image* image = new CVorDPM_DPD_Image;
    image->SetName(QStringLiteral("图"));
    image->SetImage(CBinaryData(QByteArray("\1\2\3", 3)));
    dpd->AddImage(image);
    ASSERT_EQ(Manager()->SaveWork(), 1);

    CVorDPMSQL cursor;
    EXPECT_EQ(cursor.open(root.File(QStringLiteral("missing.DPD"))), 0);
    ASSERT_EQ(cursor.open(dpd->GetDPDFullPath()), 1);
    ASSERT_EQ(cursor.execQuery(QStringLiteral("SELECT name, image FROM image")), 1);
    ASSERT_FALSE(cursor.eof());
    EXPECT_EQ(cursor.getStringField(QStringLiteral("NAME")), QStringLiteral("图"));
    EXPECT_EQ(cursor.getStringField(QStringLiteral("nope"), QStringLiteral("def")),
              QStringLiteral("def"));
    int length = 0;
    const unsigned char* bytes = cursor.getBlobField(QStringLiteral("image"), length);
    ASSERT_EQ(length, 3);
    EXPECT_EQ(bytes[2], 3);
    cursor.nextRow();
    EXPECT_TRUE(cursor.eof());
    EXPECT_EQ(cursor.execQuery(QStringLiteral("DELETE FROM image")), 0);
    EXPECT_EQ(cursor.execQuery(QStringLiteral("SELEC nonsense")), 0);
    cursor.close();
}

TEST_F(CursorTest, CacheTableFollowsTheDefinitionUntilDropped) {
    CVorDPMDPD* dpd = MakeDefinition(MakeLibrary(), QStringLiteral("Bolt"));
    CVorDPM_DPD_Property* d = AddProperty(dpd, QStringLiteral("d"), QStringLiteral("直径"));
    auto* serial = new CVorDPM_DPD_Serial;
    serial->SetValue(QStringLiteral("M12"), d->GetObjectId());
    dpd->AddSerial(serial);
    auto* cache = CVorDPMCacheTableMangerCollect::GetInstance();
    EXPECT_EQ(cache->GetDPMCacheTableManger(QStringLiteral("Bolt")), nullptr);
    EXPECT_EQ(dpd->SetCacheTable(), 1);
    CVorDPMCacheTableManger* table = cache->GetDPMCacheTableManger(QStringLiteral("bolt"));
    ASSERT_NE(table, nullptr);
    const int row = table->FindRow(serial->GetKey());
    EXPECT_EQ(table->GetValue(row, QStringLiteral("D")), QStringLiteral("M12"));
    // A snapshot: a later change of the row reaches the table with the next SetCacheTable.
    serial->SetValue(QStringLiteral("M16"), d->GetObjectId());
    EXPECT_EQ(table->GetValue(row, QStringLiteral("d")), QStringLiteral("M12"));
    EXPECT_EQ(table->GetValue(row + 1, QStringLiteral("d")), QString());
    cache->RemoveDPMCacheTableManger(QStringLiteral("Bolt"));
    EXPECT_EQ(cache->GetDPMCacheTableManger(QStringLiteral("Bolt")), nullptr);
}
