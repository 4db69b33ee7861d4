// Times, audio and effects in open interchange. A case starts with a document; what follows is
// what a project of it, the document of that project, and the way back are like.
//
//   %% import       the document, read with the setting
//   %% project      effects of the project, and the gains of its clips
//   %% times        items of the document written with the setting, one a line
//   %% effects      effects of that document
//   %% back         what a project of it lacks, read with the setting
//   %% back strict  the same, read to the letter
#include "export/outline.h"
#include "frame/document_timelines.h"
#include "import/outline.h"
#include "inspect/compare.h"
#include "inspect/timeline_text.h"
#include "support/document_text.h"
#include "support/golden.h"
#include "support/open_conversion.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

namespace XPJ {
namespace {

// Calls `use(element)` for an element and all below it that have the name.
template <typename Use>
void ForEachElement(const Element& element, std::string_view name, const Use& use)
{
    if (element.name == name)
        use(element);
    for (const Element& child : element.children)
        ForEachElement(child, name, use);
}

// The filters of tracks are among those that are listed at the end.
std::string EffectsOfProject(const std::string& project)
{
    std::string text = EffectsOutline(project, {}, {});
    const Element root = ParseElements(project);
    ForEachElement(root, "Gain", [&](const Element& gain) {
        if (gain.text != "1.0")
            text += "gain " + gain.text + "\n";
    });
    ForEachElement(root, "FilterMatchName", [&](const Element& name) {
        if (name.text.find("Volume") == name.text.npos)
            text += "filter " + name.text + "\n";
    });
    return text;
}

std::string TimesOfItem(const Element& item)
{
    std::string line = "  " + item.Child("name").text + ":";
    for (const std::string_view key : {"start", "end", "in", "out", "duration", "velaTicksStart",
                                       "velaTicksEnd", "velaTicksIn", "velaTicksOut", "velaGain"}) {
        const Element& time = item.Child(key);
        const std::string_view value = time.IsNone() ? item.Attribute(key) : time.text;
        if (!value.empty())
            line += fmt::format(" {}={}", key, value);
    }
    for (const Element& filter : item.children)
        if (filter.name == "filter" && filter.Child("effect").Child("effectid").text == "timeremap")
            for (const Element& parameter : filter.Child("effect").children)
                if (parameter.Child("parameterid").text == "speed")
                    line += " speed=" + parameter.Child("value").text;
    return line + "\n";
}

std::string TimesOfDocument(const std::string& xmeml)
{
    std::string text;
    ForEachElement(ParseElements(xmeml), "track", [&](const Element& track) {
        text += "track\n";
        for (const Element& item : track.children)
            if (item.name == "clipitem")
                text += TimesOfItem(item);
    });
    return text;
}

std::string EffectsOfDocument(const std::string& xmeml)
{
    std::string text = RVX::XmemlEffects(xmeml);
    ForEachElement(ParseElements(xmeml), "filter", [&](const Element& filter) {
        if (filter.Child("enabled").text == "FALSE")
            text += "off: " + filter.Child("effect").Child("name").text + "\n";
    });
    return text;
}

std::string Differences(const std::string& before, const std::string& after)
{
    const std::string effects = EffectsOfProject(before);
    const std::string effectsAfter = EffectsOfProject(after);
    return Inspection::DifferencesText(
               Inspection::Compare(ReadTimelines(before).project, ReadTimelines(after).project)) +
           (effects == effectsAfter ? std::string() : LineDiff(effects, effectsAfter));
}

std::string Produce(const GoldenSection& input, const GoldenSection& output)
{
    OpenConversion conversion;
    const std::string project = conversion.ToProject(input.text);
    if (output.name == "project")
        return EffectsOfProject(project);
    const std::string xmeml = conversion.ToXmeml(project);
    if (output.name == "times")
        return TimesOfDocument(xmeml);
    if (output.name == "effects")
        return EffectsOfDocument(xmeml);
    conversion.SetOpen(output.arguments != "strict");
    return Differences(project, conversion.ToProject(xmeml));
}

class ExchangeCase : public testing::TestWithParam<std::filesystem::path> {};

TEST_P(ExchangeCase, MeansTheSameToAll)
{
    const std::string differences = CheckGoldenCase(GetParam(), Produce);
    EXPECT_TRUE(differences.empty()) << GetParam().string() << "\n" << differences;
}

INSTANTIATE_TEST_SUITE_P(Golden, ExchangeCase,
                         testing::ValuesIn(GoldenCases("dialects/times_and_audio")),
                         GoldenCaseName);

} // namespace
} // namespace XPJ
