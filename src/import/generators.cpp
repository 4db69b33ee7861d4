#include "import/generators.h"

#include "core/numbers.h"
#include "effects/title_reader.h"
#include "import/titles.h"
#include "import/master_builder.h"
#include "import/master_clips.h"
#include "xmeml/files.h"
#include "import/project_items.h"
#include "project/synthetic_media.h"
#include "import/title_media.h"
#include "import/tracks.h"
#include "project/synthetic_items.h"

#include <algorithm>
#include <optional>

namespace XPJ {

namespace {

constexpr std::string_view kBlackVideo = "Black Video";
constexpr std::string_view kDefaultRect = "0,0,720,480";
constexpr std::string_view kDefaultAspect = "10,11";
constexpr Ticks kSlugDuration = 3657830400000000; // 4 hours

struct ColorEffect {
    std::string_view effectId;
    std::string_view parameterId; // of the colour; it has to come first
};

constexpr ColorEffect kColorEffects[] = {
    {"Color", "fillcolor"},
    {"FxPlugWrapper:C18E8B62_C24F_4F8D_8597_858675A40BBC", "input_1"},
};

const ColorEffect* ColorEffectOf(ObjectHandle item)
{
    const std::string_view id = item.GetChild("effect").GetProperty("effectid");
    for (const ColorEffect& row : kColorEffects)
        if (row.effectId == id)
            return &row;
    return nullptr;
}

std::uint8_t ChannelOf(ObjectHandle value, Name key)
{
    return static_cast<std::uint8_t>(std::clamp(IntProperty(value, key), 0, 255));
}

std::optional<MatteColor> ReadMatteColor(ObjectHandle item, const ColorEffect& effect)
{
    const ObjectHandle parameter = FindPath(item, {"effect", "parameter"});
    const ObjectHandle value = parameter.GetChild("value");
    if (parameter.GetProperty("parameterid") != effect.parameterId)
        return std::nullopt;
    for (const Name key : {Name("alpha"), Name("red"), Name("green"), Name("blue")})
        if (!HasValue(value, key))
            return std::nullopt;
    return MatteColor{ChannelOf(value, "red"), ChannelOf(value, "green"), ChannelOf(value, "blue"),
                      ChannelOf(value, "alpha")};
}

Ticks FrameTicksOf(ObjectHandle item)
{
    const Ticks ticks = TicksOfRate(item.GetChild("rate"));
    return ticks != 0 ? ticks : kNtscFrameTicks;
}

ObjectHandle RegisterGenerator(ImportState& state, ObjectHandle item, const FileSources& sources)
{
    const std::string_view masterClipId = item.GetProperty("masterclipid");
    const std::string_view id = item.GetProperty("id");
    const ObjectHandle built = BuildMasterClip(state, item, sources, {});
    RegisterMaster(state, masterClipId, id, 0, true, false, built);
    const ObjectHandle master = state.masterClips.Find(masterClipId, id, 0, MediaType::Video);
    if (master)
        state.translatedGenerators.emplace(item.UniqueId(), master);
    return master;
}

const FrameFormat& FrameOfGenerators(ImportState& state, ObjectHandle owner)
{
    const auto [entry, isNew] = state.generatorFrames.try_emplace(owner.UniqueId());
    if (isNew)
        entry->second = FrameOfOwner(owner);
    return entry->second;
}

// What a generator becomes. Shapes have no legacy form.
enum class GeneratorRoute { ColorMatte, LegacyTitle, Graphic, Unknown };

GeneratorRoute RouteOf(const ImportState& state, ObjectHandle item)
{
    if (IsColorGenerator(item))
        return GeneratorRoute::ColorMatte;
    if (IsGraphicTitle(state, item))
        return GeneratorRoute::Graphic;
    return IsTextTitle(item) ? GeneratorRoute::LegacyTitle : GeneratorRoute::Unknown;
}

GeneratorResult TranslateColorMatte(ImportState& state, ObjectHandle item, ObjectHandle owner)
{
    const std::optional<MatteColor> color = ReadMatteColor(item, *ColorEffectOf(item));
    if (!color)
        return {};
    const FileSources sources = MakeSyntheticSources(
        state, SyntheticKind::ColorMatte, FrameTicksOf(item), FrameOfGenerators(state, owner));
    SetMatteColor(*color, sources.VideoMedia());
    return {RegisterGenerator(state, item, sources), true};
}

GeneratorResult TranslateLegacyTitle(ImportState& state, ObjectHandle item, ObjectHandle owner)
{
    const FrameFormat& frame = FrameOfGenerators(state, owner);
    const Title title = ReadTitle(item, ParseFrameSize(frame.rect, frame.par));
    return {
        RegisterGenerator(state, item, MakeTitleSources(state, title, FrameTicksOf(item), frame)),
        true};
}

// In a bin the master carries the effect, on a track by the setting; only such a master is listed.
GeneratorResult TranslateGraphic(ImportState& state, ObjectHandle item, ObjectHandle owner)
{
    const FrameFormat& frame = FrameOfGenerators(state, owner);
    RegisterTitle(state, item);
    const ObjectHandle master = RegisterGenerator(
        state, item,
        MakeSyntheticSources(state, SyntheticKind::Graphic, FrameTicksOf(item), frame));
    const bool isMasterEffect =
        state.settings.titlesAsMasterEffects || owner.GetName() != "sequence";
    if (master && isMasterEffect)
        AddTitleToMaster(state, item, ParseFrameSize(frame.rect, frame.par), master);
    return {master, true, isMasterEffect};
}

// Transparent video takes the place of what nothing is known of.
GeneratorResult TranslateUnknown(ImportState& state, ObjectHandle item)
{
    const FileSources sources = MakeSyntheticSources(state, SyntheticKind::TransparentVideo, 0, {});
    return {RegisterGenerator(state, item, sources), false};
}

// The black clip and its item, which all slugs of a project share.
ObjectHandle BlackClipFor(ImportState& state, ObjectHandle parentItem)
{
    if (state.blackVideo)
        return state.blackVideo;
    state.blackVideo = MakeBlackMaster(state);
    const ObjectHandle item = MakeClipProjectItem(state, {}, state.blackVideo, parentItem);
    item.SetPropertyShared("Name", kBlackVideo);
    return state.blackVideo;
}

ObjectHandle MakeSlugPicture(const ImportState& state, ObjectHandle black, const FrameFormat& frame,
                             Ticks frameTicks)
{
    Document& document = state.document;
    const ObjectHandle source = VideoClipOf(black).GetChild("Source");
    const ObjectHandle clip = MakeVideoClip(document, source, {.inUse = true});
    clip.AddChild("Markers", document.NewObject("Markers"));
    const ObjectHandle track = MakeVideoTrack(document, 0, 1);
    track.AddChild("TrackItem",
                   MakeWholeVideoItem(
                       document,
                       {.name = kBlackVideo, .clip = clip, .master = black, .end = kSlugDuration},
                       frame.rect, frame.par));
    const ObjectHandle group = MakeVideoGroup(document, frameTicks, frame.rect, frame.par);
    group.AddChild("Track", track);
    group.SetPropertyShared("NextTrackID", "2");
    return group;
}

ObjectHandle MakeSlugSound(const ImportState& state)
{
    Document& document = state.document;
    const AudioGroup group = MakeAudioGroup(document, kSampleTicks48k, ChannelCountOf(kStereoType));
    AddAudioTrack(group, MakeAudioTrack(document, 0, 2, {.handoff = state.sn2vlMode}));
    group.group.SetPropertyShared("NextTrackID", "3");
    AddMasterTrack(document, group, 1, kStereoType, kSampleTicks48k);
    return group.group;
}

ObjectHandle MakeSlugSequence(ImportState& state, ObjectHandle black, const FrameFormat& frame,
                              Ticks frameTicks)
{
    Document& document = state.document;
    const ObjectHandle sequence = document.NewObject("Sequence");
    sequence.SetPropertyShared("Name", kBlackVideo);
    AddUid(sequence);
    sequence.SetProperty("ID", IntToString(NewSequenceNumber(state)));
    sequence.AddChild("TrackGroup", MakeSlugPicture(state, black, frame, frameTicks));
    sequence.AddChild("TrackGroup", MakeSlugSound(state));
    sequence.AddChild("Markers", document.NewObject("Markers"));
    sequence.AddChild("DVDMarkers", document.NewObject("DVDMarkers"));
    PresetFromFormat(frameTicks, frame, sequence);
    return sequence;
}

} // namespace

bool IsSlug(ObjectHandle file)
{
    return file.GetProperty("mediaSource") == "Slug";
}

bool IsColorGenerator(ObjectHandle item)
{
    return ColorEffectOf(item) != nullptr;
}

FrameFormat FrameOfOwner(ObjectHandle owner)
{
    FrameFormat frame;
    if (owner.GetName() == "sequence")
        frame = FrameOfSequence(owner);
    for (const ObjectHandle& node :
         {FindPath(owner, {"media", "video", "format"}), FindPath(owner, {"media", "video"})})
        if (frame.rect.empty())
            frame = FrameOfCharacteristics(node.GetChild("samplecharacteristics"));
    if (frame.rect.empty()) {
        frame.rect = kDefaultRect;
        frame.par = kDefaultAspect;
    }
    return frame;
}

GeneratorResult TranslateGenerator(ImportState& state, ObjectHandle item, ObjectHandle owner)
{
    const GeneratorRoute route = RouteOf(state, item);
    const auto known = state.translatedGenerators.find(item.UniqueId());
    if (known != state.translatedGenerators.end())
        return {known->second, route != GeneratorRoute::Unknown,
                route != GeneratorRoute::Graphic || HasTitle(state, known->second)};
    switch (route) {
    case GeneratorRoute::ColorMatte:
        return TranslateColorMatte(state, item, owner);
    case GeneratorRoute::LegacyTitle:
        return TranslateLegacyTitle(state, item, owner);
    case GeneratorRoute::Graphic:
        return TranslateGraphic(state, item, owner);
    case GeneratorRoute::Unknown:
        break;
    }
    return TranslateUnknown(state, item);
}

void TranslateSlugItem(ImportState& state, ObjectHandle item, ObjectHandle file,
                       ObjectHandle parentItem, ObjectHandle fallback)
{
    const std::string_view fileId = file.GetProperty("id");
    if (fileId.empty())
        return;
    const ObjectHandle black = BlackClipFor(state, parentItem);
    const Ticks frameTicks = FrameTicksOf(item);
    const ObjectHandle sequence =
        MakeSlugSequence(state, black, FrameOfFile(item, file, fallback), frameTicks);

    FileSources sources;
    sources.video.push_back(MakeSequenceSource(state.document, MediaType::Video, sequence,
                                               frameTicks, kSlugDuration, 0));
    sources.audio.push_back(MakeSequenceSource(state.document, MediaType::Audio, sequence,
                                               kSampleTicks48k, kSlugDuration, 0));
    AudioKind sound = AudioKindOfFile(file);
    sound.kind = std::max<int>(sound.kind, kMono);
    const ObjectHandle master =
        BuildMasterClip(state, item, sources, SplitStereo(state, sound, false));
    if (RegisterMaster(state, item.GetProperty("masterclipid"), fileId, 0, true, true, master))
        MakeClipProjectItem(state, item, master, parentItem);
}

ObjectHandle MakeBlackMaster(const ImportState& state)
{
    const FileSources sources = MakeSyntheticSources(state, SyntheticKind::BlackVideo, 0, {});
    return BuildMasterClip(state, {}, sources, {}, {.name = kBlackVideo});
}

} // namespace XPJ
