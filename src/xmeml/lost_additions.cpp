#include "xmeml/lost_additions.h"

#include "core/numbers.h"
#include "tree/tree_walk.h"
#include "xmeml/cut_points.h"
#include "xmeml/places.h"
#include "xmeml/rates.h"

#include <string_view>

namespace XPJ {

namespace {

// The cut that the alignment of a `transitionitem` states as well, to the frame.
bool IsCutOfAlignment(ConstHandle transition)
{
    const TransitionAlignment* const alignment = FindAlignment(transition.GetProperty("alignment"));
    const Frames length =
        SubtractTicks(Int64Property(transition, "end"), Int64Property(transition, "start"));
    const Frames cut = DivTicksOr0(Int64Property(transition, "cutPointTicks"),
                                   TicksOfRate(transition.GetChild("rate")));
    if (!alignment)
        return false;
    switch (alignment->cut) {
    case CutPosition::Start:
        return cut == 0;
    case CutPosition::Middle:
        return cut == length / 2;
    case CutPosition::End:
        return cut == length;
    }
    return false;
}

// What a property adds, and where the rest of the element says the same.
struct AddedFact {
    Name element;
    Name property;
    std::string_view what;
    bool (*isImplied)(ConstHandle element) = nullptr;
};

constexpr AddedFact kAddedFacts[] = {
    // clang-format off
    {"track",          "name",                "name of the track"},
    {"clipitem",       "velaSoftStartOffset", "soft limits of the subclip"},
    {"transitionitem", "cutPointTicks",       "cut in the transition", IsCutOfAlignment},
    {"marker",         "velaColor",           "color of the marker"},
    // clang-format on
};

// Those of text, drawings and looks are kept as a project states them.
bool HasAddedKeyframes(ConstHandle effect)
{
    for (const ConstHandle& parameter : effect.GetChildren("parameter"))
        if (HasValue(parameter, "Keyframes"))
            return true;
    return false;
}

class LostAdditions {
public:
    explicit LostAdditions(Account& account) : account_(account) {}

    void Add(TreePath path)
    {
        const ConstHandle element = path.back();
        const Name name = element.GetName();
        for (const AddedFact& fact : kAddedFacts)
            if (fact.element == name && HasValue(element, fact.property) &&
                !(fact.isImplied && fact.isImplied(element)))
                AddRemark(RemarkKind::AdditionLost, path, {.detail = fact.what});
        if (name == "track" || name == "file")
            for (const ConstHandle& filter : element.GetChildren("filter"))
                AddEffect(path, filter.GetChild("effect"));
        if (name == "effect" && HasAddedKeyframes(element))
            AddEffect(path, element);
    }

private:
    void AddEffect(TreePath path, ConstHandle effect)
    {
        AddRemark(RemarkKind::EffectOfAdditions, path, {.name = effect.GetProperty("name")});
    }
    void AddRemark(RemarkKind kind, TreePath path, const RemarkSubject& subject)
    {
        XPJ::AddRemark(account_, kind, PlaceOf(path, account_.texts), subject);
    }

    Account& account_;
};

} // namespace

void AddLostAdditions(ConstHandle xmeml, Account& account)
{
    LostAdditions lost(account);
    WalkTree(xmeml, [&lost](TreePath path) {
        lost.Add(path);
        return true;
    });
}

} // namespace XPJ
