#include <unistd.h>

#include <QDir>
#include <QFile>

#include "CVorDPMCommandManager.h"
#include "VorDPMNames.h"
#include "support/StoreTestBase.h"

// Look-ups that large libraries and tables depend on: series rows by key through the table's
// index, one pass over a row's values, and name lists kept sorted without sorting them again.
class LookupTest : public StoreTestBase {
protected:
    void SetUp() override {
        m_library = MakeLibrary(QStringLiteral("Lib"));
        m_dpd = MakeDefinition(m_library, QStringLiteral("Series"));
        m_product = AddProduct(m_dpd, QStringLiteral("P"), QStringLiteral("P%d"));
    }

    CVorDPM_DPD_Serial* ByKey(const QString& key) const {
        CVorDPM_DPD_Serial* row = nullptr;
        m_dpd->GetSerial(key, row, 0);
        return row;
    }

    CVorDPM_DPD_Serial* RowWithKey(const QString& key) const {
        CVorDPM_DPD_Serial* row = AddSerial(m_dpd, m_product);
        row->SetKey(key);
        return row;
    }

    CVorDPMLibraryManager* m_library = nullptr;
    CVorDPMDPD* m_dpd = nullptr;
    CVorDPM_DPD_Product* m_product = nullptr;
};

TEST_F(LookupTest, SeriesRowsByKeyFollowEveryChange) {
    CVorDPM_DPD_Serial* a = RowWithKey(QStringLiteral("a"));
    CVorDPM_DPD_Serial* b = RowWithKey(QStringLiteral("b"));
    EXPECT_EQ(ByKey(QStringLiteral("a")), a);  // the first look-up builds the index
    EXPECT_EQ(ByKey(QStringLiteral("A")), nullptr) << "keys compare exactly";

    CVorDPM_DPD_Serial* c = RowWithKey(QStringLiteral("c"));
    EXPECT_EQ(ByKey(QStringLiteral("c")), c) << "a row added after the index was built";

    b->SetKey(QStringLiteral("b2"));
    EXPECT_EQ(ByKey(QStringLiteral("b")), nullptr);
    EXPECT_EQ(ByKey(QStringLiteral("b2")), b);

    // Two rows with one key: the first live one in table order answers.
    c->SetKey(QStringLiteral("a"));
    EXPECT_EQ(ByKey(QStringLiteral("a")), a);
    a->SetDeleted(1);
    EXPECT_EQ(ByKey(QStringLiteral("a")), c);
    c->SetDeleted(1);
    EXPECT_EQ(ByKey(QStringLiteral("a")), nullptr);
}

TEST_F(LookupTest, AnAbortedKeyChangeIsFoundByTheOldKeyAgain) {
    CVorDPM_DPD_Serial* row = RowWithKey(QStringLiteral("old"));
    SaveAndReopen();
    m_dpd = Definition(QStringLiteral("Series"), QStringLiteral("Lib"));
    row = ByKey(QStringLiteral("old"));
    ASSERT_NE(row, nullptr) << "read back from the file";

    CVorDPMCommandManager* commands = CVorDPMCommandManager::GetInstance();
    commands->StartCommand();
    commands->AddModifiedObject(row);
    row->SetKey(QStringLiteral("new"));
    EXPECT_EQ(ByKey(QStringLiteral("new")), row);
    commands->AbortCommand();
    EXPECT_EQ(ByKey(QStringLiteral("new")), nullptr);
    EXPECT_EQ(ByKey(QStringLiteral("old")), row);
}

TEST_F(LookupTest, ValuesOfSeveralPropertiesAgreeWithSingleReads) {
    CVorDPM_DPD_Serial* row = RowWithKey(QStringLiteral("k"));
    row->SetValue(QStringLiteral("M12"), 1);
    row->SetValue(QStringLiteral("back\\slash\nand line"), 2);
    row->SetValue(QStringLiteral("中文"), 12);
    row->SetValue(QStringLiteral("gone"), 3);
    row->SetValue(QString(), 3);
    // In the row's own order and out of it, with properties asked twice and ones without value.
    const std::vector<std::vector<int>> asked{
        {1, 2, 12}, {1, 1, 2, 12}, {1, 2, 12, 1, 12}, {12, 3, 1, 2, 1, 99}, {99, 1}, {}};
    for (const std::vector<int>& ids : asked) {
        const QStringList values = row->GetValues(ids);
        ASSERT_EQ(values.size(), qsizetype(ids.size()));
        for (size_t i = 0; i < ids.size(); ++i) {
            EXPECT_EQ(values[qsizetype(i)], row->GetValue(ids[i])) << "property " << ids[i];
            EXPECT_EQ(QString::fromUtf8(row->GetValueUtf8(ids[i])), row->GetValue(ids[i]));
        }
    }
    EXPECT_EQ(row->GetValues({12, 99}), (QStringList{QStringLiteral("中文"), QString()}));
}

TEST_F(LookupTest, NameListsStaySortedThroughCreateCopyRenameAndRemove) {
    const QStringList created{"b", "B10", "a", "中", "B2", "Z", "aa"};
    for (const QString& name : created) MakeDefinition(m_library, name);
    ASSERT_EQ(m_library->CopyDPD(QStringLiteral("a"), QStringLiteral("A1")), VOR::eOk);
    ASSERT_EQ(m_library->RenameDPD(QStringLiteral("Z"), QStringLiteral("c")), VOR::eOk);
    ASSERT_EQ(m_library->RenameDPD(QStringLiteral("b"), QStringLiteral("bB")), VOR::eOk);
    ASSERT_EQ(m_library->RemoveDPD(QStringLiteral("B2")), VOR::eOk);

    QStringList expected{"Series", "B10", "a", "中", "aa", "A1", "c", "bB"};
    VorDPMNames::Sort(expected);
    QStringList listed;
    m_library->GetAllDPDName(listed);
    EXPECT_EQ(listed, expected);
}

// The listing reads the folder itself: every entry named "*.DPD" but hidden ones, whatever it
// is; a folder or a dangling link is listed so that using it can say what is wrong.
TEST_F(LookupTest, ListingTakesEveryEntryOfTheExtension) {
    SaveAndReopen();
    const QDir folder(root.File(QStringLiteral("Lib")));
    const auto touch = [&](const QString& name) {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    };
    touch(QStringLiteral("lower.dpd"));     // any case of the extension
    touch(QStringLiteral(".DPD"));          // nothing before the extension
    touch(QStringLiteral(".hidden.DPD"));   // hidden
    touch(QStringLiteral("note.DPD.txt"));  // another extension
    ASSERT_TRUE(folder.mkdir(QStringLiteral("Folder.DPD")));
    ASSERT_EQ(
        ::symlink(QFile::encodeName(folder.filePath(QStringLiteral("Series.DPD"))).constData(),
                  QFile::encodeName(folder.filePath(QStringLiteral("Link.DPD"))).constData()),
        0);
    ASSERT_EQ(
        ::symlink("missing",
                  QFile::encodeName(folder.filePath(QStringLiteral("Dangling.DPD"))).constData()),
        0);
    Reopen();
    CVorDPMLibraryManager* library = Library(QStringLiteral("Lib"));
    QStringList names;
    library->GetAllDPDName(names);
    EXPECT_EQ(names, (QStringList{"Dangling", "Folder", "Link", "lower", "Series"}));
    EXPECT_EQ(library->HasDPD(QStringLiteral("LOWER")), 1);
}
