#include "project/master_clip.h"

namespace XPJ {

ObjectHandle BuiltMaster::FirstClip(MediaType type) const
{
    const std::string_view className = type == MediaType::Video ? "VideoClip" : "AudioClip";
    for (const ObjectHandle& clip : GetChildren("Clip"))
        if (clip.GetName() == className)
            return clip;
    return {};
}

std::vector<MasterChannel> BuiltMaster::Channels() const
{
    std::vector<MasterChannel> channels;
    for (const ObjectHandle& clip : GetChildren("Clip"))
        if (clip.GetName() == "AudioClip")
            for (const ObjectHandle& channel : clip.GetChildren("SecondaryContentItem"))
                channels.push_back({clip, channel});
    return channels;
}

} // namespace XPJ
