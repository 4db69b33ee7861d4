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
     {Property::Effect, Property::Parameter, Property::Speed, Property::In, Property::Out}},
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

// Where something is; a remark may know less than a difference.
struct Place {
    std::string sequence = {};
    std::string track = {};
    std::int64_t frame = -1;

    friend auto operator<=>(const Place&, const Place&) = default;
};

class KnownRemarks {
public:
    explicit KnownRemarks(const Account& account)
    {
        for (const Remark& remark : account.remarks) {
            places_[{UnescapeXML(remark.sequence), TrackText(remark), remark.span.start}].push_back(
                remark.kind);
            if (remark.sequence.empty())
                clips_[UnescapeXML(remark.clip)].push_back(remark.kind);
            // What happened to a transition for its sake is about the clip beside it.
            if (IsExtension(remark.kind))
                transitions_[{UnescapeXML(remark.sequence), TrackText(remark)}].push_back(
                    remark.kind);
        }
    }

    bool Explain(const Difference& difference) const
    {
        const Place exact{difference.sequence, difference.track, difference.frame};
        return Has(places_, exact, difference) ||
               Has(places_, Place{difference.sequence, difference.track}, difference) ||
               Has(places_, Place{difference.sequence}, difference) ||
               Has(clips_, difference.name, difference) ||
               (difference.subject == Subject::Transition &&
                Has(transitions_, Place{difference.sequence, difference.track}, difference));
    }

private:
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

    std::map<Place, std::vector<RemarkKind>> places_;
    std::map<std::string, std::vector<RemarkKind>> clips_; // of remarks about media and bins
    std::map<Place, std::vector<RemarkKind>> transitions_; // of remarks about clips beside them
};

Remark RemarkOf(const Difference& difference)
{
    const bool isOfProperty = difference.kind != Property::None;
    Remark remark{
        .kind = RemarkKind::Unexplained,
        .sequence = EscapeXML(difference.sequence),
        .clip = EscapeXML(difference.name),
        .bin = EscapeXML(difference.bin),
        .subject = EscapeXML(isOfProperty ? difference.property : SubjectText(difference.subject)),
        .detail = EscapeXML(
            isOfProperty ? fmt::format("\"{}\", was \"{}\"", difference.after, difference.before)
                         : std::string(ChangeText(difference.change)))};
    if (!difference.track.empty()) {
        remark.trackKind = difference.track.starts_with('V') ? 1 : 2;
        remark.trackIndex = ParseInt(std::string_view(difference.track).substr(1)) - 1;
    }
    return remark;
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
    const KnownRemarks known(account);
    std::vector<Remark> unexplained;
    for (const Difference& difference : Compare(input.project, output.project))
        if (!known.Explain(difference) && !(marksLosses && IsNewMarker(difference)))
            unexplained.push_back(RemarkOf(difference));
    account.remarks.insert(account.remarks.end(), unexplained.begin(), unexplained.end());
}

} // namespace XPJ
