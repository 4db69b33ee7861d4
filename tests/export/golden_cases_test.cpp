#include "export/export_driver.h"
#include "project/reader.h"
#include "support/golden.h"
#include "tree/reading.h"
#include "xmeml/writer.h"

#include <algorithm>
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
    IdCounters ids; // so that every case counts from 1
    ExportOptions options = OptionsOf(input);
    options.ids = &ids;
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

// Shortens what a case is not about: words behind `%% xmeml` "fold=format,file" leave such elements
// as one line, <file id="file-1">...</file>.
std::string Fold(std::string_view text, std::string_view tags)
{
    const std::string folded = "," + std::string(tags) + ",";
    std::istringstream lines{std::string(text)};
    std::string result;
    std::string closing; // of the element that is left out
    for (std::string line; std::getline(lines, line);) {
        const std::size_t start = std::min(line.find('<'), line.size());
        if (!closing.empty()) {
            if (line == closing) {
                result += line.substr(start) + "\n";
                closing.clear();
            }
            continue;
        }
        result += line;
        const std::string tag = line.substr(start, line.find_first_of(" >") - start);
        const bool isWhole = line.find('<', start + 1) != line.npos || line.ends_with("/>");
        if (tag.size() > 1 && !isWhole && folded.find("," + tag.substr(1) + ",") != folded.npos) {
            closing = line.substr(0, start) + "</" + tag.substr(1) + ">";
            result += "...";
        } else {
            result += '\n';
        }
    }
    return result;
}

std::string Produce(const GoldenSection& input, const GoldenSection& output)
{
    constexpr std::string_view kFold = "fold=";
    const Exported exported = Export(input);
    if (output.name == "issues")
        return exported.issues;
    return output.arguments.starts_with(kFold)
               ? Fold(exported.xmeml, std::string_view(output.arguments).substr(kFold.size()))
               : exported.xmeml;
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
