#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QThread>
#include <csignal>
#include <functional>
#include <thread>

#include "CVorDPMStoredRows.h"
#include "support/StoreFileEdits.h"
#include "support/StoreTestBase.h"

namespace {

// Integrity of the file and the distinct packed series values it holds.
QStringList CheckedValues(const QString& path) {
    return Column(path, "PRAGMA integrity_check", "integrity_check") +
           Column(path, "SELECT DISTINCT vals FROM serial", "vals");
}

}  // namespace

class FaultTest : public StoreTestBase {
protected:
    void SetUp() override {
        m_library = MakeLibrary();
        for (const char* name : {"Good", "Bad"}) {
            CVorDPMDPD* dpd = MakeDefinition(m_library, QString::fromUtf8(name));
            AddProperty(dpd, QStringLiteral("d"), QStringLiteral("直径"));
        }
        ASSERT_EQ(Manager()->SaveWork(), 1);
        Reopen();
        Manager()->GetLibrary(QStringLiteral("QXMaterial"), m_library);
    }

    // A one-pass read of the file fails as loading it does, and says why.
    static void ExpectStoredRowsRefused(const CVorDPMDPD& dpd, const char* label,
                                        const char* reason) {
        CVorDPMStoredRows stored(dpd);
        int rows = 0;
        const auto count = [&](const auto&) { ++rows; };
        EXPECT_FALSE(stored.ForEach<CVorDPM_DPD_Property>(count) &&
                     stored.ForEach<CVorDPM_DPD_Serial>(count))
            << label;
        EXPECT_TRUE(stored.Error().contains(QStringLiteral("Bad.DPD")))
            << label << ": " << stored.Error().toStdString();
        EXPECT_TRUE(stored.Error().contains(QString::fromUtf8(reason)))
            << label << ": " << stored.Error().toStdString();
    }

    QString PathOf(const char* dpd) {
        return root.File(QStringLiteral("QXMaterial/%1.DPD").arg(QString::fromUtf8(dpd)));
    }

    CVorDPMLibraryManager* m_library = nullptr;
};

TEST_F(FaultTest, UnusableFilesFailCleanlyWithAReasonAndLeaveOthersAlone) {
    const QByteArray original = ReadAll(PathOf("Bad"));
    QByteArray foreign;
    {
        const QString other = root.File(QStringLiteral("other.sqlite"));
        Exec(other, "CREATE TABLE notes(text TEXT); INSERT INTO notes VALUES ('x')");
        foreign = ReadAll(other);
    }
    QByteArray random(4096, '\0');
    for (char& byte : random) byte = static_cast<char>(QRandomGenerator::global()->bounded(256));
    struct Case {
        const char* label;
        std::function<void()> damage;
        const char* reason;
    };
    const Case cases[] = {
        {"truncated", [&] { Write(PathOf("Bad"), original.left(original.size() / 3)); }, ""},
        {"random bytes", [&] { Write(PathOf("Bad"), random); }, ""},
        {"empty file", [&] { Write(PathOf("Bad"), QByteArray()); }, "不是 VorDPM 产品定义文件"},
        {"other application", [&] { Write(PathOf("Bad"), foreign); }, "不是 VorDPM 产品定义文件"},
        {"catalog file",
         [&] {
             CVorDPMDPC* c = nullptr;
             m_library->CreateDPC(QStringLiteral("C"), c);
             Write(PathOf("Bad"), ReadAll(root.File(QStringLiteral("QXMaterial/C.DPC"))));
         },
         "不是 VorDPM 产品定义文件"},
        {"newer schema",
         [&] {
             Write(PathOf("Bad"), original);
             Exec(PathOf("Bad"), "PRAGMA user_version = 99");
         },
         "由较新的版本写入"},
        {"missing table",
         [&] {
             Write(PathOf("Bad"), original);
             Exec(PathOf("Bad"), "DROP TABLE serial");
         },
         "缺少表 serial"},
    };
    for (const Case& c : cases) {
        Reopen();
        Manager()->GetLibrary(QStringLiteral("QXMaterial"), m_library);
        c.damage();
        const QByteArray damaged = ReadAll(PathOf("Bad"));
        // Definitions are read on first use: the lookup or that first use fails.
        CVorDPMDPD* dpd = nullptr;
        m_library->GetDPD(QStringLiteral("Bad"), dpd);
        if (dpd) ExpectStoredRowsRefused(*dpd, c.label, c.reason);
        CKZList<CVorDPM_DPD_Property*> rows;
        EXPECT_TRUE(!dpd || dpd->GetAllProperty(rows) != VOR::eOk) << c.label;
        EXPECT_TRUE(rows.IsEmpty()) << c.label;
        if (dpd) {
            auto* row = new CVorDPM_DPD_Property;
            row->SetPropertyAlias(QStringLiteral("x"));
            row->SetParamAlias(QStringLiteral("x"));
            EXPECT_NE(dpd->AddProperty(row), VOR::eOk) << c.label;
        }
        const QString reason = CVorDPMManager::GetLastErrorText();
        EXPECT_TRUE(reason.contains(QStringLiteral("Bad.DPD")))
            << c.label << ": " << reason.toStdString();
        EXPECT_TRUE(reason.contains(QString::fromUtf8(c.reason)))
            << c.label << ": " << reason.toStdString();
        CVorDPMDPD* good = nullptr;
        ASSERT_EQ(m_library->GetDPD(QStringLiteral("Good"), good), VOR::eOk) << c.label;
        EXPECT_EQ(good->GetAllProperty(rows), VOR::eOk) << c.label;
        EXPECT_EQ(Manager()->SaveWork(), 1) << c.label;
        EXPECT_EQ(ReadAll(PathOf("Bad")), damaged) << c.label;
    }
}

