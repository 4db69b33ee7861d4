#include "import/import_driver.h"
#include "support/golden.h"
#include "support/test_progress.h"
#include "support/tree.h"

#include <gtest/gtest.h>

namespace XPJ {
namespace {

struct Imported {
    int result = 0;
    ObjectHandle document;
    IssueSet issues;

    ObjectHandle Project() const { return document.GetChild("Project"); }
    ObjectHandle RootItem() const { return Project().GetChild("RootProjectItem"); }
};

class ImportDriverTest : public testing::Test {
protected:
    Imported Import(const Tree& xmeml)
    {
        SilentProgress progress;
        return Import(xmeml, progress);
    }
    Imported Import(const Tree& xmeml, Progress& progress)
    {
        Imported imported;
        imported.result = ImportDocument(Build(document_, xmeml), {}, progress, document_,
                                         imported.issues, imported.document);
        return imported;
    }

    Document document_;
};

const Tree kProject = {"project", {}, {{"children"}}};
const Tree kBins = {
    "xmeml",
    {{"version", "5"}},
    {{"project",
      {},
      {{"children",
        {},
        {{"bin", {{"name", "A"}}, {{"children", {}, {{"bin", {{"name", "B"}}}}}}},
         {"marker"},
         {"bin", {{"name", "C"}}, {{"labels", {{"label2", "Mango"}}}, {"file"}}}}}}}}};

TEST_F(ImportDriverTest, ReportsUnknownVersionsAndGoesOn)
{
    const struct {
        const char* version;
        bool isKnown;
    } rows[] = {{"1", true},  {"5", true}, {"4.0", true}, {"0", false},
                {"6", false}, {"", false}, {"x", false},  {"-4", false}};
    for (const auto& row : rows) {
        const Imported imported = Import({"xmeml", {{"version", row.version}}, {kProject}});
        EXPECT_EQ(imported.result, kSuccess) << row.version;
        EXPECT_TRUE(imported.RootItem()) << row.version;
        EXPECT_EQ(IssueText(imported.issues, Direction::Import),
                  row.isKnown ? ""
                  : !*row.version
                      ? "UnrecognizedXMLVersion\n"
                      : "UnrecognizedXMLVersion time=\"" + std::string(row.version) + "\"\n")
            << row.version;
    }
}

TEST_F(ImportDriverTest, NothingUnderTheRootIsNoData)
{
    const Imported imported = Import({"xmeml", {{"version", "5"}}});
    EXPECT_EQ(imported.result, kNoFCPDataFound);
    EXPECT_FALSE(imported.document);
}

TEST_F(ImportDriverTest, ABareRootGetsAProjectAroundIt)
{
    const Imported imported =
        Import({"xmeml", {{"version", "5"}}, {{"bin", {{"name", "A"}}}, {"bin", {{"name", "B"}}}}});
    ASSERT_EQ(imported.result, kSuccess);
    EXPECT_EQ(ChildNames(imported.RootItem()), "ProjectItem ProjectItem");
    EXPECT_EQ(imported.RootItem().GetChild("ProjectItem").GetProperty("Name"), "A");
}

TEST_F(ImportDriverTest, OnlyTheFirstProjectCounts)
{
    const Imported imported =
        Import({"xmeml", {{"version", "5"}}, {{"bin"}, kProject, {"project"}}});
    ASSERT_TRUE(imported.RootItem());
    EXPECT_FALSE(imported.RootItem().HasChildren());
}

TEST_F(ImportDriverTest, AProjectWithoutChildrenHasNoRootItem)
{
    const Imported imported = Import({"xmeml", {{"version", "4"}}, {{"project"}}});
    ASSERT_EQ(imported.result, kSuccess);
    EXPECT_FALSE(imported.RootItem());
    EXPECT_EQ(imported.Project().GetProperty("NextID"), "1000001");
    EXPECT_EQ(imported.Project().GetProperty("NextSequenceID"), "1");
    EXPECT_EQ(ChildNames(imported.Project()),
              "ProjectSettings ScratchDiskSettings VideoPreviewCompileSettings "
              "CustomCompileSettings StillCompileSettings MovieCompileSettings "
              "AudioCompileSettings");
}

TEST_F(ImportDriverTest, BinsKeepOrderNestingAndLabels)
{
    const Imported imported = Import(kBins);
    ASSERT_EQ(imported.result, kSuccess);
    ASSERT_EQ(ChildNames(imported.RootItem()), "ProjectItem ProjectItem");
    std::vector<ObjectHandle> items;
    for (const ObjectHandle& item : imported.RootItem().GetChildren())
        items.push_back(item);
    EXPECT_EQ(items[0].GetChild("ProjectItem").GetProperty("Name"), "B");
    EXPECT_FALSE(items[0].HasProperty("Column.PropertyText.Label"));
    EXPECT_EQ(items[1].GetProperty("Name"), "C");
    EXPECT_EQ(items[1].GetProperty("Column.PropertyText.Label"), "BE.Prefs.LabelColors.7");
    EXPECT_FALSE(items[1].HasChildren());
    EXPECT_NE(items[0].GetProperty("uid"), items[1].GetProperty("uid"));
}

// Wherever the job is stopped it ends with that result, its stages closed and nothing handed out.
TEST_F(ImportDriverTest, StopsAtEveryQuestion)
{
    TestProgress all;
    ASSERT_EQ(Import(kBins, all).result, kSuccess);
    ASSERT_GT(all.Questions(), 6);
    for (int question = 0; question < all.Questions(); ++question) {
        TestProgress progress(question);
        const Imported imported = Import(kBins, progress);
        EXPECT_EQ(imported.result, kAborted) << question;
        EXPECT_FALSE(imported.document) << question;
        EXPECT_EQ(progress.OpenStages(), 0) << question;
        EXPECT_EQ(progress.Questions(), question + 1);
    }
}

} // namespace
} // namespace XPJ
