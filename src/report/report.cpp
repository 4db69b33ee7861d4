#include "report/report.h"
#include "core/messages.h"
#include "core/numbers.h"
#include "core/paths.h"
#include "core/text.h"
#include "platform/platform.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <span>

#include <fmt/format.h>

namespace XPJ {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

enum class Argument { None, Sequence, Clip, Subject, Time };

enum class Line {
    Headed,   // a tab, the place in the timeline, the message
    Indented, // a tab, the message
    Plain,    // the message
};

struct IssueRow {
    Message message;
    Argument first = Argument::None;
    Argument second = Argument::None;
    Line line = Line::Headed;
};

// Kind 1 first.
constexpr IssueRow kImportIssues[] = {
    // clang-format off
    {Message::kGeneratorNotTranslated2, Argument::Subject},
    {Message::kGeneratorNotTranslated, Argument::Subject, Argument::Sequence, Line::Indented},
    {Message::kEffectNotTranslated, Argument::Subject, Argument::Clip},
    {Message::kThreeWayApproximation, Argument::Clip},
    {Message::kCompositeModeNotSupported, Argument::Subject, Argument::Clip},
    {Message::kConstantPowerTransitionNotTranslated, Argument::Subject},
    {Message::kCrossDissolveTransitionNotTranslated, Argument::Subject},
    {Message::kDipToColorNotTranslated},
    {Message::kAudioLevelClamped, Argument::Subject, Argument::Clip},
    {Message::kMulticlipNotTranslated, Argument::Clip},
    {Message::kUnrecognizedXMLVersion, Argument::Time, Argument::None, Line::Indented},
    {Message::kStartOfClipExtended},
    {Message::kEndOfClipExtended},
    {Message::kInvalidLowPassFilterParameters},
    {Message::kInvalidHighPassFilterParameters},
    {Message::kInvalidBandPassFilterParameters},
    {Message::kInvalidPanFilterParameters},
    {Message::kInvalidInPoint, Argument::None, Argument::None, Line::Indented},
    {Message::kMissingLookLUT, Argument::Clip, Argument::None, Line::Indented},
    {Message::kInvalidStartEnd, Argument::Clip, Argument::None, Line::Plain},
    {Message::kInvalidBytes, Argument::Subject, Argument::Time, Line::Indented},
    {Message::kUnknownEncoding, Argument::Subject, Argument::None, Line::Indented},
    // clang-format on
};
static_assert(std::size(kImportIssues) == static_cast<int>(ImportIssue::UnknownEncoding));

constexpr IssueRow kExportIssues[] = {
    // clang-format off
    {Message::kUnrecognizedVelaProVersion, Argument::Time, Argument::None, Line::Indented},
    {Message::kSyntheticNotTranslated, Argument::Clip, Argument::None, Line::Indented},
    {Message::kEffectNotTranslated, Argument::Subject, Argument::Clip},
    {Message::kCompositeModeNotSUpported, Argument::Clip},
    {Message::kTransitionNotSupported, Argument::Subject},
    {Message::kCrossDissolveTransitionNotTranslated, Argument::Subject},
    {Message::kThreeWayApproximation, Argument::Clip},
    {Message::kMergedClipExportedAsSequence, Argument::Clip, Argument::None, Line::Indented},
    {Message::kMulticamExportNotSupported, Argument::Clip},
    {Message::kEffectNotTranslated, Argument::Subject, Argument::Clip, Line::Indented},
    {Message::kInvalidBytes, Argument::Subject, Argument::Time, Line::Indented},
    {Message::kUnknownEncoding, Argument::Subject, Argument::None, Line::Indented},
    // clang-format on
};
static_assert(std::size(kExportIssues) == static_cast<int>(ExportIssue::UnknownEncoding));

std::string_view ArgumentText(const TranslationIssue& issue, Argument argument)
{
    switch (argument) {
    case Argument::Sequence:
        return issue.sequence.text;
    case Argument::Clip:
        return issue.clip.text;
    case Argument::Subject:
        return issue.subject.text;
    case Argument::Time:
        return issue.time;
    case Argument::None:
        break;
    }
    return {};
}

std::string MessageText(const TranslationIssue& issue, const IssueRow& row)
{
    if (row.first == Argument::None)
        return GetMessage(row.message);
    if (row.second == Argument::None)
        return GetMessage(row.message, {ArgumentText(issue, row.first)});
    return GetMessage(row.message,
                      {ArgumentText(issue, row.first), ArgumentText(issue, row.second)});
}

// "video track 1"; what concerns a sequence but no track of it is its sound.
std::string TrackText(const TranslationIssue& issue)
{
    constexpr int kVideo = 1;
    if (issue.trackKind == kNoTrack)
        return GetMessage(Message::kAudio);
    const Message track = issue.trackKind == kVideo ? Message::kVideoTrack : Message::kAudioTrack;
    return GetMessage(track, {IntToString(std::int64_t{issue.trackIndex} + 1)});
}

// An effect of a medium stands in no sequence, whatever the form of its kind.
bool HasPlace(const TranslationIssue& issue)
{
    return issue.trackKind != kNoTrack || !issue.sequence.text.empty();
}

// Sequence <Cut 1> at 01:00:00:00, video track 1:
std::string PlaceText(const TranslationIssue& issue)
{
    return GetMessage(Message::kSequence, {issue.sequence.text, issue.time, TrackText(issue)});
}

TranslationIssue WithPlainNames(TranslationIssue issue)
{
    for (std::string* text :
         {&issue.sequence.text, &issue.clip.text, &issue.subject.text, &issue.time})
        *text = UnescapeXML(*text);
    return issue;
}

std::string LocalTimeText()
{
    const std::time_t now = std::chrono::system_clock::to_time_t(GetPlatform().Now());
    std::tm local{};
    if (!localtime_r(&now, &local))
        return {};
    std::array<char, 64> text{};
    return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d %H-%M", &local)};
}

} // namespace

