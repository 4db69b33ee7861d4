#include "report/remark_groups.h"

#include "core/messages.h"
#include "core/text.h"
#include "platform/platform.h"

#include <algorithm>
#include <string_view>
#include <tuple>
#include <unordered_map>

#include <fmt/compile.h>
#include <fmt/format.h>

namespace XPJ {

namespace {

constexpr std::size_t kFirstPlaces = 3;
constexpr int kVideo = 1;

std::string Localized(const std::string& key)
{
    return ToUTF8(GetPlatform().Localize(key));
}

std::string Capitalized(std::string_view text)
{
    std::string result(text);
    result.front() = static_cast<char>(result.front() - 'a' + 'A');
    return result;
}

// "a, b" of those that are not empty.
void AppendPart(std::string& text, std::string_view separator, std::string_view part)
{
    if (!part.empty())
        text.append(text.empty() ? "" : separator).append(part);
}

bool HasDetail(const RemarkRow& row)
{
    return row.reason.find("$2") != std::string_view::npos;
}

// True for remarks of one kind and path whose reasons are equal.
bool AreOfOneGroup(const Remark& a, const Remark& b)
{
    return a.kind == b.kind && a.subject == b.subject && a.path == b.path &&
           (a.detail == b.detail || !HasDetail(RowOf(a.kind)));
}

// Equal for those.
std::string KeyOf(const Remark& remark)
{
    const RemarkRow& row = RowOf(remark.kind);
    std::string key(row.id);
    for (const std::string_view part :
         {std::string_view(remark.subject),
          HasDetail(row) ? std::string_view(remark.detail) : std::string_view(),
          std::string_view(remark.path)})
        key.append("\n").append(part);
    return key;
}

bool IsWorse(const RemarkGroup& a, const RemarkGroup& b)
{
    const auto key = [](const RemarkGroup& group) {
        return std::tuple(-static_cast<int>(group.row->severity), group.row->outcome,
                          -static_cast<std::int64_t>(group.count), group.row->kind);
    };
    return key(a) < key(b);
}

std::string FirstPlaces(const RemarkGroup& group)
{
    std::string text;
    std::size_t shown = 0;
    for (const Remark* const remark : group.remarks) {
        const std::string place = PlaceText(*remark);
        if (shown == kFirstPlaces)
            break;
        if (!place.empty())
            text.append(text.empty() ? "" : "; ").append(place);
        ++shown;
    }
    if (group.remarks.size() > shown)
        text += fmt::format("; and {} more", group.remarks.size() - shown);
    return text;
}

void AppendLine(std::string& text, const std::string& line)
{
    if (!line.empty())
        text.append("    ").append(line) += '\n';
}

} // namespace

std::string RemarkTexts::Reason(const Remark& remark)
{
    return FormatMessage(Of(remark.kind).reason,
                         {UnescapeXML(remark.subject), UnescapeXML(remark.detail)});
}

const RemarkTexts::KindTexts& RemarkTexts::Of(RemarkKind kind)
{
    kinds_.resize(RemarkRows().size());
    KindTexts& texts = kinds_[static_cast<std::size_t>(kind)];
    if (!texts.isKnown)
        texts = {Localized(ReasonKey(RowOf(kind))), Localized(RemedyKey(RowOf(kind))), true};
    return texts;
}

std::string ReasonText(const Remark& remark)
{
    return RemarkTexts().Reason(remark);
}

std::string TrackText(const Remark& remark)
{
    if (remark.trackKind == kNoTrack || remark.sequence.empty())
        return {};
    return fmt::format(FMT_COMPILE("{}{}"), remark.trackKind == kVideo ? 'V' : 'A',
                       remark.trackIndex + 1);
}

std::string PlaceText(const Remark& remark)
{
    std::string place;
    if (remark.sequence.empty()) {
        AppendPart(place, "/", UnescapeXML(remark.bin));
        AppendPart(place, "/", UnescapeXML(remark.clip));
        return place.empty() ? remark.path : place;
    }
    AppendPart(place, ", ", UnescapeXML(remark.sequence));
    AppendPart(place, ", ", TrackText(remark));
    if (remark.span.IsKnown())
        AppendPart(place, ", ", remark.span.Timecode(remark.span.start));
    AppendPart(place, ", ", UnescapeXML(remark.clip));
    return place;
}

std::vector<RemarkGroup> GroupRemarks(const std::vector<Remark>& remarks)
{
    std::vector<RemarkGroup> groups;
    std::unordered_map<std::string, std::size_t> indices;
    RemarkTexts texts;
    std::size_t last = 0;
    for (const Remark& remark : remarks) {
        // Many follow one of their group.
        if (groups.empty() || !AreOfOneGroup(remark, *groups[last].remarks.back())) {
            const auto [entry, isNew] = indices.try_emplace(KeyOf(remark), groups.size());
            last = entry->second;
            if (isNew)
                groups.push_back(
                    {&RowOf(remark.kind), texts.Reason(remark), texts.Remedy(remark), {}, 0});
        }
        groups[last].remarks.push_back(&remark);
        groups[last].count += remark.count;
    }
    std::ranges::stable_sort(groups, IsWorse);
    return groups;
}

std::string GroupText(const std::vector<RemarkGroup>& all, std::size_t groups)
{
    std::string text;
    for (const RemarkGroup& group : std::span(all).first(std::min(groups, all.size()))) {
        text += fmt::format("{}, {}: {}\n", Capitalized(OutcomeText(group.row->outcome)),
                            group.count == 1 ? "once" : fmt::format("{} times", group.count),
                            group.reason);
        AppendLine(text, FirstPlaces(group));
        AppendLine(text, group.remedy);
    }
    if (all.size() > groups)
        text += fmt::format("... and {} more\n", all.size() - groups);
    return text;
}

} // namespace XPJ
