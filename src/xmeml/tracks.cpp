#include "xmeml/tracks.h"

namespace XPJ {

bool IsTrackItem(ConstHandle child)
{
    const Name name = child.GetName();
    return name == "clipitem" || name == "generatoritem" || name == "transitionitem";
}

bool IsContinuationTrack(ConstHandle track)
{
    return HasValue(track, "velaTrackType") &&
           track.GetProperty("currentExplodedTrackIndex") != "0";
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