std::string SkippedText(const SkippedList& skipped)
{
    std::string text;
    for (const TranslationIssue& skippedItem : skipped) {
        const TranslationIssue record = WithPlainNames(skippedItem);
        if (record.clip.text.empty())
            text += fmt::format("Sequence <{}> has no frame rate or format, left out.\n",
                                record.sequence.text);
        else if (record.sequence.text.empty())
            text += fmt::format("Clip <{}> has no media, left out.\n", record.clip.text);
        else
            text += fmt::format("{} Clip <{}> has no media, left out.\n", PlaceText(record),
                                record.clip.text);
    }
    return text;
}

std::string IssueReportText(const IssueSet& issues, Direction direction, NameForm names)
{
    const std::span<const IssueRow> rows = direction == Direction::Import
                                               ? std::span<const IssueRow>(kImportIssues)
                                               : std::span<const IssueRow>(kExportIssues);
    const std::string heading = GetMessage(Message::kTranslationIssue);
    std::string text;
    for (const TranslationIssue& found : issues) {
        if (found.kind < 1 || static_cast<std::size_t>(found.kind) > rows.size())
            continue;
        const TranslationIssue issue = names == NameForm::Plain ? WithPlainNames(found) : found;
        const IssueRow& row = rows[static_cast<std::size_t>(issue.kind) - 1];
        text.append(heading).append(kLineEnd);
        if (row.line != Line::Plain)
            text += '\t';
        if (row.line == Line::Headed && HasPlace(issue))
            text.append(PlaceText(issue)) += ' ';
        text.append(MessageText(issue, row)).append(kLineEnd);
    }
    return text;
}

std::string MakeUniqueFileName(const std::string& base, std::string_view extension, CoreFile& file)
{
    for (std::size_t i = 0;; ++i) {
        std::string name = i == 0 ? fmt::format("{}.{}", base, extension)
                                  : fmt::format("{} ({}).{}", base, i, extension);
        if (file.CreateNew(name))
            return name;
        if (file.Error() != EEXIST)
            return {};
    }
}

std::string WriteReport(std::string_view folder, const IssueSet& issues, Direction direction,
                        NameForm names)
{
    std::string base(folder);
    base.append(GetMessage(Message::kTranslationResults)).append(" ").append(LocalTimeText());
    CoreFile file;
    std::string path = MakeUniqueFileName(base, "txt", file);
    if (path.empty())
        return {};

    const std::string text = IssueReportText(issues, direction, names);
    std::size_t written = 0;
    if (file.Write(text.data(), text.size(), written) && file.Close())
        return path;
    std::remove(path.c_str());
    return {};
}

void AddReportItem(ObjectHandle projectDocument, std::string_view reportPath)
{
    const ObjectHandle root = FindPath(projectDocument, {"Project", "RootProjectItem"});
    if (!root)
        return;
    const ObjectHandle item = root.Get()->document->NewObject("FileProjectItem");
    item.SetProperty("uid", NewGuidText());
    item.SetProperty("FullPath", EscapeXML(reportPath));
    item.SetProperty("Name", EscapeXML(FileNameOf(reportPath)));
    root.AddChild("ProjectItem", item);
}

} // namespace XPJ
