// Creating the sample: refusals that leave a root as it was, taking back a run that fails half
// way, and the scale factor for benchmarks (whose timings live in bench/, not here).
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QSet>

#include "sample/SampleLibrary.h"
#include "sample/SampleStoreView.h"
#include "support/StoreFileEdits.h"
#include "support/TempRoot.h"

namespace {

using View = SampleStoreView;

// Product rows and series rows per definition name.
QHash<QString, QPair<int, int>> Counts() {
    QHash<QString, QPair<int, int>> counts;
    for (CVorDPMDPD* definition : View::AllDefinitions())
        counts.insert(definition->GetDPDName(),
                      {View::ProductCount(definition), int(View::Series(definition).size())});
    return counts;
}

TEST(SampleCreate, CreatingTwiceIsRefusedAndLeavesTheRootAsItWas) {
    TempRoot root;
    QString error;
    ASSERT_TRUE(SampleLibrary::Create(root.Path(), 1, error)) << error.toStdString();
    const QStringList before = Snapshot(root.Path());

    error.clear();
    EXPECT_FALSE(SampleLibrary::Create(root.Path(), 1, error));
    EXPECT_TRUE(error.contains("QXMaterial")) << error.toStdString();
    EXPECT_EQ(Snapshot(root.Path()), before);
    View::Reopen(root.Path(), root.Home() + "/elsewhere");
    QStringList libraries;
    View::Manager()->GetAllLibraryName(libraries);
    EXPECT_EQ(libraries.size(), 2);
}

// The second library cannot be made (a plain file holds its name), so the run fails after the
// first library is complete; nothing of the run may stay, and a later run must succeed.
TEST(SampleCreate, FailureHalfWayTakesBackEverythingTheRunMade) {
    TempRoot root;
    ASSERT_TRUE(QFile(root.File("QXMEP")).open(QIODevice::WriteOnly));

    QString error;
    EXPECT_FALSE(SampleLibrary::Create(root.Path(), 1, error));
    EXPECT_TRUE(error.contains("QXMEP")) << error.toStdString();
    View::Reopen(root.Path(), root.Home() + "/elsewhere");
    QStringList libraries;
    View::Manager()->GetAllLibraryName(libraries);
    EXPECT_TRUE(libraries.isEmpty()) << libraries.join(',').toStdString();
    QStringList templates;
    View::Manager()->GetTemplateManager()->GetAllDPTName(templates);
    EXPECT_TRUE(templates.isEmpty());
    EXPECT_TRUE(QFile::exists(root.File("QXMEP")));

    ASSERT_TRUE(QFile::remove(root.File("QXMEP")));
    EXPECT_TRUE(SampleLibrary::Create(root.Path(), 1, error)) << error.toStdString();
}

TEST(SampleCreate, RefusesABadScaleOrRootBeforeWritingAnything) {
    TempRoot root;
    ASSERT_TRUE(QFile(root.File("not-a-folder")).open(QIODevice::WriteOnly));
    const struct {
        QString root;
        int scale;
    } cases[] = {
        {root.File("a"), 0}, {root.File("b"), -3}, {root.File("not-a-folder"), 1}, {QString(), 1}};
    for (const auto& test : cases) {
        QString error;
        EXPECT_FALSE(SampleLibrary::Create(test.root, test.scale, error))
            << test.root.toStdString();
        EXPECT_FALSE(error.isEmpty());
        EXPECT_FALSE(QFileInfo::exists(test.root + "/QXMaterial"));
    }
}

TEST(SampleCreate, ScaleMultipliesProductsAndSeriesRows) {
    TempRoot root;
    QString error;
    ASSERT_TRUE(SampleLibrary::Create(root.File("one"), 1, error)) << error.toStdString();
    View::Reopen(root.File("one"), root.Path());
    const QHash<QString, QPair<int, int>> one = Counts();

    ASSERT_TRUE(SampleLibrary::Create(root.File("ten"), 10, error)) << error.toStdString();
    View::Reopen(root.File("ten"), root.Path());
    const QHash<QString, QPair<int, int>> ten = Counts();

    ASSERT_EQ(ten.keys().size(), one.keys().size());
    for (auto it = one.cbegin(); it != one.cend(); ++it) {
        EXPECT_EQ(it.value().first, 1) << it.key().toStdString();
        EXPECT_EQ(ten.value(it.key()).first, 10 * it.value().first) << it.key().toStdString();
        EXPECT_EQ(ten.value(it.key()).second, 10 * it.value().second) << it.key().toStdString();
    }
    for (CVorDPMDPD* definition : View::AllDefinitions()) {
        QSet<QString> keys;
        for (CVorDPM_DPD_Serial* row : View::Series(definition)) keys.insert(row->GetKey());
        EXPECT_EQ(keys.size(), View::Series(definition).size()) << "series keys repeat";
    }
}

}  // namespace
