#include <vector>

#include "CVorDPMRootCopy.h"
#include "support/RootComparison.h"
#include "support/StoreTestBase.h"

class RootCopyTest : public StoreTestBase {};

// The progress callback sees every step once, in order, up to the total; stopping it leaves a
// partial copy that a merge then completes without reporting anything as kept twice.
TEST_F(RootCopyTest, ProgressCountsEveryStepAndACancelledCopyIsCompletedByAMerge) {
    for (const char* name : {"QXMaterial", "QXMEP"}) {
        CVorDPMLibraryManager* library = MakeLibrary(QString::fromUtf8(name));
        for (const char* dpd : {"A", "B", "C"}) MakeDefinition(library, QString::fromUtf8(dpd));
    }
    SaveAndReopen();
    const QString target = root.Home() + QStringLiteral("/copy");

    CVorDPMRootCopy stopped(root.Path(), target);
    std::vector<int> seen;
    stopped.SetProgress([&seen](int done, int) {
        seen.push_back(done);
        return done < 5;
    });
    EXPECT_EQ(stopped.Run(), CVorDPMRootCopy::Cancelled);
    EXPECT_EQ(seen, (std::vector<int>{0, 1, 2, 3, 4, 5}));
    EXPECT_FALSE(RootComparison::Differences(root.Path(), target).isEmpty());

    CVorDPMRootCopy merge(root.Path(), target);
    merge.SetMerge(true);
    int last = -1;
    int total = 0;
    merge.SetProgress([&](int done, int all) {
        EXPECT_EQ(done, last + 1);
        last = done;
        total = all;
        return true;
    });
    EXPECT_EQ(merge.Run(), CVorDPMRootCopy::Copied);
    EXPECT_EQ(last, total);
    // The first run made a library, its information and three definitions: those are kept.
    EXPECT_EQ(merge.GetCounts().kept, 4);
    EXPECT_EQ(merge.GetCounts().libraries, 1);
    EXPECT_EQ(RootComparison::Differences(root.Path(), target), QStringList());
}
