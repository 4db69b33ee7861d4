#include "xmeml/multiclips.h"

#include "core/text.h"

#include <algorithm>

namespace XPJ {

ConstHandle FindMulticlip(ConstHandle element)
{
    if (const ConstHandle own = element.GetChild("multiclip"))
        return own;
    const ConstHandle media = element.GetChild("media");
    const ConstHandle video = FindPath(media, {"video", "track"});
    const ConstHandle track = video ? video : FindPath(media, {"audio", "track"});
    for (const ConstHandle& item : track.GetChildren())
        if (item.GetName() == "clipitem" || item.GetName() == "generatoritem")
            return item.GetChild("multiclip");
    return {};
}

bool IsCollapsed(ConstHandle multiclip)
{
    return !EqualsIgnoreCase(multiclip.GetProperty("collapsed"), "FALSE");
}

int AudioTracksOfAngle(ConstHandle clip)
{
    int count = 0;
    for ([[maybe_unused]] const ConstHandle& track :
         FindPath(clip, {"media", "audio"}).GetChildren("track"))
        ++count;
    return count;
}

AngleExtent ExtentOfAngles(ConstHandle multiclip)
{
    AngleExtent extent;
    for (const ConstHandle& angle : multiclip.GetChildren("angle")) {
        const ConstHandle clip = angle.GetChild("clip");
        extent.duration = std::max(extent.duration, Int64Property(clip, "duration"));
        extent.audioTracks = std::max(extent.audioTracks, AudioTracksOfAngle(clip));
    }
    return extent;
}

ActiveAngle FindActiveAngle(ConstHandle multiclip)
{
    for (const Name key : {Name("activevideoangle"), Name("activeaudioangle")}) {
        int number = 1;
        for (const ConstHandle& angle : multiclip.GetChildren("angle")) {
            if (IsTrue(angle, key))
                return {number, angle.GetChild("clip")};
            ++number;
        }
    }
    return {1, FindPath(multiclip, {"angle", "clip"})};
}

void ActiveAngles::Add(ConstHandle multiclip)
{
    angles_.emplace(multiclip.UniqueId(), FindActiveAngle(multiclip));
}

ActiveAngle ActiveAngles::Of(ConstHandle multiclip) const
{
    const auto known = angles_.find(multiclip.UniqueId());
    return known != angles_.end() ? known->second : FindActiveAngle(multiclip);
}

} // namespace XPJ
