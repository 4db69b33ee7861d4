#include "export/export_driver.h"
#include "support/golden.h"
#include "support/test_progress.h"
#include "support/tree.h"
#include "tree/reading.h"
#include "xmeml/reader.h"
#include "xmeml/writer.h"

#include <sstream>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace XPJ::RVX {
namespace {

constexpr const char* kSequenceGuid = "0A1B2C3D-0000-4000-8000-00000000abcd";

Tree Items(std::vector<Tree> targets)
{
    return {"ProjectItemContainer", {}, {{"Items", {}, std::move(targets)}}};
}

Tree Bin(const std::string& name, std::vector<Tree> targets, const std::string& label = "")
{
    Tree properties = {"Properties"};
    if (!label.empty())
        properties.properties.push_back({"Column.PropertyText.Label", label});
    return {"BinProjectItem",
            {},
            {{"ProjectItem", {{"Name", name}}, {{"Node", {}, {properties}}}},
             Items(std::move(targets))}};
}

Tree SequenceClip(const std::string& guid)
{
    Tree clip = {"Sequence", {{"UIDObject", guid}}};
    for (const Name name : {Name("SequenceSource"), Name("Source"), Name("Clip"), Name("Clip"),
                            Name("Clips"), Name("MasterClip"), Name("ClipProjectItem")})
        clip = {name, {}, {clip}};
    return clip;
}

class ExportDriverTest : public testing::Test {
protected:
    // In a read project the entries of `Items` hang under "Item", whatever their class.
    void NameItems(ObjectHandle node)
    {
        for (const ObjectHandle& child : node.GetChildren())
            NameItems(child);
        if (node.GetName() != "Items")
            return;
        std::vector<ObjectHandle> items;
        for (const ObjectHandle& item : node.GetChildren())
            items.push_back(item);
        node.ClearChildren();
        for (const ObjectHandle& item : items)
            node.AddChild("Item", item);
    }

    ObjectHandle Root(std::vector<Tree> rootItems, const char* version = "3")
    {
        const ObjectHandle root =
            Build(document_,
                  {"VelaData",
                   {{"Version", version}},
                   {{"Project", {}, {{"RootProjectItem", {}, {Items(std::move(rootItems))}}}}}});
        NameItems(root);
        return root;
    }

    int Export(ObjectHandle root, std::string_view sequenceGuid = "")
    {
        SilentProgress progress;
        return Export(root, sequenceGuid, progress);
    }
    int Export(ObjectHandle root, std::string_view sequenceGuid, Progress& progress)
    {
        ExportOptions options;
        options.projectTitle = "A & <B> &amp; C";
        options.sequenceGuid = StringToGUID(sequenceGuid);
        xmeml_ = {};
        return TranslateProjectDocument(root, options, progress, document_, issues_, xmeml_);
    }
    ObjectHandle Project() const { return xmeml_.GetChild("project"); }

