#include "import/generators.h"

#include "effects/effect_losses.h"
#include "effects/graphic_effects.h"
#include "effects/graphic_title.h"
#include "effects/legacy_title.h"
#include "effects/plain_generators.h"
#include "effects/title_reader.h"
#include "effects/video_chain.h"
#include "import/effects.h"
#include "import/masters.h"
#include "project/media.h"
#include "project/synthetic_media.h"
#include "tree/blob.h"

#include <optional>

namespace XPJ {

namespace {

constexpr std::string_view kTitleImporter = "ad0be7ce-e015-4877-9777-93c98f30dcac";

struct ColorEffect {
    std::string_view effectId;
    std::string_view parameterId; // of the color; it has to come first
};

constexpr ColorEffect kColorEffects[] = {
    {"Color", "fillcolor"},
    {"FxPlugWrapper:C18E8B62_C24F_4F8D_8597_858675A40BBC", "input_1"},
};

const ColorEffect* ColorEffectOf(ConstHandle item)
{
    const std::string_view id = item.GetChild("effect").GetProperty("effectid");
    for (const ColorEffect& row : kColorEffects)
        if (row.effectId == id)
            return &row;
    return nullptr;
}

std::optional<MatteColor> ReadMatteColor(ConstHandle item, const ColorEffect& effect)
{
    const ConstHandle parameter = FindPath(item, {"effect", "parameter"});
    const ConstHandle value = parameter.GetChild("value");
    if (parameter.GetProperty("parameterid") != effect.parameterId)
        return std::nullopt;
    for (const Name key : {Name("alpha"), Name("red"), Name("green"), Name("blue")})
        if (!HasValue(value, key))
            return std::nullopt;
    return MatteColor{.red = IntProperty(value, "red"),
                      .green = IntProperty(value, "green"),
                      .blue = IntProperty(value, "blue"),
                      .alpha = IntProperty(value, "alpha")};
}

Ticks FrameTicksOf(ConstHandle item)
{
    const Ticks ticks = TicksOfRate(item.GetChild("rate"));
    return ticks != 0 ? ticks : kNtscFrameTicks;
}

// What a generator becomes. Shapes have no legacy document.
enum class GeneratorRoute { ColorMatte, Plain, GraphicWithEffects, LegacyTitle, Graphic, Unknown };

// In open interchange the filters of a clip of a bin are those of its generator too.
bool HasGraphicEffectWithin(ConstHandle item, ConstHandle owner)
{
    return HasGraphicEffect(item) || (owner.GetName() == "clip" && HasGraphicEffect(owner));
}

GeneratorRoute RouteOf(const ImportState& state, ConstHandle item, ConstHandle owner)
{
    const TitleCatalog& titles = state.titles;
    if (ColorEffectOf(item))
        return GeneratorRoute::ColorMatte;
    if (state.options.settings.openInterchange) {
        if (HasGraphicEffectWithin(item, owner))
            return GeneratorRoute::GraphicWithEffects;
        if (FindPlainGenerator(item.GetChild("effect").GetProperty("effectid")))
            return GeneratorRoute::Plain;
    }
    if (titles.IsGraphic(item))
        return GeneratorRoute::Graphic;
    return IsTextTitle(item) ? GeneratorRoute::LegacyTitle : GeneratorRoute::Unknown;
}

MasterClipHandle RegisterGenerator(ImportState& state, const ClipItem& item,
                                   const MediaSources& sources)
{
    MasterRegistry& registry = state.masters.registry;
    const std::string_view masterClipId = item.GetProperty("masterclipid");
    const std::string_view id = item.GetProperty("id");
    RegisterMaster(registry, {.masterClipId = masterClipId, .mediaId = id},
                   BuildMasterClip(state, item, {.sources = sources}));
    const MasterClipHandle master = registry.Find({masterClipId, id});
    if (master)
        state.generators.Add(item, master);
    if (master && state.options.settings.openInterchange)
        state.generators.AddEqual(item, master);
    return master;
}

// Registers an item under the master of an equal one, which is in a bin already; null if there is
// none.
MasterClipHandle ShareMaster(ImportState& state, const ClipItem& item)
{
    if (!state.options.settings.openInterchange)
        return {};
    const MasterClipHandle master = state.generators.MasterOfEqual(item);
    if (master) {
        RegisterMaster(
            state.masters.registry,
            {.masterClipId = item.GetProperty("masterclipid"), .mediaId = item.GetProperty("id")},
            master);
        state.generators.Add(item, master);
    }
    return master;
}

GeneratorResult TranslateColorMatte(ImportState& state, const ClipItem& item, ConstHandle owner)
{
    const std::optional<MatteColor> color = ReadMatteColor(item, *ColorEffectOf(item));
    if (!color)
        return {};
    const MediaSources sources = MakeSyntheticSources(
        state.document, MediaKind::ColorMatte, FrameTicksOf(item), state.generators.FrameOf(owner));
    SetMatteColor(*color, sources.VideoMedia());
    return {RegisterGenerator(state, item, sources), true};
}

// A title document that the host's title importer draws.
MediaSources MakeTitleSources(Document& document, const Title& title, Ticks frameTicks,
                              const FrameFormat& frame)
{
    const ObjectHandle media = MakeMedia(document, {.importer = kTitleImporter,
                                                    .path = GeneratedPath(MediaKind::Title),
                                                    .title = title.name,
                                                    .infinite = true});
    SetEncodedBlob(media, "ImporterPrefs", "ImporterPrefsChecksum", LegacyTitleDocument(title));
    media.AddChild("VideoStream",
                   MakeVideoStream(document, {.kind = VideoKind::Generated,
                                              .frameTicks = frameTicks,
                                              .duration = kEndlessDuration,
                                              .frame = frame,
                                              .isStill = title.motion == TitleMotion::Still}));
    MediaSources sources;
    sources.video.push_back(
        MakeMediaSource(document, media, {.rate = frameTicks, .duration = kEndlessDuration}));
    return sources;
}

GeneratorResult TranslateLegacyTitle(ImportState& state, const ClipItem& item, ConstHandle owner)
{
    const FrameFormat& frame = state.generators.FrameOf(owner);
    const Title title = ReadTitle(item, ParseFrameSize(frame.rect, frame.par));
    return {RegisterGenerator(state, item,
                              MakeTitleSources(state.document, title, FrameTicksOf(item), frame)),
            true};
}

// Gives a master the effect of a generator. `frame` is that of the sequence or clip around the
// generator.
void AddTitleToMaster(ImportState& state, ConstHandle generator, const FrameSize& frame,
                      MasterClipHandle master)
{
    if (!state.titles.AddTitledMaster(master))
        return;
    const EffectContext context{.document = state.document, .account = state.account};
    const ObjectHandle effect =
        MakeGraphicEffect(state.document, state.titles.SourceOf(generator), frame);
    AddMasterChainEffect(context, effect, master.GetChild("VideoComponentChain"));
}

// In a bin the master carries the effect, on a track by the setting; only such a master is listed.
GeneratorResult TranslateGraphic(ImportState& state, const ClipItem& item, ConstHandle owner)
{
    const FrameFormat& frame = state.generators.FrameOf(owner);
    state.titles.Add(item);
    const MasterClipHandle master = RegisterGenerator(
        state, item,
        MakeSyntheticSources(state.document, MediaKind::Graphic, FrameTicksOf(item), frame));
    const bool isMasterEffect =
        state.options.settings.titlesAsMasterEffects || owner.GetName() != "sequence";
    if (master && isMasterEffect)
        AddTitleToMaster(state, item, ParseFrameSize(frame.rect, frame.par), master);
    return {master, true, isMasterEffect, true};
}

// Video that the host generates by itself.
GeneratorResult TranslatePlain(ImportState& state, const ClipItem& item, ConstHandle owner)
{
    const PlainGenerator& plain =
        *FindPlainGenerator(item.GetChild("effect").GetProperty("effectid"));
    return {RegisterGenerator(state, item,
                              MakeSyntheticSources(state.document, plain.kind, FrameTicksOf(item),
                                                   state.generators.FrameOf(owner))),
            true, plain.kind != MediaKind::Graphic};
}

// A graphic with its effects among the filters: those of a clip of a bin belong to its master.
GeneratorResult TranslateGraphicWithEffects(ImportState& state, const ClipItem& item,
                                            ConstHandle owner)
{
    const MasterClipHandle master = RegisterGenerator(
        state, item,
        MakeSyntheticSources(state.document, MediaKind::Graphic, FrameTicksOf(item),
                             state.generators.FrameOf(owner)));
    const bool isInBin = owner.GetName() != "sequence";
    if (master && isInBin)
        state.titles.AddTitledMaster(master);
    return {master, true, isInBin};
}

// Transparent video replaces unknown generators.
GeneratorResult TranslateUnknown(ImportState& state, const ClipItem& item)
{
    const MediaSources sources =
        MakeSyntheticSources(state.document, MediaKind::TransparentVideo, 0, {});
    return {RegisterGenerator(state, item, sources), false};
}

GeneratorResult TranslateNew(ImportState& state, const ClipItem& item, ConstHandle owner,
                             GeneratorRoute route)
{
    switch (route) {
    case GeneratorRoute::ColorMatte:
        return TranslateColorMatte(state, item, owner);
    case GeneratorRoute::Plain:
        return TranslatePlain(state, item, owner);
    case GeneratorRoute::GraphicWithEffects:
        return TranslateGraphicWithEffects(state, item, owner);
    case GeneratorRoute::LegacyTitle:
        return TranslateLegacyTitle(state, item, owner);
    case GeneratorRoute::Graphic:
        return TranslateGraphic(state, item, owner);
    case GeneratorRoute::Unknown:
        break;
    }
    return TranslateUnknown(state, item);
}

void AddMasterFilters(ImportState& state, ConstHandle generator, ConstHandle clip,
                      MasterClipHandle master)
{
    const ItemLocation location = LocationOfClip(state, generator);
    const EffectContext context{.document = state.document,
                                .account = state.account,
                                .location = location,
                                .frameTicks = FrameTicksOf(generator),
                                .lookFiles = &state.lookFiles};
    for (const ConstHandle& owner : {clip, generator})
        AddMasterChainEffects(context, owner, master.GetChild("VideoComponentChain"));
}

} // namespace

GeneratorResult TranslateGenerator(ImportState& state, const ClipItem& item, ConstHandle owner)
{
    const GeneratorRoute route = RouteOf(state, item, owner);
    if (const MasterClipHandle known = state.generators.MasterOf(item))
        return {known, route != GeneratorRoute::Unknown,
                route != GeneratorRoute::Graphic || state.titles.IsTitled(known)};
    if (const MasterClipHandle shared = ShareMaster(state, item))
        return {shared, route != GeneratorRoute::Unknown, false};
    GeneratorResult result = TranslateNew(state, item, owner, route);
    result.isNew = true;
    if (owner.GetName() == "clip" && result.master) {
        if (state.options.settings.openInterchange)
            AddMasterFilters(state, item, owner, result.master);
        else
            RemarkOnClipFilters(state, owner);
    }
    return result;
}

void RemarkOnGenerator(ImportState& state, ConstHandle item, const GeneratorResult& result,
                       const ItemLocation& location)
{
    if (!result.translated)
        return;
    const EffectContext context{
        .document = state.document, .account = state.account, .location = location};
    const ConstHandle effect = item.GetChild("effect");
    if (IsTextTitle(item) || IsShape(item)) {
        RemarkOnTitle(context, item, result.isGraphic);
        return;
    }
    const ColorEffect* const color = ColorEffectOf(item);
    for (const ConstHandle parameter : effect.GetChildren("parameter"))
        if (!color || parameter.GetProperty("parameterid") != color->parameterId)
            RemarkOnLostParameter(context, effect, parameter);
        else if (!AreBytes(ColorValue(parameter)))
            context.AddRemark(RemarkKind::ValueLimited, effect, ParameterName(parameter));
}

} // namespace XPJ
