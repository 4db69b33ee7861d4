#include "export/export_driver.h"
#include "export/outline.h"
#include "project/reader.h"
#include "support/document_text.h"
#include "support/golden.h"
#include "tree/reading.h"
#include "xmeml/writer.h"

#include <sstream>

#include <gtest/gtest.h>

namespace XPJ::RVX {
namespace {

struct Exported {
    std::string xmeml;
    std::string issues;
    std::string skipped;
};

// Words behind `%% project`, or `%% nested`: "vl2sn", "transform", "sequence=GUID".
ExportOptions OptionsOf(const GoldenSection& input)
{
    ExportOptions options;
    options.projectTitle = "Case";
    constexpr std::string_view kSequence = "sequence=";
    std::istringstream words(input.arguments);
    for (std::string word; words >> word;) {
        if (word == "vl2sn")
            options.vl2snMode = true;
        else if (word == "transform")
            options.exportTransformEffect = true;
        else if (word.starts_with(kSequence))
            options.sequenceGuid = StringToGUID(std::string_view(word).substr(kSequence.size()));
    }
    return options;
}

// A conversion that fails gives its result in place of the text.
Exported Export(const GoldenSection& input)
{
    SilentProgress progress;
    IdCounters ids; // so that every case counts from 1
    ExportOptions options = OptionsOf(input);
    options.ids = &ids;
    Document inputDocument;
    ObjectHandle root;
    std::istringstream text(input.name == "nested" ? FlatProject(input.text) : input.text);
    const int read = ReadProjectDocument(text, inputDocument, root);
    if (read != kReadDone)
        return {"read " + std::to_string(read) + "\n", {}, {}};

    Document document;
    ObjectHandle xmeml;
    IssueSet issues;
    SkippedList skipped;
    const int result =
        TranslateProjectDocument(root, options, progress, document, issues, xmeml, &skipped);
    const std::string issueText = IssueText(issues, Direction::Export);
    if (result != kSuccess)
        return {"result " + std::to_string(result) + "\n", issueText, {}};

    std::ostringstream output;
    WriteFCPXML(xmeml, progress, options.vl2snMode, output);
    return {output.str(), issueText, SkippedLines(skipped)};
}

std::string_view ArgumentOf(const GoldenSection& output, std::string_view key)
{
    const std::string_view arguments = output.arguments;
    return arguments.starts_with(key) ? arguments.substr(key.size()) : std::string_view();
}

std::string Produce(const GoldenSection& input, const GoldenSection& output)
{
    const Exported exported = Export(input);
    if (output.name == "issues")
        return exported.issues;
    if (output.name == "skipped")
        return exported.skipped;
    if (output.name == "outline")
        return XmemlOutline(exported.xmeml, ArgumentOf(output, "fold="));
    if (output.name == "effects")
        return XmemlEffects(exported.xmeml);
    return FoldedElements(exported.xmeml, ArgumentOf(output, "fold="));
}

class ExportCase : public testing::TestWithParam<std::filesystem::path> {};

TEST_P(ExportCase, GivesTheExpectedDocument)
{
    const std::string differences = CheckGoldenCase(GetParam(), Produce);
    EXPECT_TRUE(differences.empty()) << GetParam().string() << "\n" << differences;
}

INSTANTIATE_TEST_SUITE_P(Golden, ExportCase, testing::ValuesIn(GoldenCases("export")),
                         GoldenCaseName);

} // namespace
} // namespace XPJ::RVX
