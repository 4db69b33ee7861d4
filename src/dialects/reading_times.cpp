#include "dialects/reading_times.h"

#include "core/frame_rate.h"
#include "core/numbers.h"
#include "core/text.h"
#include "xmeml/item_times.h"
#include "xmeml/parameter_values.h"
#include "xmeml/rates.h"
#include "xmeml/speed.h"

#include <cstdlib>
#include <optional>
#include <vector>

namespace XPJ {

namespace {

void CountTimecode(ObjectHandle owner)
{
    const ObjectHandle timecode = owner.GetChild("timecode");
    if (!timecode || Int64Property(timecode, "frame") != 0)
        return;
    const ConstHandle own = timecode.GetChild("rate");
    const ConstHandle rate = own ? own : owner.GetChild("rate");
    const std::int64_t base = Int64Property(rate, "timebase");
    const bool canDrop = IsTrue(rate, "ntsc") && (base == 30 || base == 60);
    const std::optional<std::int64_t> frame =
        ParseTimecode(timecode.GetProperty("string"), base, canDrop && !IsNonDrop(timecode));
    if (frame)
        timecode.SetProperty("frame", IntToString(*frame));
}

// ---- Rates

// An item as its times state it, without an effect on its speed.
bool HasPlainTimes(const ItemTimes& times, ConstHandle item)
{
    return times.start >= 0 && times.end > times.start && times.in >= 0 && times.out > times.in &&
           SpeedOfItem(item).speed == 1.0;
}

bool CountsInFileRate(const ClipItem& item, Ticks sequenceTicks, Ticks fileTicks)
{
    const Ticks own = TicksOfRate(item.GetChild("rate"));
    if (fileTicks <= 0 || sequenceTicks <= 0 || fileTicks == sequenceTicks ||
        (own != 0 && own != sequenceTicks))
        return false;
    const StatedTimes& stated = item.times;
    const ItemTimes times{stated.start.value, stated.end.value, stated.in.value, stated.out.value};
    if (!HasPlainTimes(times, item))
        return false;
    const ItemRates rates{.sequence = sequenceTicks, .item = fileTicks};
    const Frames cut = times.end - times.start;
    const Frames source = times.out - times.in;
    const Frames inFile = rates.ToItem(cut);
    // Both ends may be rounded.
    return std::abs(source - inFile) <= 1 && std::abs(source - inFile) < std::abs(source - cut);
}

} // namespace

void CountInFileRate(DialectPass& pass)
{
    struct Rate {
        ObjectHandle node;
        Ticks ticks = 0;
    };
    const FileUseTable& files = pass.Files();
    std::vector<Rate> rates;
    for (const FileUses& uses : files.files) {
        const ObjectHandle rate = uses.Child("rate");
        rates.push_back({rate, TicksOfRate(rate)});
    }
    const std::vector<ItemPart>& items = pass.Parts().items;
    ConstHandle sequence;
    Ticks sequenceTicks = 0;
    for (std::size_t i = 0; i < items.size(); ++i) {
        const ItemPart& part = items[i];
        if (!part.file || !part.isInSequence)
            continue;
        if (sequence != part.owner) { // items come sequence by sequence
            sequence = part.owner;
            sequenceTicks = TicksOfRate(sequence.GetChild("rate"));
        }
        const Rate& rate = rates[files.ofItems[i]];
        if (rate.ticks == 0 || rate.ticks == sequenceTicks ||
            !CountsInFileRate(ClipItem(part.item), sequenceTicks, rate.ticks))
            continue;
        SetRate(part.item, rate.node);
        pass.Assume(part.item.GetProperty("name"));
    }
}

void CountTimecodes(DialectPass& pass)
{
    for (const ObjectHandle& file : pass.Parts().files)
        CountTimecode(file);
    for (const ObjectHandle& sequence : pass.Parts().sequences)
        CountTimecode(sequence);
}

void ReadSpeedGraphs(DialectPass& /*pass*/, const EffectPart& part)
{
    if (part.effect.GetProperty("effectid") != "timeremap")
        return;
    ObjectHandle graph;
    bool isVariable = false;
    for (const ObjectHandle& parameter : part.effect.GetChildren("parameter")) {
        const std::string_view id = parameter.GetProperty("parameterid");
        if (id == "graphdict")
            graph = parameter;
        else if (id == "variablespeed")
            isVariable = ParseInt(PlainValue(parameter)) > 0 || IsTrue(parameter, "value");
    }
    bool hasOwnPoint = false;
    for (const ConstHandle keyframe : graph.GetChildren("keyframe"))
        hasOwnPoint =
            hasOwnPoint || !(IsTrue(keyframe, "speedvirtualkf") || IsTrue(keyframe, "speedkfin") ||
                             IsTrue(keyframe, "speedkfout"));
    if (!isVariable || !hasOwnPoint)
        return;
    for (const ObjectHandle& keyframe : graph.GetChildren("keyframe"))
        if (IsTrue(keyframe, "speedkfout")) {
            keyframe.RemoveProperty("speedkfout");
            keyframe.SetPropertyShared("speedvirtualkf", "TRUE");
        }
}

} // namespace XPJ
