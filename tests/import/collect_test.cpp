#include "import/collect.h"
#include "support/test_progress.h"
#include "support/tree.h"

#include <gtest/gtest.h>

namespace XPJ {
namespace {

class CollectTest : public testing::Test {
protected:
    Document document_;
    SilentProgress progress_;
    IssueSet issues_;
    ImportState state_{document_, progress_, issues_};
};

TEST_F(CollectTest, TheFirstFileWithContentDefinesItsId)
{
    const ObjectHandle project =
        Build(document_, {"project",
                          {},
                          {{"file", {{"id", "f1"}}},
                           {"file", {{"id", "f1"}, {"name", "first"}}, {{"media"}}},
                           {"file", {{"id", "f1"}, {"name", "second"}}, {{"media"}}},
                           {"file", {{"id", "f2"}}}}});
    ASSERT_TRUE(CollectReferences(state_, project));
    ASSERT_EQ(state_.files.size(), 1u);
    EXPECT_EQ(state_.files["f1"].GetProperty("name"), "first");
}

TEST_F(CollectTest, NamelessFilesAndSequencesGetFreeIds)
{
    const ObjectHandle project =
        Build(document_, {"project",
                          {},
                          {{"file", {{"id", "unnamedfile1"}}, {{"media"}}},
                           {"file", {}, {{"media"}}},
                           {"sequence", {{"id", ""}}},
                           {"clipitem", {}, {{"sequence", {{"id", "sequence-0"}}}}}}});
    ASSERT_TRUE(CollectReferences(state_, project));
    EXPECT_TRUE(state_.files.contains("unnamedfile1"));
    EXPECT_TRUE(state_.files.contains("unnamedfile2"));
    EXPECT_EQ(project.GetChild("sequence").GetProperty("id"), "sequence-1");
}

TEST_F(CollectTest, ANodeInSeveralPlacesCountsOnce)
{
    const ObjectHandle file = Build(document_, {"file", {{"id", "f1"}}, {{"media"}}});
    const ObjectHandle project = document_.NewObject("project");
    for (int i = 0; i < 3; ++i) {
        const ObjectHandle item = document_.NewObject("clipitem");
        item.AddChild(file);
        project.AddChild(item);
    }
    file.AddChild(project); // a circle
    TestProgress progress;
    ImportState state(document_, progress, issues_);
    ASSERT_TRUE(CollectReferences(state, project));
    EXPECT_EQ(progress.Questions(), 1);
    EXPECT_EQ(progress.OpenStages(), 0);
}

TEST_F(CollectTest, AnyDepthIsWalked)
{
    const ObjectHandle project = document_.NewObject("project");
    ObjectHandle inner = project;
    for (int depth = 0; depth < 200000; ++depth) {
        const ObjectHandle next = document_.NewObject("bin");
        inner.AddChild(next);
        inner = next;
    }
    inner.AddChild(Build(document_, {"file", {{"id", "f1"}}, {{"media"}}}));
    ASSERT_TRUE(CollectReferences(state_, project));
    EXPECT_TRUE(state_.files.contains("f1"));
}

} // namespace
} // namespace XPJ
