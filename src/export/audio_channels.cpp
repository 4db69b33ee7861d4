#include "export/audio_channels.h"

#include "core/json.h"
#include "core/numbers.h"
#include "core/text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <set>

#include <nlohmann/json.hpp>

namespace XPJ::RVX {

namespace {

// `channeltype` of documents.
constexpr int kStereoPairs = 6;
constexpr int kAdaptiveLayout = 7;

// No file has more. A damaged project may name the same channels any number of times, and every one
// would become a track whose item links to all the others.
constexpr int kMaxMasterChannels = 64;
constexpr int kMaxChannelsRead = 4096;

struct MasterChannels {
    int count = 0;
    std::set<std::string_view> sourceClips;
};

MasterChannels CountChannels(MasterClip masterClip)
{
    MasterChannels used;
    int read = 0;
    for (const ConstHandle vector : ChannelVectorsOf(masterClip)) {
        for (const ConstHandle channel : ChannelsOfVector(vector)) {
            if (used.count == kMaxMasterChannels || ++read > kMaxChannelsRead)
                return used;
            const std::string_view sourceClip = channel.GetProperty("SourceClipIndex");
            if (IsNoIndex(sourceClip) || IsNoIndex(channel.GetProperty("mSourceChannelIndex")))
                continue;
            ++used.count;
            used.sourceClips.insert(sourceClip);
        }
    }
    return used;
}

int TypeOfFirstVector(MasterClip masterClip)
{
    for (const ConstHandle vector : ChannelVectorsOf(masterClip)) {
        const int type = IntProperty(vector, "ChannelType");
        return type == kAdaptiveType ? kAdaptiveLayout : type;
    }
    return kMonoLayout;
}

bool IsUsed(ConstHandle content)
{
    return !IsNoIndex(content.GetProperty("ChannelIndex"));
}

using Json = nlohmann::json;

// Far above any interface; larger numbers are the project's ways to say that there is none.
constexpr std::int64_t kMaxOutput = 1024;

constexpr std::array<Name, 24> kAssignedChannels = {
    "AssignedChannel0",  "AssignedChannel1",  "AssignedChannel2",  "AssignedChannel3",
    "AssignedChannel4",  "AssignedChannel5",  "AssignedChannel6",  "AssignedChannel7",
    "AssignedChannel8",  "AssignedChannel9",  "AssignedChannel10", "AssignedChannel11",
    "AssignedChannel12", "AssignedChannel13", "AssignedChannel14", "AssignedChannel15",
    "AssignedChannel16", "AssignedChannel17", "AssignedChannel18", "AssignedChannel19",
    "AssignedChannel20", "AssignedChannel21", "AssignedChannel22", "AssignedChannel23",
};

int OutputOr(std::int64_t output, int missing)
{
    return output >= 0 && output < kMaxOutput ? static_cast<int>(output) : missing;
}

// Rows [input,[output,...]], bare or in {"SerializerWrappedObject":rows}.
Json MatrixRows(std::string_view text)
{
    Json json = ParseJson(text);
    if (json.is_discarded())
        json = ParseJson(UnescapeXML(text));
    if (json.is_object())
        json = json.value("SerializerWrappedObject", Json());
    return json.is_array() ? json : Json();
}

bool IsRow(const Json& row)
{
    return row.is_array() && row.size() >= 2 && row[0].is_number_unsigned() && row[1].is_array() &&
           !row[1].empty() && row[1][0].is_number_unsigned();
}

void ReadMatrix(std::string_view text, std::vector<int>& channels)
{
    for (const Json& row : MatrixRows(text)) {
        if (!IsRow(row) || row[0].get<std::uint64_t>() >= channels.size())
            continue;
        const auto output = row[1][0].get<std::uint64_t>();
        channels[row[0].get<std::size_t>()] = OutputOr(
            static_cast<std::int64_t>(std::min<std::uint64_t>(output, kMaxOutput)), kUnassigned);
    }
}

void ReadAssignments(ConstHandle processor, std::vector<int>& channels)
{
    const std::size_t stated =
        static_cast<std::size_t>(std::max(IntProperty(processor, "NumInputChannels"), 0));
    const std::size_t count = std::min({stated, channels.size(), kAssignedChannels.size()});
    for (std::size_t i = 0; i < count; ++i)
        if (HasValue(processor, kAssignedChannels[i]))
            channels[i] = OutputOr(Int64Property(processor, kAssignedChannels[i]), kUnassigned);
}

} // namespace

bool IsNoIndex(std::string_view index)
{
    return ParseInt(index) == -1 || index == "4294967295" || index == "18446744073709551615";
}

// Mono vectors alone don't state whether channels belong together: two for each source clip are its
// left and right, more of a single clip are one adaptive group.
ChannelLayout ChannelLayoutOf(MasterClip masterClip)
{
    const MasterChannels used = CountChannels(masterClip);
    const std::size_t sourceClips = used.sourceClips.size();
    ChannelLayout layout{used.count, TypeOfFirstVector(masterClip)};
    if (layout.type != kMonoLayout || layout.count == 0)
        return layout;
    if (static_cast<std::size_t>(layout.count) == 2 * sourceClips)
        layout.type = kStereoPairs;
    else if (sourceClips == 1 && layout.count > 1)
        layout.type = kAdaptiveLayout;
    return layout;
}

void WriteChannelLayout(const ChannelLayout& layout, ObjectHandle audio)
{
    if (layout.count <= 0)
        return;
    audio.SetProperty("channelcount", IntToString(layout.count));
    audio.SetProperty("channeltype", IntToString(layout.type));
}

int ContentCount(ConstHandle audioClip)
{
    constexpr int kMost = 1024; // far more than a damaged project may mean
    int count = 0;
    for ([[maybe_unused]] const ConstHandle content : SecondaryContentsOf(audioClip))
        if (++count == kMost)
            break;
    return count;
}

ConstHandle ContentOf(ConstHandle audioClip, int channel)
{
    for (const ConstHandle content : SecondaryContentsOf(audioClip))
        if (channel-- == 0)
            return IsUsed(content) ? content : ConstHandle();
    return {};
}

std::uint32_t UsedChannels(TrackItem item)
{
    std::uint32_t used = 0;
    int channel = 0;
    for (const ConstHandle content : SecondaryContentsOf(ClipOfSubClip(SubClipOf(item)))) {
        if (channel == kMaxTrackChannels)
            break;
        if (IsUsed(content))
            used |= 1U << channel;
        ++channel;
    }
    return channel == 0 ? 1U : used;
}

std::vector<int> AssignedChannels(ConstHandle panner, int count)
{
    std::vector<int> channels(static_cast<std::size_t>(count), kUnassigned);
    if (HasValue(panner, "Matrix"))
        ReadMatrix(panner.GetProperty("Matrix"), channels);
    else
        ReadAssignments(panner, channels);
    return channels;
}

bool AssignsManyOutputs(ConstHandle panner)
{
    if (!HasValue(panner, "Matrix"))
        return false;
    const Json rows = MatrixRows(panner.GetProperty("Matrix"));
    return std::ranges::any_of(rows, [](const Json& row) {
        return row.is_array() && row.size() >= 2 && row[1].is_array() && row[1].size() != 1;
    });
}

int OutputChannels::Assigned(int channel, bool movesOn)
{
    int output = channel + 1;
    if (output == running_ && running_ % 2 == 0)
        ++output;
    if (movesOn)
        running_ = output;
    return output;
}

int OutputChannels::Unassigned(int position, bool ofSeveral) const
{
    return position % (ofSeveral ? std::max(outputs_, 1) : 2) + 1;
}

} // namespace XPJ::RVX
