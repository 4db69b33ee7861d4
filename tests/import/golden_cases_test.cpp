#include "import/import_driver.h"
#include "import/media_outline.h"
#include "import/outline.h"
#include "project/writer.h"
#include "support/golden.h"
#include "tree/reading.h"
#include "xmeml/reader.h"

#include <sstream>

#include <gtest/gtest.h>

namespace XPJ {
namespace {

struct Imported {
    std::string project;
    std::string issues;
    std::string outline;
    std::string media;
};

// Words behind `%% import` switch modes on: "aaf", "sn2vl".
ImportOptions OptionsOf(const GoldenSection& input)
{
    ImportOptions options;
    options.inputPath = "/documents/case.xml";
    options.aafSupport = input.arguments.find("aaf") != std::string::npos;
    options.sn2vlMode = input.arguments.find("sn2vl") != std::string::npos;
    return options;
}

// A conversion that fails gives its result in place of the project.
Imported Import(const GoldenSection& input)
{
    GoldenPlatform platform;
    const PlatformScope scope(platform);
    SilentProgress progress;
    const ImportOptions options = OptionsOf(input);
    Document inputDocument;
    ObjectHandle root;
    if (const int read = ParseFCPXML(input.text, inputDocument, root); read != kReadDone)
        return {"read " + std::to_string(read) + "\n", {}, {}, {}};

    Document document;
    ObjectHandle project;
    IssueSet issues;
    const int result = ImportDocument(root, options, progress, document, issues, project);
    const std::string issueText = IssueText(issues, Direction::Import);
    if (result != kSuccess)
        return {"result " + std::to_string(result) + "\n", issueText, {}, {}};

    std::ostringstream text;
    WriteProjectDocument(project, progress, text, options.sn2vlMode);
    const ObjectHandle made = project.GetChild("Project");
    return {text.str(), issueText, OutlineText(made), MediaOutlineText(made)};
}

std::string Produce(const GoldenSection& input, const GoldenSection& output)
{
    const Imported imported = Import(input);
    if (output.name == "issues")
        return imported.issues;
    if (output.name == "outline")
        return imported.outline;
    if (output.name == "media")
        return imported.media;
    constexpr std::string_view kOnly = "only=";
    std::string_view classes = output.arguments;
    classes.remove_prefix(classes.starts_with(kOnly) ? kOnly.size() : 0);
    return NormaliseIds(SelectObjects(imported.project, classes));
}

class ImportCase : public testing::TestWithParam<std::filesystem::path> {};

TEST_P(ImportCase, GivesTheExpectedProject)
{
    const std::string differences = CheckGoldenCase(GetParam(), Produce);
    EXPECT_TRUE(differences.empty()) << GetParam().string() << "\n" << differences;
}

INSTANTIATE_TEST_SUITE_P(Golden, ImportCase, testing::ValuesIn(GoldenCases("import")),
                         GoldenCaseName);

} // namespace
} // namespace XPJ