    Document document_;
    IssueSet issues_;
    ObjectHandle xmeml_;
};

TEST_F(ExportDriverTest, ReportsOtherVersionsAndGoesOn)
{
    EXPECT_EQ(Export(Root({}, "3")), kSuccess);
    EXPECT_EQ(IssueText(issues_, Direction::Export), "");
    EXPECT_EQ(Export(Root({}, "2")), kSuccess);
    EXPECT_EQ(Export(Root({}, "")), kSuccess);
    EXPECT_EQ(IssueText(issues_, Direction::Export),
              "UnrecognizedVelaProVersion\nUnrecognizedVelaProVersion time=\"2\"\n");
}

TEST_F(ExportDriverTest, NoProjectIsNoData)
{
    EXPECT_EQ(Export(Build(document_, {"VelaData", {{"Version", "3"}}})), kNoFCPDataFound);
    EXPECT_FALSE(xmeml_);
}

TEST_F(ExportDriverTest, AnEmptyProjectHasATitleAlone)
{
    ASSERT_EQ(Export(Root({})), kSuccess);
    EXPECT_EQ(ChildNames(xmeml_), "project");
    EXPECT_EQ(Project().GetProperty("name"), "A &amp; &lt;B&gt; &amp; C");
    EXPECT_FALSE(Project().HasChildren());
}

TEST_F(ExportDriverTest, BinsKeepOrderNestingAndLabels)
{
    ASSERT_EQ(Export(Root({Bin("A", {Bin("B", {})}, "BE.Prefs.LabelColors.7"),
                           {"FileProjectItem"},
                           Bin("C", {}, "unknown")})),
              kSuccess);
    const ObjectHandle children = Project().GetChild("children");
    ASSERT_EQ(ChildNames(children), "bin bin");
    std::vector<ObjectHandle> bins;
    for (const ObjectHandle& bin : children.GetChildren())
        bins.push_back(bin);
    EXPECT_EQ(bins[0].GetProperty("name"), "A");
    EXPECT_EQ(bins[0].GetChild("labels").GetProperty("label2"), "Mango");
    EXPECT_EQ(FindPath(bins[0], {"children", "bin"}).GetProperty("name"), "B");
    EXPECT_EQ(ChildNames(FindPath(bins[0], {"children", "bin"})), "children");
    EXPECT_TRUE(bins[1].HasChild("labels"));
    EXPECT_FALSE(bins[1].GetChild("labels").HasProperty("label2"));
}

TEST_F(ExportDriverTest, BinsMayNestDeepAndInACircle)
{
    const ObjectHandle root = Root({Bin("0", {})});
    ObjectHandle bin =
        FindPath(root, {"Project", "RootProjectItem", "ProjectItemContainer", "Items", "Item"});
    const ObjectHandle first = bin;
    for (int depth = 0; depth < 20000; ++depth) {
        const ObjectHandle inner = Build(document_, Bin("", {}));
        FindPath(bin, {"ProjectItemContainer", "Items"}).AddChild("Item", inner);
        bin = inner;
    }
    FindPath(bin, {"ProjectItemContainer", "Items"}).AddChild("Item", first);
    ASSERT_EQ(Export(root), kSuccess);
    EXPECT_TRUE(FindPath(Project(), {"children", "bin", "children", "bin"}));

    // All of them come back, as deep as documents are read.
    SilentProgress progress;
    std::ostringstream output;
    ASSERT_EQ(WriteFCPXML(xmeml_, progress, false, output), kWriteDone);
    const std::string text = output.str();
    Document back;
    ObjectHandle read;
    ASSERT_EQ(ParseFCPXML(text, back, read), kReadDone);
    std::vector<ObjectHandle> lists{FindPath(read, {"project", "children"})};
    for (std::size_t i = 0; i < lists.size(); ++i)
        for (const ObjectHandle& inner : lists[i].GetChildren("bin"))
            lists.push_back(inner.GetChild("children"));
    EXPECT_EQ(lists.size(), 20002U);
}

TEST_F(ExportDriverTest, AChosenSequenceStandsWithoutBins)
{
    const ObjectHandle root =
        Root({SequenceClip(""), Bin("A", {Bin("B", {Bin("C", {SequenceClip(kSequenceGuid)})})}),
              Bin("D", {})});
    ASSERT_EQ(Export(root, kSequenceGuid), kSuccess);
    EXPECT_EQ(ChildNames(Project()), "children");
    EXPECT_FALSE(Project().GetChild("children").HasChild("bin"));

    ASSERT_EQ(Export(root, "0a1b2c3d-0000-4000-8000-00000000abce"), kSuccess);
    EXPECT_FALSE(Project().HasChildren());
    EXPECT_NE(Project().GetProperty("name"), "");
}

TEST_F(ExportDriverTest, StopsAtEveryQuestion)
{
    const ObjectHandle root = Root({Bin("A", {})});
    for (int question = 0; question < 3; ++question) {
        TestProgress progress(question);
        EXPECT_EQ(Export(root, "", progress), kAborted) << question;
        EXPECT_FALSE(xmeml_) << question;
        EXPECT_EQ(progress.OpenStages(), 0) << question;
    }
}

} // namespace
} // namespace XPJ::RVX
