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

TEST(ReleaseTree, EmptiesSharedNodesAndCycles)
{
    Document document;
    const ObjectHandle root = document.NewObject("root");
    const ObjectHandle shared = document.NewObject("shared");
    const ObjectHandle leaf = document.NewObject("leaf");
    root.AddChild("first", shared);
    root.AddChild("second", shared);
    shared.AddChild(leaf);
    leaf.AddChild("up", root);
    BarProgress progress;
    StageScope all(progress, 1, 2);
    EXPECT_EQ(ReleaseTree(root, progress), kSuccess);
    EXPECT_DOUBLE_EQ(progress.stages.Position(), 0.5);
    for (const ObjectHandle node : {root, shared, leaf})
        EXPECT_FALSE(node.HasChildren());
}

TEST(ReleaseTree, AChainOfAMillionNodesIsNoRecursion)
{
    Document document;
    const ObjectHandle root = document.NewObject("root");
    ObjectHandle last = root;
    for (int i = 0; i < 1000000; ++i) {
        const ObjectHandle next = document.NewObject("node");
        last.AddChild(next);
        last = next;
    }
    TestProgress progress;
    EXPECT_EQ(ReleaseTree(root, progress), kSuccess);
    EXPECT_FALSE(root.HasChildren());
}

TEST(ReleaseTree, StopsWhenCancelled)
{
    Document document;
    const ObjectHandle root = document.NewObject("root");
    for (int i = 0; i < 1000; ++i)
        root.AddChild(document.NewObject("node"));
    for (unsigned check = 1; check <= 4; ++check) {
        TestProgress progress(check);
        EXPECT_EQ(ReleaseTree(root, progress), kAborted) << check;
        EXPECT_EQ(progress.open, 0u) << check;
        EXPECT_TRUE(root.HasChildren()) << check;
    }
    TestProgress progress;
    EXPECT_EQ(ReleaseTree(ObjectHandle(), progress), kSuccess);
}

} // namespace
} // namespace XPJ
