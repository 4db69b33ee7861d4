#include "export/outline.h"
#include "support/document_text.h"
#include "support/export_text.h"
#include "support/golden.h"

#include <sstream>

#include <gtest/gtest.h>

namespace XPJ::RVX {
namespace {

// The arguments of `%% project`, or `%% nested`: "vl2sn", "transform", "sequence=GUID".
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

// A conversion that fails gives its result instead of the text.
Exported Export(const GoldenSection& input, bool isOpen)
{
    IdCounters ids; // so that every case counts from 1
    ExportOptions options = OptionsOf(input);
    options.ids = &ids;
    options.settings.openInterchange = isOpen;
    Exported exported =
        ExportText(input.name == "nested" ? FlatProject(input.text) : input.text, options);
    if (exported.xmeml.empty())
        exported.xmeml = FailureText(exported.read, exported.result);
    return exported;
}

// `%% remarks open` are those of an export in open interchange.
std::string Produce(const GoldenSection& input, const GoldenSection& output)
{
    const Exported exported = Export(input, output.arguments == "open");
    if (output.name == "issues")
        return exported.issues;
    if (output.name == "skipped")
        return exported.skipped;
    if (output.name == "remarks")
        return exported.remarks;
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
