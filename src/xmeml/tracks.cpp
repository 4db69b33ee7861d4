#include "xmeml/tracks.h"

namespace XPJ {

bool IsTrackItem(ConstHandle child)
{
    const Name name = child.GetName();
    return name == "clipitem" || name == "generatoritem" || name == "transitionitem";
}

std::string_view ExplodedTypeOf(ConstHandle track)
{
    const std::string_view type = track.GetProperty("velaTrackType");
    const bool isAlone = IntProperty(track, "totalExplodedTrackCount") == 1;
    return type == "Mono" && isAlone ? std::string_view() : type;
}

bool IsContinuationTrack(ConstHandle track)
{
    const bool isFirst = track.GetProperty("currentExplodedTrackIndex") == "0";
    return !ExplodedTypeOf(track).empty() && !isFirst;
}

std::vector<AudioTrackRange> AudioTracksOf(ConstHandle audio)
{
    std::vector<AudioTrackRange> ranges;
    int number = 0;
    for (const ConstHandle& track : audio.GetChildren("track")) {
        ++number;
        if (!IsContinuationTrack(track))
            ranges.push_back({track, number, number});
        else if (!ranges.empty())
            ranges.back().lastNumber = number;
    }
    return ranges;
}

} // namespace XPJ
