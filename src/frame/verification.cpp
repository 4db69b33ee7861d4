#include "frame/verification.h"

#include "core/numbers.h"
#include "core/text.h"
#include "inspect/compare.h"
#include "report/remark_groups.h"

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <map>
#include <string_view>
#include <tuple>
#include <vector>

#include <fmt/format.h>

namespace XPJ {

namespace {

using Inspection::Difference;
using Inspection::Property;
using Inspection::Subject;

// What remarks explain whose ids begin so; others explain all that differs where they are.
struct Explanation {
    std::string_view prefix;
    std::initializer_list<Property> properties;
};

const Explanation kExplanations[] = {
    {"effect.", {Property::Effect, Property::EffectName, Property::Parameter}},
    {"keyframe.", {Property::Effect, Property::Parameter}},
    {"pan.", {Property::Effect, Property::Parameter}},
    {"audio.",
     {Property::Effect, Property::Parameter, Property::Speed, Property::In, Property::Out,
      Property::SourceChannel}},
    {"composite-mode.", {Property::CompositeMode}},
    {"label.", {Property::Label}},
    {"look.", {Property::Effect, Property::Parameter}},
    {"link.", {Property::Links}},
};

bool Explains(RemarkKind kind, Property property)
{
    const std::string_view id = RowOf(kind).id;
    for (const Explanation& row : kExplanations)
        if (id.starts_with(row.prefix))
            return std::ranges::find(row.properties, property) != row.properties.end();
    return true;
}

bool IsExtension(RemarkKind kind)
{
    return kind == RemarkKind::StartExtended || kind == RemarkKind::EndExtended;
}

// True for what is only known by its element where the remark has no place.
bool IsOfElement(RemarkKind kind)
{
    return kind == RemarkKind::ElementUnread || kind == RemarkKind::ElementUnknown;
}

// Where something is; a remark may know less than a difference.
struct Place {
    std::string sequence = {};
    std::string track = {};
    std::int64_t frame = -1;

    friend auto operator<=>(const Place&, const Place&) = default;
};

// A marker of an item is where the item is.
Place PlaceOf(const Difference& difference, const ComparedTimelines& documents)
{
    const bool isInFirst = difference.first.item.item != Inspection::kNothing;
    const Inspection::DifferenceLocation& at = isInFirst ? difference.first : difference.second;
    if (difference.subject != Subject::Marker || at.item.item == Inspection::kNothing)
        return {difference.sequence, difference.track, difference.frame};
    const DocumentTimelines& document = isInFirst ? documents.first : documents.second;
    const Inspection::Sequence& sequence = document.project.sequences[at.sequence];
    const Inspection::Track& track = sequence.tracks[at.item.track];
    return {difference.sequence, Inspection::TrackText(track),
            sequence.format.Frames(track.items[at.item.item].start)};
}

// The clip of a bin that differs, or whose marker does. A layer has the name of its image after its
// own, "Layer 1/Poster".
std::string ClipOf(const Difference& difference)
{
    if (difference.subject == Subject::BinClip && difference.change == Inspection::Change::Added)
        return difference.name.substr(difference.name.find('/') + 1);
    if (difference.subject != Subject::Marker || !difference.sequence.empty())
        return difference.name;
    const std::size_t step = difference.bin.rfind(Inspection::kStep);
    return step == std::string::npos ? difference.bin
                                     : difference.bin.substr(step + Inspection::kStep.size());
}

class KnownRemarks {
public:
    KnownRemarks(const Account& account, const ComparedTimelines& documents,
                 const std::vector<Difference>& differences)
        : documents_(documents)
    {
        for (const Difference& difference : differences)
            if (difference.subject == Subject::BinClip && difference.kind == Property::Name)
                renamed_[difference.before].push_back(difference.after);
        for (const Remark& remark : account.remarks) {
            if (remark.sequence.empty() && !remark.clip.empty())
                clips_[UnescapeXML(remark.clip)].push_back(remark.kind);
            else if (!remark.sequence.empty() || !IsOfElement(remark.kind))
                places_[{UnescapeXML(remark.sequence), TrackText(remark), remark.span.start}]
                    .push_back(remark.kind);
            // What happened to a transition for its sake is about the clip beside it.
            if (IsExtension(remark.kind))
                transitions_[{UnescapeXML(remark.sequence), TrackText(remark)}].push_back(
                    remark.kind);
        }
    }

