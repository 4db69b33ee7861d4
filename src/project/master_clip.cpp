#include "project/master_clip.h"

namespace XPJ {

template <class Handle>
Handle BasicMasterClip<Handle>::FirstClip(MediaType type) const
{
    const Name className = type == MediaType::Video ? Name("VideoClip") : Name("AudioClip");
    for (const Handle clip : Clips())
        if (clip.GetName() == className)
            return clip;
    return {};
}

template <class Handle>
Handle BasicMasterClip<Handle>::MainClip() const
{
    const Handle video = VideoClip();
    return video ? video : AudioClip();
}

template <class Handle>
Handle BasicMasterClip<Handle>::Sequence() const
{
    for (const Handle clip : Clips())
        if (const Handle sequence = FindPath(clip, {"Source", "Sequence"}))
            return sequence;
    return {};
}

template class BasicMasterClip<ConstHandle>;
template class BasicMasterClip<ObjectHandle>;

std::vector<MasterChannel> ChannelsOf(MasterClipHandle master)
{
    std::vector<MasterChannel> channels;
    for (const ObjectHandle clip : master.Clips())
        if (clip.GetName() == "AudioClip")
            for (const ObjectHandle channel : clip.GetChildren("SecondaryContentItem"))
                channels.push_back({clip, channel});
    return channels;
}

} // namespace XPJ
