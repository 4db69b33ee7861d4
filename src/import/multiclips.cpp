#include "import/multiclips.h"

#include "core/text.h"
#include "xmeml/formats.h"
#include "import/master_builder.h"
#include "import/multiclip_sequence.h"
#include "import/project_items.h"

#include <algorithm>
#include <string>

namespace XPJ {

namespace {

// What equal multiclips have in common: their `masterclipid` and those of their angles, in order.
// Empty where one of them is missing, since then none can be told to be equal.
std::string EqualityKeyOf(ObjectHandle multiclip)
{
    std::string key;
    const auto append = [&key](std::string_view id) {
        key.append(id).push_back('\0');
        return !id.empty();
    };
    if (!append(multiclip.GetProperty("masterclipid")))
        return {};
    for (const ObjectHandle& angle : multiclip.GetChildren("angle"))
        if (!append(angle.GetChild("clip").GetProperty("masterclipid")))
            return {};
    return key;
}

// Length of the longest angle in frames, and the most sound tracks of one.
struct AngleExtent {
    std::int64_t duration = 0;
    int channels = 1;
};

AngleExtent ExtentOf(ObjectHandle multiclip)
{
    AngleExtent extent;
    for (const ObjectHandle& angle : multiclip.GetChildren("angle")) {
        const ObjectHandle clip = angle.GetChild("clip");
        extent.duration = std::max(extent.duration, Int64Property(clip, "duration"));
        extent.channels = std::max(extent.channels, AudioTracksOfAngle(clip));
    }
    return extent;
}

ObjectHandle MakeMulticlipMaster(ImportState& state, ObjectHandle multiclip)
{
    Document& document = state.document;
    const SequenceRates rates = RatesOfMulticlip(multiclip);
    const AngleExtent extent = ExtentOf(multiclip);
    const Ticks duration = MultiplyTicks(extent.duration, rates.video);
    const ObjectHandle sequence = document.NewObject("Sequence");
    sequence.SetPropertyShared("Name", multiclip.GetProperty("name"));
    state.sequenceElements.emplace(sequence.UniqueId(), multiclip);

    FileSources sources;
    sources.video.push_back(
        MakeSequenceSource(document, MediaType::Video, sequence, rates.video, duration, 0));
    sources.audio.push_back(
        MakeSequenceSource(document, MediaType::Audio, sequence, rates.audio, duration, 0));
    return BuildMasterClip(state, multiclip, sources, {kAdaptive, extent.channels},
                           {.wideMulticlip = true});
}

// The first angle that is active for the picture, else for the sound, else the first of all.
AngleNote FindActiveAngle(ObjectHandle multiclip)
{
    for (const Name key : {Name("activevideoangle"), Name("activeaudioangle")}) {
        int number = 1;
        for (const ObjectHandle& angle : multiclip.GetChildren("angle")) {
            if (IsTrue(angle, key))
                return {number, angle.GetChild("clip")};
            ++number;
        }
    }
    return {1, FindPath(multiclip, {"angle", "clip"})};
}

AngleNote NoteOf(const ImportState& state, ObjectHandle multiclip)
{
    const auto noted = state.activeAngles.find(multiclip.UniqueId());
    return noted != state.activeAngles.end() ? noted->second : FindActiveAngle(multiclip);
}

void AddMulticamProperties(ObjectHandle element, ObjectHandle multiclip, ObjectHandle master)
{
    master.AddPropertyShared("Source.Monitor.Multicam.Enabled", "true");
    master.AddPropertyShared("Source.Monitor.Multicam.SwitchCameraAudio", "true");
    for (const ObjectHandle& node : {multiclip, element})
        if (HasValue(node, "velaCameraNames"))
            master.AddPropertyShared("Source.Monitor.Multicam.CameraNamesOption",
                                     node.GetProperty("velaCameraNames"));
}

} // namespace

ObjectHandle FindMulticlip(ObjectHandle element)
{
    if (const ObjectHandle own = element.GetChild("multiclip"))
        return own;
    const ObjectHandle media = element.GetChild("media");
    if (const ObjectHandle picture = FindPath(media, {"video", "track", "clipitem", "multiclip"}))
        return picture;
    return FindPath(media, {"audio", "track", "clipitem", "multiclip"});
}

int ActiveAngle(const ImportState& state, ObjectHandle multiclip)
{
    return NoteOf(state, multiclip).number;
}

ObjectHandle ActiveClip(const ImportState& state, ObjectHandle multiclip)
{
    return NoteOf(state, multiclip).clip;
}

bool IsCollapsed(ObjectHandle multiclip)
{
    return !EqualsIgnoreCase(multiclip.GetProperty("collapsed"), "FALSE");
}

void CollectMulticlip(ImportState& state, ObjectHandle multiclip)
{
    state.activeAngles.emplace(multiclip.UniqueId(), FindActiveAngle(multiclip));
    const std::string_view id = multiclip.GetProperty("id");
    if (IsCollapsed(multiclip) || id.empty() || state.multiclips.contains(id))
        return;
    const std::string key = EqualityKeyOf(multiclip);
    const auto equal = state.equalMulticlips.find(key);
    if (equal != state.equalMulticlips.end()) {
        state.multiclips.emplace(id, equal->second);
        return;
    }
    const ObjectHandle master = MakeMulticlipMaster(state, multiclip);
    state.multiclips.emplace(id, master);
    if (!key.empty())
        state.equalMulticlips.emplace(key, master);
}

void TranslateMulticlipItem(ImportState& state, ObjectHandle element, ObjectHandle parentItem)
{
    const ObjectHandle multiclip = FindMulticlip(element);
    const auto known = state.multiclips.find(multiclip.GetProperty("id"));
    if (known == state.multiclips.end())
        return;
    const ObjectHandle master = known->second;
    const ObjectHandle sequence = SequenceOf(master);
    if (!FillMulticlipSequence(state, multiclip, sequence, parentItem))
        return;
    master.SetPropertyShared("Name", sequence.GetProperty("Name"));
    AddMulticamProperties(element, multiclip, master);
    AddClipItem(state, element, master, element.GetProperty("masterclipid"), parentItem);
}

} // namespace XPJ