// A folder where the save's rollback journal goes: no write can begin, not even as the
// superuser, whom file permissions would not stop.
TEST_F(FaultTest, AFailedSaveReportsAndKeepsTheChangesForAnotherTry) {
    CVorDPMDPD* dpd = Definition(QStringLiteral("Good"));
    ASSERT_NE(dpd, nullptr);
    AddProperty(dpd, QStringLiteral("l"), QStringLiteral("长度"));
    const QString journal = PathOf("Good") + QStringLiteral("-journal");
    ASSERT_TRUE(QDir().mkdir(journal));
    EXPECT_EQ(Manager()->SaveWork(), 0);
    EXPECT_TRUE(Manager()->HasUnsavedChanges());
    EXPECT_TRUE(CVorDPMManager::GetLastErrorText().contains(QStringLiteral("Good.DPD")))
        << CVorDPMManager::GetLastErrorText().toStdString();

    ASSERT_TRUE(QDir().rmdir(journal));
    EXPECT_EQ(Column(PathOf("Good"), "SELECT count(*) AS n FROM property", "n"), QStringList{"1"});
    EXPECT_EQ(Manager()->SaveWork(), 1) << CVorDPMManager::GetLastErrorText().toStdString();
    EXPECT_FALSE(Manager()->HasUnsavedChanges());
    EXPECT_EQ(Column(PathOf("Good"), "SELECT count(*) AS n FROM property", "n"), QStringList{"2"});
}

