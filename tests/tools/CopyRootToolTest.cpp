#include <functional>

#include "CVorDPMDPOUnit.h"
#include "CVorDPMDPT.h"
#include "CVorDPMShelf.h"
#include "CVorDPMStorage.h"
#include "CVorDPMTemplateManager.h"
#include "CVorDPM_DPOUNIT_Unit.h"
#include "VorDPMContainers.h"
#include "VorDPMFileKinds.h"
#include "support/RootComparison.h"
#include "support/StoreFileEdits.h"
#include "support/StoreTestBase.h"
#include "support/ToolRunner.h"

using namespace VorDPMFileKinds;

// A source root made through the store with something in every kind of container: two
// libraries, a catalog, definitions with pictures, scripts, series rows (one deleted, so ids
// have a gap) and version records, a library's and the root's templates, common unit rows.
class CopyRootToolTest : public StoreTestBase {
protected:
    void SetUp() override {
        CVorDPMLibraryManager* material = MakeLibrary(QStringLiteral("QXMaterial"));
        MakeLibrary(QStringLiteral("QXMEP"));
        MakeEntry(MakeCatalog(material, QStringLiteral("紧固件")), QStringLiteral("HexBolt"),
                  QStringLiteral("螺栓"));
        FillDefinition(MakeDefinition(material, QStringLiteral("HexBolt")));
        FillDefinition(MakeDefinition(Library(QStringLiteral("QXMEP")), QStringLiteral("Pipe")));
        CVorDPMDPT* made = nullptr;
        ASSERT_EQ(material->GetVorDPMTemplateManager()->CreateDPT(QStringLiteral("Bolt"), made),
                  VOR::eOk);
        ASSERT_EQ(Manager()->GetTemplateManager()->CreateDPT(QStringLiteral("Flange"), made),
                  VOR::eOk);
        FillDefinition(made);
        auto* unit = new CVorDPM_DPOUNIT_Unit;
        unit->SetName(QStringLiteral("毫米"));
        unit->SetConversion(0.001);
        ASSERT_EQ(Manager()->GetCommonManager()->GetUnitDPO()->AddUnit(unit), VOR::eOk);
        SaveAndReopen();
    }

    // Writes a container into the root at `path` behind the store's managers; `fill` puts rows
    // into it first. A library's information container makes its library.
    static void Put(const QString& path, const QString& library, quint32 kind, const QString& name,
                    const std::function<void(CVorDPMDBBase&)>& fill = {}) {
        const auto storage = CVorDPMStorage::ForRoot(path);
        ASSERT_TRUE(storage->Open(true));
        if (kind == kLibraryInfo) {
            ASSERT_EQ(storage->CreateLibrary(library), VOR::eOk);
        }
        const auto file = VorDPMContainers::Make(storage.get(), library, kind, name);
        file->MarkLoaded();
        if (fill) fill(*file);
        const bool shelved = kind == kCatalog || kind == kDefinition || kind == kTemplate;
        ASSERT_EQ(shelved ? storage->Shelf(library, kind)->Create(*file) : storage->WriteNew(*file),
                  VOR::eOk);
    }

    static ToolRun Copy(const QString& from, const QString& to, bool merge = false) {
        QStringList arguments{QStringLiteral("copy-root"), from, to};
        if (merge) arguments << QStringLiteral("--merge");
        return ToolRunner::Run(arguments);
    }

    QString m_target = root.Home() + QStringLiteral("/copy");
};

TEST_F(CopyRootToolTest, CopiesEveryContainerWithIdsBlobsAndVersions) {
    const ToolRun sample = ToolRunner::Run({"sample", "--root", root.Home() + "/sample"});
    ASSERT_EQ(sample.exitCode, 0) << sample.err.toStdString();
    for (const QString& source : {root.Path(), root.Home() + QStringLiteral("/sample")}) {
        const QString target = source + QStringLiteral("-copy");
        const ToolRun run = Copy(source, target);
        ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
        EXPECT_TRUE(run.err.isEmpty()) << run.err.toStdString();
        EXPECT_TRUE(run.out.startsWith(QStringLiteral("copied 2 libraries, %1 containers, ")
                                           .arg(RootComparison::ContainerCount(source))))
            << run.out.toStdString();
        EXPECT_EQ(RootComparison::Differences(source, target), QStringList())
            << source.toStdString();
    }
}

