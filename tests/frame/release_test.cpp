#include "frame/progress_stack.h"
#include "frame/release.h"
#include "support/test_progress.h"

#include <gtest/gtest.h>

namespace XPJ {
namespace {

// Shows how far a whole run is.
class BarProgress final : public Progress {
public:
    bool IsCancelled() override { return false; }
    unsigned BeginStage(unsigned steps, unsigned total) override
    {
        return stages.Begin(steps, total);
    }
    void Advance(unsigned, unsigned count) override { stages.Advance(count); }
    void EndStage(unsigned) override { stages.End(); }

    ProgressStack stages;
};

void Fill(Document& document, int nodes)
{
    for (int i = 0; i < nodes; ++i)
        document.NewObject("node");
}

TEST(ReleaseTree, FillsItsShareOfTheProgress)
{
    for (const int nodes : {1, 3, 100000, 300000}) {
        Document document;
        Fill(document, nodes);
        BarProgress progress;
        StageScope all(progress, 1, 2);
        EXPECT_EQ(ReleaseTree(document, progress), kSuccess);
        EXPECT_DOUBLE_EQ(progress.stages.Position(), 0.5) << nodes;
    }
}

TEST(ReleaseTree, StopsWhenCancelled)
{
    Document document;
    Fill(document, 300000);
    for (unsigned check = 1; check <= 4; ++check) {
        TestProgress progress(check);
        EXPECT_EQ(ReleaseTree(document, progress), kAborted) << check;
        EXPECT_EQ(progress.open, 0u) << check;
    }
    TestProgress progress;
    EXPECT_EQ(ReleaseTree(Document(), progress), kSuccess);
}

} // namespace
} // namespace XPJ
