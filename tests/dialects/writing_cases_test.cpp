// What the tool writes for other programs. A case converts its document to a project and back, so
// often as it says, and shows lines of the last document:
//
//   %% document passes=2         or `%% sample`, the name of one
//   %% lines file,mediaSource    those whose first tag is one of these, also at its end
//   %% names                     the elements and attributes that occur, by element
//   %% equal passes=3            "yes" if so many passes give the same lines
//
// `one-sequence` chooses the sequence "Cut"; `no-additions` is the option of the tool.
#include "support/document_text.h"
#include "support/golden.h"
#include "support/open_conversion.h"

#include <algorithm>
#include <map>
#include <set>
#include <sstream>

namespace XPJ {
namespace {

struct Run {
    int passes = 1;
    bool oneSequence = false;
    bool additions = true;
};

// The value behind `key`, empty if it is not there.
std::string ArgumentOf(const std::string& arguments, std::string_view key)
{
    std::istringstream words(arguments);
    for (std::string word; words >> word;)
        if (word.starts_with(key))
            return word == key ? "yes" : word.substr(key.size());
    return {};
}

Run RunOf(const std::string& arguments)
{
    const std::string passes = ArgumentOf(arguments, "passes=");
    return {.passes = passes.empty() ? 1 : std::stoi(passes),
            .oneSequence = !ArgumentOf(arguments, "one-sequence").empty(),
            .additions = ArgumentOf(arguments, "no-additions").empty()};
}

// The identity of the sequence of that name.
Guid SequenceNamed(const std::string& project, std::string_view name)
{
    const Element root = ParseElements(project);
    for (const Element& object : root.children)
        if (object.name == "Sequence" && object.Child("Name").text == name)
            return StringToGUID(object.Attribute("ObjectUID"));
    return kZeroGuid;
}

std::string Converted(const std::string& document, const Run& run)
{
    OpenConversion conversion;
    std::string text = document;
    for (int pass = 0; pass < run.passes; ++pass) {
        const std::string project = conversion.ToProject(text);
        text = conversion.ToXmeml(
            project, {.sequenceGuid = run.oneSequence ? SequenceNamed(project, "Cut") : kZeroGuid,
                      .additions = run.additions});
    }
    return text;
}

// Ids count over the life of the process: they are numbered by their first appearance.
std::string NumberIds(const std::string& text)
{
    constexpr std::string_view kPrefixes[] = {"clipitem-", "masterclip-", "file-", "sequence-"};
    std::string result;
    std::map<std::string, int> numbers;
    std::map<std::string_view, int> counts;
    for (std::size_t i = 0; i < text.size();) {
        const auto* const prefix = std::ranges::find_if(kPrefixes, [&](std::string_view name) {
            return text.compare(i, name.size(), name) == 0;
        });
        if (prefix == std::end(kPrefixes)) {
            result += text[i++];
            continue;
        }
        const std::size_t end = text.find_first_not_of("0123456789", i + prefix->size());
        const auto [number, isNew] = numbers.try_emplace(text.substr(i, end - i), 0);
        if (isNew)
            number->second = ++counts[*prefix];
        result.append(*prefix).append(std::to_string(number->second));
        i = end;
    }
    return result;
}

std::string LinesOf(const std::string& document, const std::string& tags)
{
    std::set<std::string> wanted;
    std::istringstream list(tags);
    for (std::string tag; std::getline(list, tag, ',');)
        wanted.insert(tag);
    std::istringstream lines(NumberIds(document));
    std::string result;
    for (std::string line; std::getline(lines, line);) {
        const std::size_t tag = line.find_first_not_of("\t</");
        if (!wanted.contains(line.substr(tag, line.find_first_of(" />", tag) - tag)))
            continue;
        const std::size_t id = line.find(" id=\"");
        if (id != line.npos && line.find('"', id + 5) + 1 < line.size() - 2) // other attributes
            line = line.substr(0, line.find('"', id + 5) + 1) + ">";
        result += line.substr(line.find('<')) + "\n";
    }
    return result;
}

void CollectNames(const Element& element, std::map<std::string, std::set<std::string>>& names)
{
    std::set<std::string>& own = names[element.name];
    for (const auto& [name, value] : element.attributes)
        own.insert("@" + name);
    for (const Element& child : element.children) {
        own.insert(child.name);
        CollectNames(child, names);
    }
}

std::string NamesOf(const std::string& document)
{
    std::map<std::string, std::set<std::string>> names;
    CollectNames(ParseElements(document), names);
    std::string result;
    for (const auto& [element, own] : names) {
        if (own.empty())
            continue;
        result += element + ":";
        for (const std::string& name : own)
            result += " " + name;
        result += "\n";
    }
    return result;
}

std::string Produce(const GoldenSection& input, const GoldenSection& output)
{
    Run run = RunOf(input.arguments);
    const std::string source =
        input.name == "sample"
            ? TempFolder::Read(VELA_SAMPLES "/" + input.text.substr(0, input.text.find('\n')))
            : input.text;
    const std::string document = Converted(source, run);
    if (output.name == "names")
        return NamesOf(document);
    if (output.name == "lines")
        return LinesOf(document, output.arguments);
    run.passes = RunOf(output.arguments).passes;
    const std::string other = Converted(source, run);
    const std::string all = "clip,sequence,clipitem,linkclipref,file,mediaSource,marker,in,out";
    return LinesOf(document, all) == LinesOf(other, all) ? "yes\n" : "no\n";
}

class WritingCase : public testing::TestWithParam<std::filesystem::path> {};

TEST_P(WritingCase, GivesTheExpectedLines)
{
    const std::string differences = CheckGoldenCase(GetParam(), Produce);
    EXPECT_TRUE(differences.empty()) << GetParam().string() << "\n" << differences;
}

INSTANTIATE_TEST_SUITE_P(Golden, WritingCase, testing::ValuesIn(GoldenCases("dialects/writing")),
                         GoldenCaseName);

} // namespace
} // namespace XPJ
