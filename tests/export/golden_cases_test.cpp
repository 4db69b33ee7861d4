#include "export/export_driver.h"
#include "model/reader.h"
#include "model/writer.h"
#include "support/golden.h"

#include <sstream>

#include <gtest/gtest.h>

namespace XPJ::RVX {
namespace {

struct Exported {
    std::string xmeml;
    std::string issues;
};

// Words behind `%% project`: "vl2sn", "sequence=GUID".
ExportOptions OptionsOf(const GoldenSection& input)
{
    ExportOptions options;
    options.projectTitle = "Case";
    constexpr std::string_view kSequence = "sequence=";
    std::istringstream words(input.arguments);
    for (std::string word; words >> word;) {
        if (word == "vl2sn")
            options.vl2snMode = true;
        else if (word.starts_with(kSequence))
            options.sequenceGuid = StringToGUID(std::string_view(word).substr(kSequence.size()));
    }
    return options;
}

// A conversion that fails gives its result in place of the text.
Exported Export(const GoldenSection& input)
{
    SilentProgress progress;
    const ExportOptions options = OptionsOf(input);
    Document inputDocument;
    ObjectHandle root;
    std::istringstream text(input.text);
    const int read = ReadProjectDocument(text, inputDocument, root);
    if (read != kReadDone)
        return {"read " + std::to_string(read) + "\n", {}};

    Document document;
    ObjectHandle xmeml;
    IssueSet issues;
    const int result = TranslateProjectDocument(root, options, progress, document, issues, xmeml);
    const std::string issueText = IssueText(issues, Direction::Export);
    if (result != kSuccess)
        return {"result " + std::to_string(result) + "\n", issueText};

    std::ostringstream output;
    WriteFCPXML(xmeml, progress, options.vl2snMode, output);
    return {output.str(), issueText};
}

std::string Produce(const GoldenSection& input, const GoldenSection& output)
{
    const Exported exported = Export(input);
    return output.name == "issues" ? exported.issues : exported.xmeml;
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
