#include "dialects/reading_channels.h"

#include "core/numbers.h"
#include "core/text.h"
#include "xmeml/flags.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace XPJ {

namespace {

bool StatesCount(ConstHandle audio)
{
    return HasValue(audio, "channelcount") || HasValue(audio, "trackcount") ||
           HasValue(audio, "channeldescription");
}

std::int64_t ChannelsOfLayout(std::string_view layout)
{
    constexpr struct {
        std::string_view layout;
        std::int64_t channels;
    } kLayouts[] = {{"mono", 1}, {"stereo", 2}, {"5.1", 6}};
    for (const auto& row : kLayouts)
        if (EqualsIgnoreCase(layout, row.layout))
            return row.channels;
    return 0;
}

void CountChannels(ObjectHandle audio)
{
    if (StatesCount(audio))
        return;
    std::int64_t channels = 0;
    for ([[maybe_unused]] const ConstHandle& channel : audio.GetChildren("audiochannel"))
        ++channels;
    if (channels == 0)
        channels = ChannelsOfLayout(audio.GetProperty("layout"));
    if (channels > 0)
        audio.SetProperty("channelcount", IntToString(channels));
}

bool IsSingle(ConstHandle audio)
{
    return Int64Property(audio, "channelcount") == 1;
}

bool IsStereo(ConstHandle audio)
{
    return audio.GetProperty("layout") == "stereo";
}

bool IsLabelledForPair(ConstHandle audio)
{
    const std::string_view label = audio.GetChild("audiochannel").GetProperty("channellabel");
    return !HasValue(audio, "layout") && (label == "left" || label == "right");
}

void SetLayout(const std::vector<ObjectHandle>& audios, std::string_view layout)
{
    for (const ObjectHandle& audio : audios)
        if (IsSingle(audio))
            audio.SetPropertyShared("layout", layout);
}

void ReadLayouts(const std::vector<ObjectHandle>& audios)
{
    const bool canBePairs = audios.size() % 2 == 0 && std::ranges::all_of(audios, IsSingle);
    if (canBePairs && std::ranges::all_of(audios, IsLabelledForPair))
        SetLayout(audios, "stereo");
    else if (std::ranges::any_of(audios, [](ConstHandle a) { return IsSingle(a) && IsStereo(a); }))
        SetLayout(audios, canBePairs && std::ranges::all_of(audios, IsStereo) ? "stereo" : "mono");
}

// Audio that states nothing of its channels has those that its items name.
void CountChannelsOfItems(ObjectHandle media, std::int64_t channels)
{
    constexpr std::int64_t kMostChannels = 64;
    const ObjectHandle audio = media.GetChild("audio");
    int count = 0;
    for ([[maybe_unused]] const ConstHandle& child : media.GetChildren("audio"))
        ++count;
    if (count == 1 && audio.HasChildren() && !StatesCount(audio) && channels > 1)
        audio.SetProperty("channelcount", IntToString(std::min(channels, kMostChannels)));
}

// ---- Stereo items

bool IsStereoMedia(ConstHandle media)
{
    int count = 0;
    std::int64_t channels = 0;
    for (const ConstHandle& audio : media.GetChildren("audio")) {
        channels = Int64Property(audio, "channelcount");
        ++count;
    }
    return count == 1 && channels == 2;
}

bool IsAudioOfFile(const ItemPart& part)
{
    return part.type == MediaType::Audio && part.kind == ItemKind::Clip && part.file &&
           !part.fileId.empty() && part.isInSequence;
}

// Tracks and items of this system's own documents state their type.
bool StatesType(ConstHandle track)
{
    return HasValue(track, "velaTrackType") || HasFlag(track, "monotrack");
}

// By file: whether it is stereo, and its items show its first channel alone.
std::vector<bool> FilesShownInPart(const std::vector<ItemPart>& items, const FileUseTable& files)
{
    std::vector<bool> result;
    for (const FileUses& uses : files.files)
        result.push_back(IsStereoMedia(uses.Child("media")));
    ConstHandle track;
    bool trackStatesType = false;
    for (std::size_t i = 0; i < items.size(); ++i) {
        const ItemPart& part = items[i];
        if (!IsAudioOfFile(part))
            continue;
        if (track != part.track) { // items come track by track
            track = part.track;
            trackStatesType = StatesType(track);
        }
        if (part.sourceTrack != 1 || part.statesChannelType || trackStatesType)
            result[files.ofItems[i]] = false;
    }
    return result;
}

} // namespace

void ReadChannels(DialectPass& pass)
{
    for (const ObjectHandle& file : pass.Parts().files) {
        const ObjectHandle media = file.GetChild("media");
        std::vector<ObjectHandle> audios;
        for (const ObjectHandle& audio : media.GetChildren("audio")) {
            CountChannels(audio);
            audios.push_back(audio);
        }
        if (!HasFlag(media, "hasDiscreteStreams") && !HasFlag(media, "hasStereoPairs"))
            ReadLayouts(audios);
    }
    for (const FileUses& uses : pass.Files().files)
        for (const ObjectHandle& file : uses.definitions)
            CountChannelsOfItems(file.GetChild("media"), uses.channels);
}

void ShowBothChannels(DialectPass& pass)
{
    const std::vector<ItemPart>& items = pass.Parts().items;
    const FileUseTable& files = pass.Files();
    const std::vector<bool> isShownInPart = FilesShownInPart(items, files);
    for (std::size_t i = 0; i < items.size(); ++i) {
        const ItemPart& part = items[i];
        if (!IsAudioOfFile(part) || !isShownInPart[files.ofItems[i]])
            continue;
        part.item.SetPropertyShared("velaChannelType", "stereo");
        pass.Assume(part.item.GetProperty("name"));
    }
}

} // namespace XPJ
