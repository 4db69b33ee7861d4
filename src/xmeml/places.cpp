#include "xmeml/places.h"

#include "core/numbers.h"
#include "xmeml/rates.h"
#include "xmeml/sequences.h"

#include <algorithm>
#include <string>

namespace XPJ {

namespace {

// The names of the bins, "Day 1/Sound".
std::string BinText(TreePath path)
{
    std::string text;
    for (const ConstHandle& node : path)
        if (node.GetName() == "bin")
            text.append(text.empty() ? "" : "/").append(node.GetProperty("name"));
    return text;
}

struct TrackPosition {
    int kind = kNoTrack;
    int index = 0;
};

TrackPosition TrackOf(TreePath path)
{
    const ConstHandle track = Around(path, {"track"});
    const ConstHandle group = Around(path, {"video", "audio"});
    if (!track || !group)
        return {};
    int index = 0;
    for (const ConstHandle& other : group.GetChildren("track")) {
        if (other == track)
            break;
        ++index;
    }
    return {group.GetName() == "video" ? 1 : 2, index};
}

// Edges that only the items beside it state are not known here.
FrameSpan SpanOf(ConstHandle sequence, ConstHandle item)
{
    const SequenceTimecode timecode =
        TimecodeOfSequence(sequence, RatesOfSequence(sequence, false));
    const auto frameOf = [&](Name edge) {
        const Frames value = HasValue(item, edge) ? Int64Property(item, edge) : -1;
        return value < 0 ? -1 : timecode.FrameOf(value);
    };
    return {.start = frameOf("start"),
            .end = frameOf("end"),
            .first = timecode.first,
            .base = timecode.base,
            .drop = timecode.drop,
            .sequence = timecode.node};
}

// What is in the innermost sequence; all of the path without one. Items may hold sequences.
TreePath InSequence(TreePath path)
{
    for (std::size_t i = path.size(); i > 0; --i)
        if (path[i - 1].GetName() == "sequence")
            return path.subspan(i - 1);
    return path;
}

} // namespace

ConstHandle Around(TreePath path, std::initializer_list<Name> names)
{
    for (std::size_t i = path.size(); i > 0; --i)
        if (std::ranges::find(names, path[i - 1].GetName()) != names.end())
            return path[i - 1];
    return {};
}

ItemLocation PlaceOf(TreePath path, TextStore& texts)
{
    ItemLocation place;
    const TreePath inner = InSequence(path);
    const ConstHandle item = Around(inner, {"clipitem", "generatoritem", "transitionitem"});
    const ConstHandle sequence = Around(path, {"sequence"});
    const ConstHandle clip = Around(path, {"clip"});
    place.bin = texts.Keep(BinText(path));
    place.clip = (item ? item : clip ? clip : Around(path, {"file"})).GetProperty("name");
    if (!sequence)
        return place;
    place.sequence = sequence.GetProperty("name");
    const TrackPosition track = TrackOf(inner);
    place.trackKind = track.kind;
    place.trackIndex = track.index;
    place.span = SpanOf(sequence, item);
    return place;
}

} // namespace XPJ
