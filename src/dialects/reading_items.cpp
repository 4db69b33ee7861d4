#include "dialects/reading_items.h"

#include "core/numbers.h"
#include "core/text_hash.h"
#include "xmeml/cut_points.h"
#include "xmeml/flags.h"
#include "xmeml/speed.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace XPJ {

namespace {

// ---- Items in parts

constexpr Name kItemLeaves[] = {"name", "masterclipid", "duration", "start", "end", "in", "out"};

// The reader numbers ids that are stated again: "a", "a_1".
std::string_view StatedId(std::string_view id)
{
    const std::size_t number = id.find_last_not_of("0123456789");
    const bool isNumbered = number != id.npos && number + 1 < id.size() && id[number] == '_';
    return isNumbered ? id.substr(0, number) : id;
}

// The reader leaves the id of an item without children as it is. The items of a browser clip often
// have no times.
bool RepeatsId(const ItemPart& part)
{
    return part.kind == ItemKind::Clip && !part.statesTimes &&
           (!part.hasChildren || (part.isInSequence && StatedId(part.id) != part.id));
}

// ---- Held frames

ObjectHandle SpeedFilter(ObjectHandle item)
{
    for (const ObjectHandle& filter : item.GetChildren("filter"))
        if (filter.GetChild("effect").GetProperty("effectid") == "timeremap" && IsEnabled(filter))
            return filter;
    return {};
}

// The item shows frame `position` of its file, in its own frames.
void Hold(DialectPass& pass, ObjectHandle item, std::string_view position)
{
    const ObjectHandle file = item.GetChild("file");
    const ObjectHandle rate = item.GetChild("rate");
    ObjectHandle still = item;
    for (const Name name :
         {Name("sequence"), Name("media"), Name("video"), Name("track"), Name("clipitem")})
        still = AddNew(pass.Nodes(), still, name);
    still.SetProperty("stillframeoffset", position);
    still.AddChild(file);
    still.AddChild(rate);
    item.RemoveChild(file);
    item.RemoveProperty("stillframeoffset");
    if (ParseInt64(position) > 0) // of moving video
        item.RemoveProperty("stillframe");
}

// ---- Transitions

struct PlainTransition {
    std::string_view name;
    std::string_view effectId;
    std::string_view mediaType;
};
constexpr PlainTransition kDissolve{"Cross Dissolve", "Cross Dissolve", "video"};
constexpr PlainTransition kFade{"Cross Fade (+3dB)", "KGAudioTransCrossFade3dB", "audio"};

void AddPlainEffect(DialectPass& pass, const PlainTransition& plain, ObjectHandle transition)
{
    const ObjectHandle effect = AddNew(pass.Nodes(), transition, "effect");
    effect.SetPropertyShared("name", plain.name);
    effect.SetPropertyShared("effectid", plain.effectId);
    effect.SetPropertyShared("effecttype", "transition");
    effect.SetPropertyShared("mediatype", plain.mediaType);
}

} // namespace

void CompleteRepeatedItems(DialectPass& pass)
{
    const auto& items = pass.Parts().items;
    if (std::ranges::none_of(items, RepeatsId))
        return;
    bool hasChanged = false;
    TextMap<ObjectHandle> first;
    for (const ItemPart& part : items) {
        const std::string_view id = part.id;
        if (id.empty() || part.kind != ItemKind::Clip)
            continue;
        first.try_emplace(id, part.item);
        if (!RepeatsId(part))
            continue;
        const auto earlier = first.find(StatedId(id));
        if (earlier == first.end() || earlier->second == part.item)
            continue;
        const ObjectHandle whole = earlier->second;
        bool isCompleted = false;
        for (const Name leaf : kItemLeaves)
            if (!HasValue(part.item, leaf) && HasValue(whole, leaf)) {
                CopyProperty(whole, leaf, part.item, leaf);
                isCompleted = true;
            }
        if (!part.item.HasChild("rate"))
            part.item.AddChild(whole.GetChild("rate"));
        if (isCompleted)
            pass.Assume(whole.GetProperty("name"));
        hasChanged = hasChanged || isCompleted;
    }
    if (hasChanged)
        pass.PartsChanged();
}

void HoldFrames(DialectPass& pass)
{
    const NodeSet stills = StillSequences(pass.Parts());
    bool hasChanged = false;
    for (const ItemPart& part : pass.Parts().items) {
        const bool isOnTrack = part.kind == ItemKind::Clip && part.type == MediaType::Video &&
                               part.file && !part.hasSequence && part.isInSequence;
        const bool isWholeSequence = part.isStill && stills.Contains(part.owner);
        if (!isOnTrack || isWholeSequence || !(part.isStill || part.hasFilters))
            continue;
        const ObjectHandle item = part.item;
        const bool isStopped = SpeedOfItem(item).isStopped;
        if (!part.isStill && !isStopped)
            continue;
        hasChanged = true;
        Hold(pass, item, item.GetProperty(part.isStill ? Name("stillframeoffset") : Name("in")));
        if (isStopped)
            item.RemoveChild(SpeedFilter(item));
    }
    if (hasChanged)
        pass.PartsChanged();
}

void CompleteTransitions(DialectPass& pass)
{
    for (const ItemPart& part : pass.Parts().items) {
        if (part.kind != ItemKind::Transition)
            continue;
        const ObjectHandle item = part.item;
        const bool lacksEffect = !item.HasChild("effect");
        const bool isUnknown =
            HasValue(item, "alignment") && !FindAlignment(item.GetProperty("alignment"));
        if (lacksEffect)
            AddPlainEffect(pass, part.type == MediaType::Video ? kDissolve : kFade, item);
        if (isUnknown)
            item.SetPropertyShared("alignment", "center");
        if (lacksEffect || isUnknown)
            pass.Assume(part.owner.GetProperty("name"));
    }
}

} // namespace XPJ