TEST_F(CopyRootToolTest, RefusesATargetHoldingDataUnlessMerging) {
    const struct {
        const char* what;
        std::function<void(const QString&)> make;
        int exitCode;
    } cases[] = {
        {"a library", [](const QString& to) { Put(to, "Other", kLibraryInfo, {}); }, 1},
        {"a root template", [](const QString& to) { Put(to, {}, kTemplate, "T"); }, 1},
        {"a common unit",
         [](const QString& to) {
             Put(to, {}, kCommonUnit, {}, [](CVorDPMDBBase& units) {
                 static_cast<CVorDPMDPOUnit&>(units).AddUnit(new CVorDPM_DPOUNIT_Unit);
             });
         },
         1},
        // The store makes a common table empty on first use: it holds no data, and takes the
        // source's rows.
        {"an empty unit table", [](const QString& to) { Put(to, {}, kCommonUnit, {}); }, 0},
    };
    for (const auto& c : cases) {
        const QString target = m_target + QString::fromUtf8(c.what);
        c.make(target);
        const QStringList before = Snapshot(target);
        const ToolRun run = Copy(root.Path(), target);
        EXPECT_EQ(run.exitCode, c.exitCode) << c.what << run.err.toStdString();
        if (c.exitCode == 0) {
            EXPECT_EQ(RootComparison::Differences(root.Path(), target), QStringList()) << c.what;
            continue;
        }
        EXPECT_TRUE(run.HasOneErrorLine() && run.err.contains("--merge")) << run.err.toStdString();
        EXPECT_EQ(Snapshot(target), before) << c.what;
    }
}

TEST_F(CopyRootToolTest, MergeAddsWhatTheTargetLacksAndKeepsWhatItHas) {
    Put(m_target, QStringLiteral("QXMaterial"), kLibraryInfo, {});
    Put(m_target, QStringLiteral("QXMaterial"), kDefinition, QStringLiteral("HexBolt"),
        [](CVorDPMDBBase& dpd) { AddProduct(static_cast<CVorDPMDPD*>(&dpd), "theirs"); });
    const QString kept = m_target + QStringLiteral("/QXMaterial/HexBolt.DPD");
    const QByteArray theirs = ReadAll(kept);

    const ToolRun run = Copy(root.Path(), m_target, true);
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_EQ(run.err.count(QStringLiteral("exists in the target, left as it is")), 2)
        << run.err.toStdString();
    EXPECT_TRUE(run.err.contains(kept)) << run.err.toStdString();
    EXPECT_TRUE(run.out.contains(QStringLiteral("2 left as the target has them")))
        << run.out.toStdString();
    EXPECT_EQ(ReadAll(kept), theirs);

    // A second merge finds nothing left to add.
    const ToolRun again = Copy(root.Path(), m_target, true);
    EXPECT_EQ(again.exitCode, 0);
    EXPECT_TRUE(again.out.startsWith(QStringLiteral("copied 0 libraries, 0 containers, 0 rows")))
        << again.out.toStdString();
}

TEST_F(CopyRootToolTest, ReportsAnUnreadableContainerAndCopiesTheRest) {
    Write(root.File(QStringLiteral("QXMEP/Pipe.DPD")), "not a store file");
    const ToolRun run = Copy(root.Path(), m_target);
    EXPECT_EQ(run.exitCode, 1);
    const QStringList lines = run.err.split('\n', Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 2) << run.err.toStdString();
    EXPECT_TRUE(lines[0].contains(QStringLiteral("not copied")) &&
                lines[0].contains(QStringLiteral("QXMEP/Pipe.DPD")))
        << lines[0].toStdString();
    EXPECT_TRUE(lines[1].startsWith(QStringLiteral("vordpm: 1 not copied from ")))
        << lines[1].toStdString();
    EXPECT_TRUE(run.out.contains(QStringLiteral("1 not copied"))) << run.out.toStdString();
    EXPECT_EQ(RootComparison::Differences(root.Path(), m_target),
              QStringList{root.Path() + "/QXMEP/*.DPD: Pipe against "});
}
