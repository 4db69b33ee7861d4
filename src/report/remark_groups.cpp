#include "report/remark_groups.h"

#include "core/messages.h"
#include "core/text.h"
#include "core/text_hash.h"
#include "platform/platform.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <string_view>
#include <tuple>
#include <unordered_map>

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

// Appends the parts of a place, without entities, with a separator between those that aren't empty.
class PlaceParts {
public:
    PlaceParts(std::string_view separator, std::string& text)
        : separator_(separator), text_(text), start_(text.size())
    {
    }

    void Append(std::string_view part)
    {
        if (part.empty())
            return;
        if (!IsEmpty())
            text_.append(separator_);
        AppendUnescapedXML(part, text_);
    }

    bool IsEmpty() const { return text_.size() == start_; }

private:
    std::string_view separator_;
    std::string& text_;
    std::size_t start_;
};

// Equal for remarks of one kind and path whose reasons are equal. Lives as long as the remark.
struct GroupKey {
    RemarkKind kind;
    std::string_view subject;
    std::string_view detail;
    std::string_view path;

    explicit GroupKey(const Remark& remark)
        : kind(remark.kind), subject(remark.subject), path(remark.path)
    {
        if (RowOf(kind).reason.find("$2") != std::string_view::npos)
            detail = remark.detail;
    }
    bool operator==(const GroupKey&) const = default;
};

struct GroupKeyHash {
    std::size_t operator()(const GroupKey& key) const
    {
        std::size_t hash = static_cast<std::size_t>(key.kind);
        for (const std::string_view part : {key.subject, key.detail, key.path})
            hash = hash * 31 + TextHash()(part);
        return hash;
    }
};

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
        if (shown == kFirstPlaces)
            break;
        if (const std::string place = PlaceText(*remark); !place.empty())
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
    return fmt::format("{}{}", remark.trackKind == kVideo ? 'V' : 'A', remark.trackIndex + 1);
}

std::string PlaceText(const Remark& remark)
{
    std::string text;
    AppendPlaceText(remark, text);
    return text;
}

void AppendPlaceText(const Remark& remark, std::string& text)
{
    if (remark.sequence.empty()) {
        PlaceParts parts("/", text);
        parts.Append(remark.bin);
        parts.Append(remark.clip);
        if (parts.IsEmpty())
            text.append(remark.path);
        return;
    }
    PlaceParts parts(", ", text);
    parts.Append(remark.sequence);
    parts.Append(TrackText(remark));
    if (remark.span.IsKnown())
        parts.Append(remark.span.Timecode(remark.span.start));
    parts.Append(remark.clip);
}

std::vector<RemarkGroup> GroupRemarks(const RemarkList& remarks)
{
    std::vector<RemarkGroup> groups;
    std::unordered_map<GroupKey, std::size_t, GroupKeyHash> indices;
    RemarkTexts texts;
    std::optional<GroupKey> before; // neighbours are mostly of one group
    std::size_t index = 0;
    for (const Remark& remark : remarks) {
        if (const GroupKey key(remark); before != key) {
            const auto [entry, isNew] = indices.try_emplace(key, groups.size());
            if (isNew)
                groups.push_back(
                    {&RowOf(remark.kind), texts.Reason(remark), texts.Remedy(remark), {}, 0});
            index = entry->second;
            before = key;
        }
        groups[index].remarks.push_back(&remark);
        groups[index].count += remark.count;
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
