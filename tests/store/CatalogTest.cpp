#include <QFile>

#include "support/StoreTestBase.h"

namespace {

struct Entry {
    const char* dpd;
    const char* level0;
    const char* level1;
    const char* level2;
};

QStringList Names(const CKZList<CVorDPM_DPC_Content*>& entries) {
    QStringList names;
    for (const CVorDPM_DPC_Content* entry : entries) names.append(entry->GetDPD());
    return names;
}

}  // namespace

class CatalogTest : public StoreTestBase {
protected:
    void SetUp() override {
        m_library = MakeLibrary();
        m_catalog = MakeCatalog(m_library, QStringLiteral("紧固件"));
        const Entry entries[] = {
            {"HexBolt", "螺栓", "六角头", ""},
            {"StudBolt", "螺栓", "双头", ""},
            {"Nut", "螺母", "", ""},
            {"Washer", "", "", ""},
            {"FlangeBolt", "螺栓", "六角头", "法兰面"},
        };
        for (const Entry& e : entries)
            MakeEntry(m_catalog, QString::fromUtf8(e.dpd), QString::fromUtf8(e.level0),
                      QString::fromUtf8(e.level1), QString::fromUtf8(e.level2));
    }

    CVorDPMLibraryManager* m_library = nullptr;
    CVorDPMDPC* m_catalog = nullptr;
};

TEST_F(CatalogTest, SelectionsByClassification) {
    struct Case {
        QString level0, level1, level2;
        QStringList expected;
    };
    const Case cases[] = {
        {"螺栓", "六角头", "", {"HexBolt"}},
        {"螺栓", "六角头", "法兰面", {"FlangeBolt"}},
        {"", "", "", {"Washer"}},
        {"螺母", "", "", {"Nut"}},
        {"螺栓", "", "", {}},
    };
    for (const Case& c : cases) {
        CKZList<CVorDPM_DPC_Content*> found;
        m_catalog->GetAllContent(c.level0, c.level1, c.level2, found);
        EXPECT_EQ(Names(found), c.expected)
            << c.level0.toStdString() << "/" << c.level1.toStdString();
    }
    CKZList<CVorDPM_DPC_Content*> level0;
    m_catalog->GetAllContent(CVorDPM_DPC_Content::FirstType, QStringLiteral("螺栓"), level0);
    EXPECT_EQ(Names(level0), (QStringList{"HexBolt", "StudBolt", "FlangeBolt"}));
}

TEST_F(CatalogTest, ContentsAndIncludesSurviveSaveAndDeletedOnesDisappear) {
    auto* include = new CVorDPM_DPC_Include;
    include->SetLibraryName(QStringLiteral("QXMEP"));
    include->SetDPCName(QStringLiteral("管道"));
    ASSERT_EQ(m_catalog->AddInclude(include), VOR::eOk);
    EXPECT_EQ(m_catalog->HasDPD(QStringLiteral("nut")), 1);
    EXPECT_EQ(m_catalog->RemoveContent(QStringLiteral("Nut")), VOR::eOk);
    EXPECT_EQ(m_catalog->HasDPD(QStringLiteral("Nut")), 0);
    EXPECT_EQ(m_catalog->RemoveContent(QStringLiteral("Nut")), VOR::eNotFound);
    ASSERT_EQ(Manager()->SaveWork(), 1);
    EXPECT_FALSE(Manager()->HasUnsavedChanges());

    Reopen();
    ASSERT_EQ(Manager()->GetLibrary(QStringLiteral("QXMaterial"), m_library), VOR::eOk);
    ASSERT_EQ(m_library->GetDPC(QStringLiteral("紧固件"), m_catalog), VOR::eOk);
    CKZList<CVorDPM_DPC_Content*> all;
    m_catalog->GetAllContent(all);
    EXPECT_EQ(Names(all), (QStringList{"HexBolt", "StudBolt", "Washer", "FlangeBolt"}));
    CVorDPM_DPC_Include* found = nullptr;
    ASSERT_EQ(m_catalog->GetInclude(QStringLiteral("qxmep"), QStringLiteral("管道"), found),
              VOR::eOk);
    EXPECT_EQ(found->GetDPCName(), QStringLiteral("管道"));
    CVorDPM_DPC_Content* byId = nullptr;
    ASSERT_EQ(m_catalog->GetContent(all.GetAt(0)->GetObjectId(), byId), VOR::eOk);
    EXPECT_EQ(byId, all.GetAt(0));
}

TEST_F(CatalogTest, CopyRenameRemoveAndEntriesFollowARenamedDefinition) {
    MakeDefinition(m_library, QStringLiteral("HexBolt"));
    EXPECT_EQ(m_library->CopyDPC(QStringLiteral("紧固件"), QStringLiteral("副本")), VOR::eOk);
    EXPECT_EQ(m_library->CopyDPC(QStringLiteral("紧固件"), QStringLiteral("副本")),
              VOR::eNameExists);
    EXPECT_EQ(m_library->RenameDPC(QStringLiteral("副本"), QStringLiteral("Copy")), VOR::eOk);
    EXPECT_EQ(m_library->RenameDPC(QStringLiteral("nothing"), QStringLiteral("x")), VOR::eNotFound);
    // The old name given as the definition's own name, which the rename changes.
    CVorDPMDPD* renamed = nullptr;
    ASSERT_EQ(m_library->GetDPD(QStringLiteral("HexBolt"), renamed), VOR::eOk);
    ASSERT_EQ(m_library->RenameDPD(renamed->GetDPDName(), QStringLiteral("六角螺栓")), VOR::eOk);
    EXPECT_EQ(m_catalog->HasDPD(QStringLiteral("六角螺栓")), 1);
    CKZList<CVorDPM_DPC_Content*> entries;
    m_catalog->GetAllContent(QStringLiteral("螺栓"), QStringLiteral("六角头"), QString(), entries);
    CVorDPMDPD* dpd = nullptr;
    ASSERT_EQ(m_catalog->GetDPD(entries.GetAt(0), dpd), VOR::eOk);
    EXPECT_EQ(dpd->GetDPDName(), QStringLiteral("六角螺栓"));
    ASSERT_EQ(Manager()->SaveWork(), 1);

    Reopen();
    ASSERT_EQ(Manager()->GetLibrary(QStringLiteral("QXMaterial"), m_library), VOR::eOk);
    CVorDPMDPC* copy = nullptr;
    ASSERT_EQ(m_library->GetDPC(QStringLiteral("Copy"), copy), VOR::eOk);
    CKZList<CVorDPM_DPC_Content*> copied;
    copy->GetAllContent(copied);
    EXPECT_EQ(copied.GetCount(), 5);  // the copy was taken before the rename
    EXPECT_EQ(m_library->RemoveDPC(QStringLiteral("Copy")), VOR::eOk);
    EXPECT_FALSE(QFile::exists(root.File(QStringLiteral("QXMaterial/Copy.DPC"))));
    QStringList names;
    m_library->GetAllDPCName(names);
    EXPECT_EQ(names, QStringList{QStringLiteral("紧固件")});
}