TEST_F(FaultTest, ASaveWaitsForAnotherWritersLock) {
    CVorDPMDPD* dpd = Definition(QStringLiteral("Good"));
    ASSERT_NE(dpd, nullptr);
    AddProperty(dpd, QStringLiteral("l"), QStringLiteral("长度"));
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(QFile::encodeName(PathOf("Good")).constData(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
    std::thread release([other] {
        QThread::msleep(700);
        sqlite3_exec(other, "COMMIT", nullptr, nullptr, nullptr);
    });
    EXPECT_EQ(Manager()->SaveWork(), 1);
    release.join();
    sqlite3_close(other);
    Reopen();
    CKZList<CVorDPM_DPD_Property*> rows;
    Definition(QStringLiteral("Good"))->GetAllProperty(rows);
    EXPECT_EQ(rows.GetCount(), 2);
}

// True once the file's rollback journal has its header: the commit has begun, and a writer
// killed now leaves a journal that the next reader has to roll back.
bool JournalIsHot(const QString& path) {
    QFile journal(path + QStringLiteral("-journal"));
    if (!journal.open(QIODevice::ReadOnly)) return false;
    const QByteArray header = journal.read(8);
    return header.size() == 8 && header != QByteArray(8, '\0');
}

// A writer killed in the middle of its commit leaves the old contents, never a mix, and the
// next reader sees them: it rolls back the journal the killed save left behind.
TEST_F(FaultTest, KilledSaveLeavesOldOrNewContents) {
    CVorDPMDPD* dpd = Definition(QStringLiteral("Good"));
    ASSERT_NE(dpd, nullptr);
    CVorDPM_DPD_Property* extra = AddProperty(dpd, QStringLiteral("l"), QStringLiteral("长度"));
    const CVorDPM_DPD_Product* product = AddProduct(dpd, QStringLiteral("p"));
    AddValueRows(dpd, extra->GetObjectId(), 30000, QStringLiteral("old"), product->GetObjectId());
    ASSERT_EQ(Manager()->SaveWork(), 1);
    ASSERT_TRUE(QFile::exists(StoreWriter())) << StoreWriter().toStdString();
    int interrupted = 0;
    for (int round = 0; round < 5; ++round) {
        const QString value = QStringLiteral("value%1").arg(round);
        QProcess child;
        ASSERT_TRUE(StartWriter(child, root.Path(), {"values", "QXMaterial", "Good", value}));
        while (!JournalIsHot(PathOf("Good")) && child.state() == QProcess::Running)
            QThread::usleep(100);
        child.kill();
        child.waitForFinished();
        if (JournalIsHot(PathOf("Good"))) ++interrupted;
        const QStringList checked = CheckedValues(PathOf("Good"));
        ASSERT_GE(checked.size(), 2) << "round " << round;
        EXPECT_EQ(checked[0], QStringLiteral("ok")) << "round " << round;
        EXPECT_EQ(checked.size(), 2) << "mixed contents in round " << round;
    }
    EXPECT_GT(interrupted, 0) << "no save was killed during its commit";
}

// A write that fails half-way reports what failed (the full disk), not what the rollback said
// afterwards; a later successful save leaves no old error behind.
TEST_F(FaultTest, AFullDiskIsReportedAsTheFirstErrorAndForgottenAfterSuccess) {
    CVorDPMDPD* dpd = Definition(QStringLiteral("Good"));
    ASSERT_NE(dpd, nullptr);
    CKZList<CVorDPM_DPD_Property*> properties;
    dpd->GetAllProperty(properties);
    AddValueRows(dpd, properties.GetAt(0)->GetObjectId(), 2000, QString(1000, QLatin1Char('x')));
    // The process may write no file beyond 256 KB: the save runs out of room.
    rlimit original{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &original), 0);
    const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit small = original;
    small.rlim_cur = 256 * 1024;
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    const int saved = Manager()->SaveWork();
    setrlimit(RLIMIT_FSIZE, &original);
    std::signal(SIGXFSZ, oldHandler);

    EXPECT_EQ(saved, 0);
    // The write failed (a rollback error would say something else).
    EXPECT_EQ(CVorDPMManager::GetLastErrorText(),
              PathOf("Good") + QStringLiteral(": 读写文件出错"));
    EXPECT_EQ(Manager()->SaveWork(), 1);
    EXPECT_EQ(CVorDPMManager::GetLastErrorText(), QString());
    EXPECT_EQ(CheckedValues(PathOf("Good")).first(), QStringLiteral("ok"));
}

// Something other than a regular file where a store file is expected: nothing blocks on it
// (a named pipe would block a reader for ever), and it is refused at once, named.
TEST_F(FaultTest, OddFilesAreRefusedAtOnceAndNamed) {
    ASSERT_NE(Manager()->GetCommonManager()->GetPropertyDPO(), nullptr);
    QDir().mkpath(root.File(QStringLiteral("QXMaterial/templates")));
    struct Case {
        const char* place;
        bool pipe;  // else a folder
        const char* command;
    };
    const Case cases[] = {
        {"QXMaterial/library.DPI", true, "open"},
        {"QXMaterial/library.DPI", false, "open"},
        {"Property.DPO", true, "open"},
        {"Property.DPO", false, "open"},
        {"QXMaterial/Good.DPD-journal", true, "open"},
        {"QXMaterial/Odd.DPD", true, "open"},
        {"QXMaterial/Odd.DPD", false, "open"},
        {"QXMaterial/Odd.DPC", false, "open"},
        {"QXMaterial/templates/Odd.DPT", false, "open"},
        {"QXMaterial/Odd.DPD", true, "copy-library"},
    };
    for (const Case& c : cases) {
        const QString path = root.File(QString::fromUtf8(c.place));
        const QByteArray saved = QFile::exists(path) ? ReadAll(path) : QByteArray();
        QFile::remove(path);
        ASSERT_TRUE(c.pipe ? ::mkfifo(QFile::encodeName(path).constData(), 0600) == 0
                           : QDir().mkdir(path))
            << c.place;
        QProcess child;
        child.start(StoreWriter(), {root.Path(), c.command, "QXMaterial", "Copy"});
        const bool ended = child.waitForFinished(5000);
        if (!ended) child.kill();
        child.waitForFinished();
        const QString output = QString::fromUtf8(child.readAllStandardOutput());
        EXPECT_TRUE(ended) << c.command << " blocked on " << c.place;
        EXPECT_TRUE(output.contains(path + QStringLiteral(": 不是普通文件")))
            << c.command << ", " << c.place << ": " << output.toStdString();
        EXPECT_FALSE(QFile::exists(root.File(QStringLiteral("Copy")))) << c.place;
        QDir(path).removeRecursively();
        QFile::remove(path);
        if (!saved.isEmpty()) Write(path, saved);
    }
}

// A copy killed while it writes leaves its temporary file; the next process that opens the
// library removes it, but never the temporary file of a copy that is still being written.
TEST_F(FaultTest, TemporaryFilesOfKilledWritersAreRemovedThoseOfLiveOnesKept) {
    CVorDPMDPD* big = MakeDefinition(m_library, QStringLiteral("Big"));
    const int property =
        AddProperty(big, QStringLiteral("直径"), QStringLiteral("d"))->GetObjectId();
    AddValueRows(big, property, 20000, QString(500, QLatin1Char('x')));
    ASSERT_EQ(Manager()->SaveWork(), 1);
    const QDir folder(root.File(QStringLiteral("QXMaterial")));
    const auto temporaries = [&] { return folder.entryList({QStringLiteral("*.new-*")}); };
    const auto startCopy = [&](QProcess& child, const QString& name) {
        StartWriter(child, root.Path(), {"copy-dpd", "QXMaterial", "Big", name});
        child.write("go\n");
        child.waitForBytesWritten();
    };
    // Killed as soon as its temporary file appears, so in the middle of writing it.
    QProcess killed;
    startCopy(killed, QStringLiteral("Killed"));
    while (temporaries().isEmpty() && killed.state() == QProcess::Running) QThread::msleep(1);
    killed.kill();
    killed.waitForFinished();
    ASSERT_FALSE(temporaries().isEmpty()) << "no copy was killed while it wrote";

    Reopen();
    Manager()->GetLibrary(QStringLiteral("QXMaterial"), m_library);
    EXPECT_EQ(temporaries(), QStringList());

    QProcess live;
    startCopy(live, QStringLiteral("Live"));
    while (live.state() == QProcess::Running) {
        Reopen();
        Manager()->GetLibrary(QStringLiteral("QXMaterial"), m_library);
        live.waitForFinished(5);
    }
    EXPECT_TRUE(live.readAllStandardOutput().endsWith("ok\n"));
    EXPECT_EQ(CheckedValues(PathOf("Live")).first(), QStringLiteral("ok"));
}

// A library copy killed part-way leaves no library: the copy appears whole or not at all, and
// what a killed copy wrote is removed when the root is opened next, never what a live one is
// writing.
TEST_F(FaultTest, AKilledLibraryCopyLeavesNoPartOfALibrary) {
    CVorDPMDPD* big = MakeDefinition(m_library, QStringLiteral("Big"));
    const int property = AddProperty(big, QStringLiteral("d"))->GetObjectId();
    AddValueRows(big, property, 20000, QString(1000, QLatin1Char('x')));
    ASSERT_EQ(Manager()->SaveWork(), 1);
    const QStringList source = Snapshot(root.File(QStringLiteral("QXMaterial")));
    const QStringList entries = Entries(root.Path());
    int killed = 0;
    const int delaysMs[] = {0, 5, 15, 40};
    for (int round = 0; round < 4; ++round) {
        const QString copy = QStringLiteral("Copy%1").arg(round);
        QProcess child;
        ASSERT_TRUE(StartWriter(child, root.Path(), {"copy-library", "QXMaterial", copy}));
        while (Entries(root.Path()) == entries && child.state() == QProcess::Running)
            QThread::usleep(100);
        QThread::msleep(delaysMs[round]);
        child.kill();
        child.waitForFinished();
        if (!child.readAllStandardOutput().endsWith("ok\n")) ++killed;
        Reopen();
        QStringList names;
        Manager()->GetAllLibraryName(names);
        const bool whole = names.contains(copy);
        QStringList expected = whole ? entries + QStringList{copy} : entries;
        expected.sort();
        EXPECT_EQ(Entries(root.Path()), expected) << "round " << round;
        if (whole) {
            EXPECT_EQ(Snapshot(root.File(copy)), source) << "round " << round;
        }
        QDir(root.File(copy)).removeRecursively();
    }
    EXPECT_GT(killed, 0) << "no copy was killed part-way";

    QProcess live;
    ASSERT_TRUE(StartWriter(live, root.Path(), {"copy-library", "QXMaterial", "Live"}));
    while (live.state() == QProcess::Running) {
        Reopen();
        live.waitForFinished(5);
    }
    EXPECT_TRUE(live.readAllStandardOutput().endsWith("ok\n"));
    EXPECT_EQ(Snapshot(root.File(QStringLiteral("Live"))), source);
}
