// Reading a container's rows from a server root as they stream in: the splitting of the
// server's binary copy messages, and a damaged row met in the middle of a table.

#include <QtEndian>

#include "CVorDPMPgConnection.h"
#include "ServerDatabase.h"
#include "support/StoreTestBase.h"

namespace {

QByteArray Int(qint32 value, int bytes = 4) {
    char out[4];
    qToBigEndian(value, out);
    return bytes == 4 ? QByteArray(out, 4) : QByteArray(out + 2, 2);
}

// The stream's header, as the server sends it before the first row.
QByteArray Header() {
    return QByteArray("PGCOPY\n\377\r\n\0", 11) + Int(0) + Int(0);
}

// A row of an object id and its packed fields.
QByteArray Row(qint32 id, const QByteArray& fields) {
    return Int(2, 2) + Int(4) + Int(id) + Int(qint32(fields.size())) + fields;
}

}  // namespace

TEST(CopyRows, SplitsRowsAfterTheHeaderAndRefusesEveryBrokenMessage) {
    using Kind = PgBinary::CopyRows::Kind;
    PgBinary::CopyRows rows;
    // Fields are views into the message read last, which must outlive them.
    const QByteArray first = Header() + Row(7, "ab");
    ASSERT_EQ(rows.Read(first), Kind::Row);
    ASSERT_EQ(rows.Fields().size(), 2u);
    EXPECT_EQ(qFromBigEndian<qint32>(rows.Fields()[0].data()), 7);
    EXPECT_EQ(rows.Fields()[1], "ab");
    const QByteArray second = Row(8, QByteArray());
    ASSERT_EQ(rows.Read(second), Kind::Row);
    EXPECT_EQ(rows.Fields()[1].size(), 0);
    EXPECT_EQ(rows.Read(Int(-1, 2)), Kind::End);

    // A header in a message of its own, then an empty table's end mark.
    PgBinary::CopyRows empty;
    EXPECT_EQ(empty.Read(Header()), Kind::Header);
    EXPECT_EQ(empty.Read(Int(-1, 2)), Kind::End);

    // Every cut of a first message, a null, bytes after a row or the end mark, a wrong signature.
    for (qsizetype size = 0; size < first.size(); ++size) {
        if (size == Header().size()) continue;
        EXPECT_EQ(PgBinary::CopyRows().Read(first.left(size)), Kind::Broken) << size;
    }
    const QByteArray broken[] = {
        Header() + Int(1, 2) + Int(-1),
        first + "x",
        Header() + Int(-1, 2) + "x",
        "PGCOPY\n\377\r\n\1" + first.mid(11),
    };
    for (const QByteArray& message : broken)
        EXPECT_EQ(PgBinary::CopyRows().Read(message), Kind::Broken) << message.toHex().data();
}

class ServerRowStreamTest : public StoreTestBase {
protected:
    void SetUp() override {
        if (!m_db.Ready()) GTEST_SKIP() << m_db.Reason().toStdString();
    }
    void TearDown() override { Manager()->SetDPMLibraryRootPath(root.Path()); }

    ServerDatabase m_db;
};

TEST_F(ServerRowStreamTest, ADamagedRowIsNamedAndTheConnectionGoesOnToTheNextLoad) {
    ASSERT_EQ(Manager()->SetDPMLibraryRootPath(m_db.Uri()), 1);
    CVorDPMLibraryManager* library = MakeLibrary();
    for (const QString& name : {QStringLiteral("Bolt"), QStringLiteral("Nut")}) {
        CVorDPMDPD* dpd = MakeDefinition(library, name);
        AddValueRows(dpd, AddProperty(dpd, QStringLiteral("L"))->GetObjectId(), 50,
                     QStringLiteral("5"));
    }
    SaveAndReopen();
    ASSERT_EQ(m_db.Exec(QStringLiteral(
                  "UPDATE vordpm.container_rows r SET fields = substring(r.fields from 1 for 3) "
                  "FROM vordpm.containers c WHERE c.id = r.container_id AND c.name = 'Bolt' "
                  "AND r.table_name = 'serial' AND r.object_id = 20")),
              QString());

    CVorDPMDPD* bolt = Definition(QStringLiteral("Bolt"));
    ASSERT_NE(bolt, nullptr);
    CKZList<CVorDPM_DPD_Serial*> rows;
    EXPECT_NE(bolt->GetAllSerial(rows), VOR::eOk);
    EXPECT_EQ(CVorDPMManager::GetLastErrorText(),
              bolt->GetFilePath() + QStringLiteral(": 表 serial 的第 20 行已损坏，无法读取"));

    // The failed load leaves the connection fit for the next one, whose rows come in id order.
    CVorDPMDPD* nut = Definition(QStringLiteral("Nut"));
    ASSERT_NE(nut, nullptr);
    EXPECT_EQ(nut->GetAllSerial(rows), VOR::eOk) << nut->GetLoadError().toStdString();
    ASSERT_EQ(rows.GetCount(), 50);
    for (int i = 0; i < rows.GetCount(); ++i) EXPECT_EQ(rows.GetAt(i)->GetObjectId(), i + 1);
}
