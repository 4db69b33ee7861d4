#include "import/outline.h"
#include "support/golden.h"
#include "support/import_text.h"

#include <algorithm>

#include <gtest/gtest.h>

namespace XPJ {
namespace {

// The arguments of `%% import` switch modes on: "aaf", "sn2vl", "titles" for titles as graphics,
// "on-masters" for graphics on master clips, "here" for a document in the folder of the case,
// "open" for open interchange (the dialects are not applied).
ImportOptions OptionsOf(const GoldenSection& input)
{
    const auto has = [&](const char* word) {
        return input.arguments.find(word) != std::string::npos;
    };
    ImportOptions options;
    options.inputPath = has("here") ? VELA_TEST_DATA "/import/case.xml" : "/documents/case.xml";
    options.aafSupport = has("aaf");
    options.sn2vlMode = has("sn2vl");
    options.settings.convertTitles = has("titles");
    options.settings.titlesAsMasterEffects = has("on-masters");
    options.settings.openInterchange = has("open");
    return options;
}

std::string WithoutFolder(std::string text)
{
    const std::string folder = VELA_TEST_DATA "/import";
    for (std::size_t at; (at = text.find(folder)) != text.npos;)
        text.replace(at, folder.size(), "/documents");
    return text;
}

// A conversion that fails gives its result instead of the project.
Imported Import(const GoldenSection& input)
{
    GoldenPlatform platform;
    const PlatformScope scope(platform);
    Imported imported = ImportText(input.text, OptionsOf(input));
    if (imported.project.empty())
        imported.project = FailureText(imported.read, imported.result);
    return imported;
}

std::string Produce(const GoldenSection& input, const GoldenSection& output)
{
    const Imported imported = Import(input);
    if (output.name == "issues")
        return WithoutFolder(imported.issues);
    if (output.name == "skipped")
        return imported.skipped;
    if (output.name == "remarks")
        return WithoutFolder(imported.remarks);
    const std::string_view project =
        std::string_view(imported.project)
            .substr(std::min(imported.project.find("<?xml"), imported.project.size()));
    if (output.name == "outline")
        return TimelineOutline(project);
    if (output.name == "media")
        return MediaOutline(project);
    if (output.name == "effects")
        return EffectsOutline(project, ArgumentOf(output, "fold="), ArgumentOf(output, "names="));
    if (output.name == "parameters")
        return ParametersOutline(project, ArgumentOf(output, "of="));
    if (output.name == "titles")
        return TitlesOutline(project, ArgumentOf(output, "of="));
    return NormaliseIds(SelectObjects(imported.project, ArgumentOf(output, "only=")));
}

class ImportCase : public testing::TestWithParam<std::filesystem::path> {};

TEST_P(ImportCase, GivesTheExpectedProject)
{
    const std::string differences = CheckGoldenCase(GetParam(), Produce);
    EXPECT_TRUE(differences.empty()) << GetParam().string() << "\n" << differences;
}

// Documents, which the round trips take, too.
INSTANTIATE_TEST_SUITE_P(Golden, ImportCase, testing::ValuesIn(GoldenCases("import")),
                         GoldenCaseName);
// Documents that show all cases of a rule at once.
INSTANTIATE_TEST_SUITE_P(Rules, ImportCase, testing::ValuesIn(GoldenCases("import/rules")),
                         GoldenCaseName);

} // namespace
} // namespace XPJ
