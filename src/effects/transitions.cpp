#include "effects/transitions.h"

#include "core/numbers.h"
#include "effects/effect_losses.h"
#include "effects/values.h"
#include "project/accessors.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <string>

namespace XPJ {

namespace {

// ---- Tables

constexpr Color kWhite = {255, 255, 255, 255};
constexpr Color kBlack = {0, 0, 0, 255};

constexpr ParamRow kWipeParams[] = {
    {.name = "Border Width", .xmeml = {"borderwidth", "Border", "0", "100"}, .animates = false},
    {.name = "Border Color", .xmeml = {"bordercolor", "Color"}, .animates = false},
    {.name = "Direction", .xmeml = {"directionofwipe", "Angle", "-360", "360"}, .animates = false},
};
constexpr const XmemlParam& kBorderWidth = kWipeParams[0].xmeml;
constexpr const XmemlParam& kBorderColor = kWipeParams[1].xmeml;
constexpr const XmemlParam& kDirection = kWipeParams[2].xmeml;

constexpr XmemlParam kDipColor = {"dipcolor", "Color"};

constexpr XmemlEffect VideoEffect(std::string_view id, std::string_view category)
{
    return {id, id, category, "transition", "video"};
}

constexpr XmemlEffect AudioEffect(std::string_view id, std::string_view name)
{
    return {id, name, "", "transition", "audio"};
}

constexpr XmemlEffect kDissolve = VideoEffect("Cross Dissolve", "Dissolve");
constexpr XmemlEffect kDip = VideoEffect("Dip to Color Dissolve", "Dissolve");

constexpr TransitionRow kVideoTransitions[] = {
    {.xmeml = kDissolve,
     .project = {"KX.ORRN Cross Dissolve New", "Cross Dissolve"},
     .name = "Cross Dissolve"},
    // Of older projects.
    {.xmeml = kDissolve,
     .project = {"ORRN Cross Dissolve", "Cross Dissolve"},
     .name = "Cross Dissolve"},
    {.xmeml = VideoEffect("Edge Wipe", "Wipe"),
     .project = {"ORRN Wipe", "Wipe"},
     .name = "Edge Wipe",
     .note = "in eight directions, with a border of whole width",
     .wipeCode = "2",
     .params = kWipeParams},
    {.xmeml = kDip,
     .project = {"ORRN Dip To Black", "Dip to Black"},
     .name = "Dip to Color",
     .note = "Dip to White from white; any other color becomes black",
     .dipColor = &kBlack},
    {.xmeml = kDip,
     .project = {"ORRN Dip To White", "Dip to White"},
     .name = "Dip to Color",
     .dipColor = &kWhite},
};

constexpr TransitionRow kAudioTransitions[] = {
    {.xmeml = AudioEffect("KGAudioTransCrossFade3dB", "Cross Fade (+3dB)"),
     .project = {"Constant Power", "Constant Power"},
     .name = "Cross Fade (+3dB)"},
    {.xmeml = AudioEffect("KGAudioTransCrossFade0dB", "Cross Fade ( 0dB)"),
     .project = {"Constant Gain", "Constant Gain"},
     .name = "Cross Fade (0dB)"},
    {.xmeml = AudioEffect("KGAudioTransCrossFadeExponential", "Cross Fade (Exponential)"),
     .project = {"Exponential Fade", "Exponential Fade"},
     .name = "Exponential Fade",
     .handOffOnly = true},
};

// What an export makes of a transition that is not in the table.
constexpr const TransitionRow& kOtherVideoInXmeml = kVideoTransitions[0];
constexpr const TransitionRow& kOtherAudioInXmeml = kAudioTransitions[1];

// Directions of a wipe, from 0 degrees in steps of 45, as projects number them.
constexpr int kWipeDirections[] = {4, 64, 8, 128, 1, 16, 2, 32};
constexpr int kWipeStep = 45;

// What a video transition states besides its names, where its effect states nothing.
constexpr struct {
    Name key;
    std::string_view value;
} kVideoFields[] = {
    // clang-format off
    {"AntiAliasQuality", "1"},
    {"SwitchSources", "false"},
    {"BorderColor", "0,0,0"},
    {"BorderWidth", "0."},
    {"Direction", "0"},
    {"CenterPosition", "0.5,0.5"},
    {"StartPosition", "0.5,0.5"},
    {"EndPosition", "0.5,0.5"},
    {"StartPercent", "0."},
    {"EndPercent", "1."},
    // clang-format on
};

// ---- To a project

// Effects are found by their id, else by their name, which may be an id.
const TransitionRow* FindRow(MediaType type, ConstHandle effect)
{
    const std::string_view id = effect.GetProperty("effectid");
    const std::string_view name = effect.GetProperty("name");
    for (const TransitionRow& row : TransitionsOf(type))
        if (row.xmeml.id == id)
            return &row;
    for (const TransitionRow& row : TransitionsOf(type))
        if (row.xmeml.name == name || row.xmeml.id == name)
            return &row;
    return nullptr;
}

bool HasSameChannels(const Color& a, const Color& b)
{
    return a.red == b.red && a.green == b.green && a.blue == b.blue;
}

const TransitionRow& DipOfColor(const EffectContext& context, const TransitionRow& dip,
                                ConstHandle effect)
{
    const Color color = ColorValue(FindParameter(effect, kDipColor.id));
    for (const TransitionRow& row : kVideoTransitions)
        if (row.dipColor && HasSameChannels(*row.dipColor, color))
            return row;
    context.AddIssue(ImportIssue::DipToColorNotTranslated);
    return dip;
}

const TransitionRow& VideoRowOf(const EffectContext& context, ConstHandle effect)
{
    const TransitionRow* const row = FindRow(MediaType::Video, effect);
    if (!row) {
        context.AddIssue(ImportIssue::CrossDissolveTransitionNotTranslated, effect);
        return OtherTransition(MediaType::Video);
    }
    if (row->dipColor)
        return DipOfColor(context, *row, effect);
    RemarkOnParameters(context, row->params, effect);
    return *row;
}

ObjectHandle MakeTransition(Document& document, Name className, const TransitionRow& row)
{
    const ObjectHandle transition = document.NewObject(className);
    transition.SetPropertyShared("MatchName", row.project.match);
    transition.SetPropertyShared("DisplayName", row.project.display);
    return transition;
}

std::string ColorText(const Color& color)
{
    return IntToString(color.red) + "," + IntToString(color.green) + "," + IntToString(color.blue);
}

// Of an angle in degrees, to the nearest of eight. What has none, as the half step before a full
// turn, counts as 90.
int DirectionOfAngle(std::int64_t degrees)
{
    constexpr int kOtherwise = 8;
    const auto angle = static_cast<double>(degrees % 360);
    const auto sector = static_cast<int>((angle + kWipeStep / 2.0) / kWipeStep);
    const bool isKnown = sector >= 0 && sector < static_cast<int>(std::size(kWipeDirections));
    return isKnown ? kWipeDirections[sector] : kOtherwise;
}

int NearestDirection(std::int64_t degrees)
{
    constexpr int kTurn = 360;
    const std::int64_t angle = (degrees % kTurn + kTurn + kWipeStep / 2) % kTurn;
    return kWipeDirections[angle / kWipeStep];
}

// In open interchange angles of any turn count, and borders keep their fractions.
void SetWipe(const EffectContext& context, ConstHandle effect, ObjectHandle transition)
{
    if (const ConstHandle width = FindParameter(effect, kBorderWidth.id)) {
        const std::string_view text = StaticValue(width, {});
        const double pixels = ParseDouble(text);
        if (!context.openInterchange && pixels != std::trunc(pixels))
            context.AddRemark(RemarkKind::ValueLimited, effect, ParameterName(width));
        transition.SetProperty("BorderWidth", context.openInterchange
                                                  ? NumberText(ParseDouble(text))
                                                  : IntToString(ParseInt64(text)));
    }
    if (const ConstHandle color = FindParameter(effect, kBorderColor.id))
        transition.SetProperty("BorderColor", ColorText(ColorValue(color)));
    if (const ConstHandle angle = FindParameter(effect, kDirection.id)) {
        const std::int64_t degrees = ParseInt64(StaticValue(angle, {}));
        const int nearest = NearestDirection(degrees);
        const int direction = context.openInterchange ? nearest : DirectionOfAngle(degrees);
        if (direction != nearest || degrees % kWipeStep != 0)
            context.AddRemark(RemarkKind::ValueLimited, effect, ParameterName(angle));
        transition.SetProperty("Direction", IntToString(direction));
    }
}

// The part of the run that the transition takes, if it is not the whole of it.
void SetPercent(ConstHandle effect, Name ratio, double whole, ObjectHandle transition, Name key)
{
    if (HasValue(effect, ratio) && DoubleProperty(effect, ratio) != whole)
        transition.SetProperty(key, effect.GetProperty(ratio));
}

// ---- To `xmeml`

const TransitionRow* FindWritten(const EffectContext& context, MediaType type,
                                 std::string_view matchName)
{
    for (const TransitionRow& row : TransitionsOf(type))
        if (row.project.match == matchName &&
            (context.isHandOff || context.openInterchange || !row.handOffOnly))
            return &row;
    return nullptr;
}

// "255,128,0", opaque; what is missing is 0.
Color ParseColor(std::string_view text)
{
    Color color{.alpha = 255};
    for (int* const channel : {&color.red, &color.green, &color.blue}) {
        const std::size_t end = std::min(text.find(','), text.size());
        *channel = ParseInt(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return color;
}

void AddColor(Document& document, const XmemlParam& param, const Color& color, ObjectHandle effect)
{
    AddColorValue(document, AddParameter(document, param, {}, effect), color);
}

// Any direction that is not one of the eight is 0.
int AngleOfDirection(int direction)
{
    const auto* const found = std::ranges::find(kWipeDirections, direction);
    return found == std::end(kWipeDirections)
               ? 0
               : static_cast<int>(found - std::begin(kWipeDirections)) * kWipeStep;
}

void AddWipeParameters(Document& document, ConstHandle transition, ObjectHandle effect)
{
    AddParameter(document, kDirection,
                 IntToString(AngleOfDirection(IntProperty(transition, "Direction"))), effect);
    const double width = DoubleProperty(transition, "BorderWidth");
    if (!(width > 0))
        return;
    AddParameter(document, kBorderWidth, NumberText(width), effect);
    AddColor(document, kBorderColor, ParseColor(transition.GetProperty("BorderColor")), effect);
}

// Projects do not state the two percents of a transition that runs from start to end.
void WriteRun(MediaType type, ConstHandle transition, ObjectHandle effect)
{
    if (type == MediaType::Audio) {
        effect.SetPropertyShared("reverse", "FALSE");
        effect.SetPropertyShared("startratio", "0");
        effect.SetPropertyShared("endratio", "1");
        return;
    }
    effect.SetPropertyShared("reverse", IsTrue(transition, "Reverse") ? "TRUE" : "FALSE");
    effect.SetProperty("startratio", NumberText(DoubleProperty(transition, "StartPercent")));
    effect.SetProperty("endratio", HasValue(transition, "EndPercent")
                                       ? NumberText(DoubleProperty(transition, "EndPercent"))
                                       : "1");
}

// A direction that is none of the eight.
void ReportDirection(const EffectContext& context, ConstHandle transition)
{
    const int direction = IntProperty(transition, "Direction");
    if (direction != 0 &&
        std::ranges::find(kWipeDirections, direction) == std::end(kWipeDirections))
        context.AddRemark(RemarkKind::EffectParameterLost,
                          {.name = transition.GetProperty("DisplayName"),
                           .id = transition.GetProperty("MatchName"),
                           .detail = "Direction"});
}

ObjectHandle MakeXmemlEffect(Document& document, const TransitionRow& row, MediaType type,
                             ConstHandle transition)
{
    const ObjectHandle effect = document.NewObject("effect");
    WriteEffectHead(row.xmeml, effect);
    effect.SetPropertyShared("wipecode", row.wipeCode);
    effect.SetPropertyShared("wipeaccuracy", "100");
    WriteRun(type, transition, effect);
    if (row.dipColor)
        AddColor(document, kDipColor, *row.dipColor, effect);
    if (!row.params.empty())
        AddWipeParameters(document, transition, effect);
    return effect;
}

} // namespace

std::span<const TransitionRow> TransitionsOf(MediaType type)
{
    return type == MediaType::Video ? std::span<const TransitionRow>(kVideoTransitions)
                                    : std::span<const TransitionRow>(kAudioTransitions);
}

const TransitionRow& OtherTransition(MediaType type)
{
    return type == MediaType::Video ? kVideoTransitions[0] : kAudioTransitions[0];
}

ObjectHandle MakeVideoTransition(const EffectContext& context, ConstHandle effect)
{
    if (EffectName(effect).empty())
        return {};
    const TransitionRow& row = VideoRowOf(context, effect);
    const ObjectHandle transition =
        MakeTransition(context.document, "VideoTransitionTrackItem", row);
    for (const auto& [key, value] : kVideoFields)
        transition.SetPropertyShared(key, value);
    transition.SetPropertyShared("Reverse", IsTrue(effect, "reverse") ? "true" : "false");
    SetPercent(effect, "startratio", 0.0, transition, "StartPercent");
    SetPercent(effect, "endratio", 1.0, transition, "EndPercent");
    if (!row.params.empty())
        SetWipe(context, effect, transition);
    return transition;
}

ObjectHandle MakeAudioTransition(const EffectContext& context, ConstHandle effect)
{
    if (EffectName(effect).empty())
        return {};
    const TransitionRow* const row = FindRow(MediaType::Audio, effect);
    if (!row)
        context.AddIssue(ImportIssue::ConstantPowerTransitionNotTranslated, effect);
    return MakeTransition(context.document, "AudioTransitionTrackItem",
                          row ? *row : OtherTransition(MediaType::Audio));
}

ObjectHandle TransitionToXmeml(const EffectContext& context, MediaType type, ConstHandle transition)
{
    const bool isVideo = type == MediaType::Video;
    const TransitionRow* row = FindWritten(context, type, transition.GetProperty("MatchName"));
    if (!row) {
        context.AddIssue(isVideo ? ExportIssue::CrossDissolveTransitionNotTranslated
                                 : ExportIssue::TransitionNotSupported,
                         transition.GetProperty("DisplayName"));
        row = isVideo ? &kOtherVideoInXmeml : &kOtherAudioInXmeml;
    }
    if (!row->params.empty())
        ReportDirection(context, transition);
    return MakeXmemlEffect(context.document, *row, type, transition);
}

} // namespace XPJ