    bool Explain(const Difference& difference) const
    {
        const Place exact = PlaceOf(difference, documents_);
        const Place track{exact.sequence, exact.track};
        return Has(places_, exact, difference) || Has(places_, track, difference) ||
               Has(places_, Place{exact.sequence}, difference) || IsClipExplained(difference) ||
               (difference.subject == Subject::Transition && Has(transitions_, track, difference));
    }

private:
    // A remark may have the name that the clip has in the output.
    bool IsClipExplained(const Difference& difference) const
    {
        const std::string clip = ClipOf(difference);
        const auto renamed = renamed_.find(clip);
        return Has(clips_, clip, difference) ||
               (renamed != renamed_.end() &&
                std::ranges::any_of(renamed->second, [&](const std::string& name) {
                    return Has(clips_, name, difference);
                }));
    }

    template <class Key>
    static bool Has(const std::map<Key, std::vector<RemarkKind>>& known, const Key& key,
                    const Difference& difference)
    {
        const auto found = known.find(key);
        return found != known.end() &&
               std::ranges::any_of(found->second, [&difference](RemarkKind kind) {
                   return Explains(kind, difference.kind);
               });
    }

    const ComparedTimelines& documents_;
    std::map<Place, std::vector<RemarkKind>> places_;
    std::map<std::string, std::vector<RemarkKind>> clips_;    // of remarks about media and bins
    std::map<std::string, std::vector<std::string>> renamed_; // names of clips in the output
    std::map<Place, std::vector<RemarkKind>> transitions_;    // of remarks about clips beside them
};

void AddRemarkOf(const Difference& difference, Account& account)
{
    const bool isOfProperty = difference.kind != Property::None;
    const std::string sequence = EscapeXML(difference.sequence);
    const std::string clip = EscapeXML(difference.name);
    const std::string bin = EscapeXML(difference.bin);
    const std::string subject =
        EscapeXML(isOfProperty ? difference.property : SubjectText(difference.subject));
    const std::string detail = EscapeXML(
        isOfProperty ? fmt::format("\"{}\", was \"{}\"", difference.after, difference.before)
                     : std::string(ChangeText(difference.change)));
    ItemLocation location{.sequence = sequence, .clip = clip, .bin = bin};
    if (!difference.track.empty()) {
        location.trackKind = difference.track.starts_with('V') ? 1 : 2;
        location.trackIndex = ParseInt(std::string_view(difference.track).substr(1)) - 1;
    }
    AddRemark(account, RemarkKind::Unexplained, location, {.name = subject, .detail = detail});
}

bool IsNewMarker(const Difference& difference)
{
    return difference.subject == Subject::Marker && difference.change == Inspection::Change::Added;
}

} // namespace

void AddUnexplained(const ComparedTimelines& documents, bool marksLosses, Account& account)
{
    const auto& [input, output] = documents;
    if (input.result != kSuccess || output.result != kSuccess) {
        AddRemark(account, RemarkKind::Unexplained, {},
                  {.name = "document", .detail = "it can't be read back"});
        return;
    }
    const std::vector<Difference> differences = Compare(input.project, output.project);
    const KnownRemarks known(account, documents, differences);
    for (const Difference& difference : differences)
        if (!known.Explain(difference) && !(marksLosses && IsNewMarker(difference)))
            AddRemarkOf(difference, account);
}

} // namespace XPJ
