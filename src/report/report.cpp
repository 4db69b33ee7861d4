#include "report/report.h"
#include "core/messages.h"
#include "core/numbers.h"
#include "core/paths.h"
#include "core/text.h"
#include "platform/platform.h"
#include "report/remark_groups.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <iterator>
#include <vector>

#include <fmt/format.h>

namespace XPJ {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

std::string_view FieldText(const TranslationIssue& issue, IssueField field)
{
    switch (field) {
    case IssueField::Sequence:
        return issue.sequence;
    case IssueField::Clip:
        return issue.clip;
    case IssueField::Subject:
        return issue.subject;
    case IssueField::Time:
        return issue.time;
    case IssueField::None:
        break;
    }
    return {};
}

std::string MessageText(const TranslationIssue& issue, const IssueKind& kind)
{
    if (kind.first == IssueField::None)
        return GetMessage(kind.message);
    if (kind.second == IssueField::None)
        return GetMessage(kind.message, {FieldText(issue, kind.first)});
    return GetMessage(kind.message, {FieldText(issue, kind.first), FieldText(issue, kind.second)});
}

// "video track 1"; what concerns a sequence but none of its tracks is its audio.
std::string TrackText(const TranslationIssue& issue)
{
    constexpr int kVideo = 1;
    if (issue.trackKind == kNoTrack)
        return GetMessage(Message::kAudio);
    const Message track = issue.trackKind == kVideo ? Message::kVideoTrack : Message::kAudioTrack;
    return GetMessage(track, {IntToString(std::int64_t{issue.trackIndex} + 1)});
}

// An effect of a media file is in no sequence, whatever its kind.
bool HasLocation(const TranslationIssue& issue)
{
    return issue.trackKind != kNoTrack || !issue.sequence.empty();
}

// Sequence <Cut 1> at 01:00:00:00, video track 1:
std::string LocationText(const TranslationIssue& issue)
{
    return GetMessage(Message::kSequence, {issue.sequence, issue.time, TrackText(issue)});
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

std::string IssueReportText(const IssueSet& issues, Direction direction)
{
    const std::string heading = GetMessage(Message::kTranslationIssue);
    std::string text;
    for (const TranslationIssue& issue : issues) {
        const IssueKind* const kind = FindIssueKind(direction, issue.kind);
        if (!kind)
            continue;
        text.append(heading).append(kLineEnd);
        if (kind->line != IssueLine::Plain)
            text += '\t';
        if (kind->line == IssueLine::Located && HasLocation(issue))
            text.append(LocationText(issue)) += ' ';
        text.append(MessageText(issue, *kind)).append(kLineEnd);
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

std::string RemarkReportText(const Account& account)
{
    RemarkList others;
    std::ranges::copy_if(account.remarks, std::back_inserter(others),
                         [](const Remark& remark) { return !remark.isIssue; });
    const std::vector<RemarkGroup> groups = GroupRemarks(others);
    std::string text;
    for (const char c : GroupText(groups, groups.size()))
        text += c == '\n' ? std::string(kLineEnd) : std::string(1, c);
    return text;
}

std::string WriteReport(std::string_view folder, const std::string& text)
{
    std::string base(folder);
    base.append(GetMessage(Message::kTranslationResults)).append(" ").append(LocalTimeText());
    CoreFile file;
    std::string path = MakeUniqueFileName(base, "txt", file);
    if (path.empty())
        return {};

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
    root.AddChild("Item", item);
}

} // namespace XPJ
