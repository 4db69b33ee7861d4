#include "support/golden.h"

#include "core/numbers.h"
#include "tree/reading.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>

#include <fmt/format.h>

namespace XPJ {

namespace {

constexpr std::string_view kSectionMark = "%% ";
constexpr std::string_view kGuidMark = "60a1de00-0000-4000-8000-";
constexpr std::size_t kGuidSize = 36;

// Each with its line end.
std::vector<std::string_view> Lines(std::string_view text)
{
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const std::size_t size = std::min(text.find('\n'), text.size() - 1) + 1;
        lines.push_back(text.substr(0, size));
        text.remove_prefix(size);
    }
    return lines;
}

std::string ReadText(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void WriteText(const std::filesystem::path& path, std::string_view text)
{
    std::ofstream(path, std::ios::binary) << text;
}

bool IsAccepting()
{
    const char* const value = std::getenv("VELA_ACCEPT"); // NOLINT(concurrency-mt-unsafe)
    return value && std::string_view(value) == "1";
}

GoldenSection ParseHeader(std::string_view line)
{
    line.remove_prefix(kSectionMark.size());
    line = line.substr(0, line.find_last_not_of("\r\n") + 1);
    const std::size_t blank = std::min(line.find(' '), line.size());
    return {std::string(line.substr(0, blank)),
            std::string(line.substr(std::min(blank + 1, line.size()))),
            {}};
}

bool IsListed(std::string_view list, std::string_view item)
{
    return ("," + std::string(list) + ",").find("," + std::string(item) + ",") != std::string::npos;
}

// Class of the object that a line of a project opens at the first level; empty if it opens none.
std::string_view OpenedClass(std::string_view line)
{
    if (!line.starts_with("\t<") || line.find(" Object") == line.npos || line.ends_with("/>\n"))
        return {};
    return line.substr(2, line.find(' ') - 2);
}

std::string Join(std::vector<std::string_view>::const_iterator begin,
                 std::vector<std::string_view>::const_iterator end, std::string_view mark)
{
    std::string text;
    for (auto line = begin; line != end; ++line)
        text.append(mark).append(*line);
    if (!text.empty() && text.back() != '\n')
        text += '\n';
    return text;
}

// The number of a text in the order of first appearance, from 1.
class Numbering {
public:
    std::string NumberOf(std::string_view text)
    {
        const auto entry = numbers_.emplace(std::string(text), numbers_.size() + 1).first;
        return UintToString(entry->second);
    }

private:
    std::map<std::string, std::size_t> numbers_;
};

} // namespace

std::string_view ArgumentOf(const GoldenSection& output, std::string_view key)
{
    const std::string_view arguments = output.arguments;
    return arguments.starts_with(key) ? arguments.substr(key.size()) : std::string_view();
}

std::string FailureText(int read, int result)
{
    return read != kReadDone ? fmt::format("read {}\n", read) : fmt::format("result {}\n", result);
}

GoldenCase ParseGoldenCase(std::string_view text)
{
    GoldenCase golden;
    for (const std::string_view line : Lines(text)) {
        if (line.starts_with(kSectionMark))
            golden.sections.push_back(ParseHeader(line));
        else
            (golden.sections.empty() ? golden.comment : golden.sections.back().text) += line;
    }
    return golden;
}

std::string FormatGoldenCase(const GoldenCase& golden)
{
    std::string text = golden.comment;
    for (const GoldenSection& section : golden.sections) {
        text.append(kSectionMark).append(section.name);
        if (!section.arguments.empty())
            text.append(" ").append(section.arguments);
        text.append("\n").append(section.text);
    }
    return text;
}

std::string CheckGoldenCase(const std::filesystem::path& path, const GoldenOutput& produce)
{
    GoldenCase golden = ParseGoldenCase(ReadText(path));
    if (golden.sections.size() < 2)
        return path.string() + ": no section to compare\n";
    std::string differences;
    for (auto section = golden.sections.begin() + 1; section != golden.sections.end(); ++section) {
        const std::string actual = produce(golden.sections.front(), *section);
        if (actual == section->text)
            continue;
        differences += fmt::format("%% {}\n{}", section->name, LineDiff(section->text, actual));
        section->text = actual;
    }
    if (differences.empty() || !IsAccepting())
        return differences;
    WriteText(path, FormatGoldenCase(golden));
    return {};
}

std::vector<std::filesystem::path> GoldenCases(std::string_view folder)
{
    std::vector<std::filesystem::path> cases;
    for (const auto& entry :
         std::filesystem::directory_iterator(std::filesystem::path(VELA_TEST_DATA) / folder))
        if (entry.path().extension() == ".case")
            cases.push_back(entry.path());
    std::ranges::sort(cases);
    return cases;
}

std::string GoldenCaseName(const testing::TestParamInfo<std::filesystem::path>& info)
{
    std::string name = info.param.stem().string();
    for (char& c : name)
        c = std::isalnum(static_cast<unsigned char>(c)) ? c : '_';
    return name;
}

std::string LineDiff(std::string_view expected, std::string_view actual)
{
    const std::vector<std::string_view> before = Lines(expected);
    const std::vector<std::string_view> after = Lines(actual);
    const auto [b, a] = std::ranges::mismatch(before, after);
    const auto [endB, endA] = std::mismatch(before.rbegin(), std::make_reverse_iterator(b),
                                            after.rbegin(), std::make_reverse_iterator(a));
    return fmt::format("from line {}:\n", b - before.begin() + 1) + Join(b, endB.base(), "- ") +
           Join(a, endA.base(), "+ ");
}

std::string SelectObjects(std::string_view project, std::string_view classes)
{
    if (classes.empty())
        return std::string(project);
    std::string selected;
    std::string end; // last line of the object that is being copied
    for (const std::string_view line : Lines(project)) {
        if (end.empty()) {
            const std::string_view opened = OpenedClass(line);
            if (opened.empty() || !IsListed(classes, opened))
                continue;
            end = fmt::format("\t</{}>\n", opened);
        }
        selected += line;
        if (line == end)
            end.clear();
    }
    return selected;
}

std::string NormaliseIds(std::string_view text)
{
    Numbering objects;
    Numbering guids;
    std::string result;
    for (std::size_t at = 0; at < text.size();) {
        const std::string_view rest = text.substr(at);
        for (const std::string_view mark : {"ObjectID=\"", "ObjectRef=\""}) {
            if (!rest.starts_with(mark))
                continue;
            const std::string_view value = rest.substr(mark.size());
            const std::string_view number = value.substr(0, value.find('"'));
            result.append(mark).append(objects.NumberOf(number));
            at += mark.size() + number.size();
        }
        if (rest.starts_with(kGuidMark)) {
            result.append("G").append(guids.NumberOf(rest.substr(0, kGuidSize)));
            at += kGuidSize;
        }
        if (at < text.size())
            result += text[at++];
    }
    return result;
}

std::string IssueText(const IssueSet& issues, Direction direction)
{
    std::string text;
    for (const TranslationIssue& issue : issues) {
        if (const IssueKind* const kind = FindIssueKind(direction, issue.kind))
            text += kind->name;
        const std::pair<std::string_view, const std::string&> fields[] = {
            {"sequence", issue.sequence},
            {"clip", issue.clip},
            {"subject", issue.subject},
            {"time", issue.time}};
        for (const auto& [name, value] : fields)
            if (!value.empty())
                text += fmt::format(" {}=\"{}\"", name, value);
        if (issue.trackKind != 3)
            text +=
                fmt::format(" track={}{}", issue.trackKind == 1 ? 'V' : 'A', issue.trackIndex + 1);
        text += '\n';
    }
    return text;
}

std::string RemarkLines(const Account& account)
{
    std::string text;
    for (const Remark& remark : account.remarks) {
        std::string location =
            remark.sequence.empty() && !remark.bin.empty() ? fmt::format("{}/", remark.bin) : "";
        location += remark.sequence;
        if (!remark.sequence.empty() && remark.trackKind != kNoTrack)
            location +=
                fmt::format(", {}{}", remark.trackKind == 1 ? 'V' : 'A', remark.trackIndex + 1);
        if (remark.span.IsKnown())
            location += fmt::format(", {}", remark.span.start);
        if (remark.span.IsKnown() && remark.span.end >= 0)
            location += fmt::format("-{}", remark.span.end);
        if (!remark.clip.empty())
            location.append(remark.sequence.empty() ? "" : ", ").append(remark.clip);
        text += fmt::format("{} [{}]", RowOf(remark.kind).id, location);
        if (!remark.subject.empty())
            text += fmt::format(" <{}>", remark.subject);
        if (!remark.subjectId.empty() && remark.subjectId != remark.subject)
            text += fmt::format(" ({})", remark.subjectId);
        if (!remark.detail.empty())
            text.append(": ").append(remark.detail);
        if (remark.count != 1)
            text += fmt::format(" x{}", remark.count);
        text += '\n';
    }
    return text;
}

std::string SkippedLines(const Account& account)
{
    std::string text;
    for (const Remark& remark : account.remarks)
        if (remark.kind == RemarkKind::ClipWithoutMedia ||
            remark.kind == RemarkKind::FileWithoutMedia ||
            remark.kind == RemarkKind::GeneratorInBin ||
            remark.kind == RemarkKind::MulticlipIncomplete ||
            remark.kind == RemarkKind::SequenceWithoutFormat)
            text += fmt::format(
                "sequence=\"{}\" clip=\"{}\" time=\"{}\"\n", remark.sequence, remark.clip,
                remark.span.IsKnown() ? remark.span.Timecode(remark.span.start) : "00:00");
    return text;
}

Guid GoldenPlatform::CreateUniqueGuid()
{
    return StringToGUID(fmt::format("{}{:012x}", kGuidMark, ++count_));
}

} // namespace XPJ
