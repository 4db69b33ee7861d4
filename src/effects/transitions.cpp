#include "effects/transitions.h"

#include "core/numbers.h"
#include "effects/effect_list.h"
#include "effects/parameters.h"
#include "effects/values.h"

#include <iterator>
#include <span>
#include <string>

namespace XPJ {

namespace {

// ---- Edge wipe

std::string BorderWidthText(ObjectHandle parameter)
{
    return IntToString(ParseInt64(StaticValue(parameter, {})));
}

std::string BorderColourText(ObjectHandle parameter)
{
    const Colour colour = ColourValue(parameter);
    return IntToString(colour.red) + "," + IntToString(colour.green) + "," +
           IntToString(colour.blue);
}

// Of an angle in degrees, to the nearest of eight. What has none, as the half step before a full
// turn, counts as 90.
std::string DirectionText(ObjectHandle parameter)
{
    constexpr int kDirections[] = {4, 64, 8, 128, 1, 16, 2, 32}; // from 0 in steps of 45
    constexpr int kOtherwise = 8;
    const auto angle = static_cast<double>(ParseInt64(StaticValue(parameter, {})) % 360);
    const auto sector = static_cast<int>((angle + 22.5) / 45.0);
    const bool isKnown = sector >= 0 && sector < static_cast<int>(std::size(kDirections));
    return IntToString(isKnown ? kDirections[sector] : kOtherwise);
}

struct ParameterRow {
    std::string_view id;
    std::string_view name;
    Name field;
    std::string (*text)(ObjectHandle parameter);
};

constexpr ParameterRow kWipeParameters[] = {
    {"borderwidth", "Border Width", "BorderWidth", BorderWidthText},
    {"bordercolor", "Border Color", "BorderColor", BorderColourText},
    {"directionofwipe", "Direction", "Direction", DirectionText},
};

// ---- Tables

struct TransitionForm {
    std::string_view matchName;
    std::string_view displayName;
};

constexpr TransitionForm kCrossDissolve = {"KX.ORRN Cross Dissolve New", "Cross Dissolve"};
constexpr TransitionForm kWipe = {"ORRN Wipe", "Wipe"};
constexpr TransitionForm kDipToWhite = {"ORRN Dip To White", "Dip to White"};
constexpr TransitionForm kDipToBlack = {"ORRN Dip To Black", "Dip to Black"};
constexpr TransitionForm kConstantPower = {"Constant Power", "Constant Power"};
constexpr TransitionForm kConstantGain = {"Constant Gain", "Constant Gain"};
constexpr TransitionForm kExponentialFade = {"Exponential Fade", "Exponential Fade"};

struct TransitionRow {
    std::string_view id;
    std::string_view name; // as documents have it
    TransitionForm form;
    std::string_view note = {};
    std::span<const ParameterRow> parameters = {};
};

constexpr std::string_view kDip = "Dip to Color Dissolve";

constexpr TransitionRow kVideoTransitions[] = {
    {"Cross Dissolve", "Cross Dissolve", kCrossDissolve},
    {"Edge Wipe", "Edge Wipe", kWipe, "in eight directions, with a border of whole width",
     kWipeParameters},
    {kDip, kDip, kDipToBlack, "Dip to White from white; any other color becomes black"},
};
constexpr TransitionForm kOtherVideo = kCrossDissolve;

constexpr TransitionRow kAudioTransitions[] = {
    {"KGAudioTransCrossFade3dB", "Cross Fade (+3dB)", kConstantPower},
    {"KGAudioTransCrossFade0dB", "Cross Fade ( 0dB)", kConstantGain},
    {"KGAudioTransCrossFadeExponential", "Cross Fade (Exponential)", kExponentialFade},
};
constexpr TransitionForm kOtherAudio = kConstantPower;

struct DipRow {
    Colour colour;
    TransitionForm form;
};

constexpr DipRow kDips[] = {
    {{255, 255, 255}, kDipToWhite},
    {{0, 0, 0}, kDipToBlack},
};

// What a picture transition states besides its names, where its effect has nothing to say.
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

// Effects are told by their id; by their name, which may be that of the id, where it is not known.
const TransitionRow* FindRow(std::span<const TransitionRow> rows, ObjectHandle effect)
{
    const std::string_view id = effect.GetProperty("effectid");
    const std::string_view name = effect.GetProperty("name");
    for (const TransitionRow& row : rows)
        if (row.id == id)
            return &row;
    for (const TransitionRow& row : rows)
        if (row.name == name || row.id == name)
            return &row;
    return nullptr;
}

ObjectHandle MakeTransition(Document& document, Name className, const TransitionForm& form)
{
    const ObjectHandle transition = document.NewObject(className);
    transition.SetPropertyShared("MatchName", form.matchName);
    transition.SetPropertyShared("DisplayName", form.displayName);
    return transition;
}

TransitionForm DipOf(const EffectContext& context, ObjectHandle effect)
{
    const Colour colour = ColourValue(FindParameter(effect, "dipcolor"));
    for (const DipRow& row : kDips)
        if (colour.red == row.colour.red && colour.green == row.colour.green &&
            colour.blue == row.colour.blue)
            return row.form;
    context.AddIssue(ImportIssue::DipToColorNotTranslated);
    return kDipToBlack;
}

TransitionForm VideoFormOf(const EffectContext& context, const TransitionRow* row,
                           ObjectHandle effect)
{
    if (!row) {
        context.AddIssue(ImportIssue::CrossDissolveTransitionNotTranslated, EffectName(effect));
        return kOtherVideo;
    }
    return row->id == kDip ? DipOf(context, effect) : row->form;
}

void SetParameters(const TransitionRow& row, ObjectHandle effect, ObjectHandle transition)
{
    for (const ParameterRow& parameterRow : row.parameters)
        if (const ObjectHandle parameter = FindParameter(effect, parameterRow.id))
            transition.SetProperty(parameterRow.field, parameterRow.text(parameter));
}

// A part of the way that the transition runs through, if it is not the whole of it.
void SetPercent(ObjectHandle effect, Name ratio, double whole, ObjectHandle transition, Name key)
{
    if (HasValue(effect, ratio) && DoubleProperty(effect, ratio) != whole)
        transition.SetProperty(key, effect.GetProperty(ratio));
}

} // namespace

ObjectHandle MakeVideoTransition(const EffectContext& context, ObjectHandle effect)
{
    if (EffectName(effect).empty())
        return {};
    const TransitionRow* const row = FindRow(kVideoTransitions, effect);
    const ObjectHandle transition = MakeTransition(context.document, "VideoTransitionTrackItem",
                                                   VideoFormOf(context, row, effect));
    for (const auto& [key, value] : kVideoFields)
        transition.SetPropertyShared(key, value);
    transition.SetPropertyShared("Reverse", IsTrue(effect, "reverse") ? "true" : "false");
    SetPercent(effect, "startratio", 0.0, transition, "StartPercent");
    SetPercent(effect, "endratio", 1.0, transition, "EndPercent");
    if (row)
        SetParameters(*row, effect, transition);
    return transition;
}

ObjectHandle MakeAudioTransition(const EffectContext& context, ObjectHandle effect)
{
    if (EffectName(effect).empty())
        return {};
    const TransitionRow* const row = FindRow(kAudioTransitions, effect);
    if (!row)
        context.AddIssue(ImportIssue::ConstantPowerTransitionNotTranslated, EffectName(effect));
    return MakeTransition(context.document, "AudioTransitionTrackItem",
                          row ? row->form : kOtherAudio);
}

namespace {

void AppendRows(std::string_view family, std::span<const TransitionRow> rows,
                const TransitionForm& other, std::vector<EffectListing>& list)
{
    for (const TransitionRow& row : rows) {
        EffectListing& listing = list.emplace_back(EffectListing{
            .family = family, .name = row.form.displayName, .effectId = row.id, .note = row.note});
        for (const ParameterRow& parameter : row.parameters)
            listing.parameters.push_back({.name = parameter.name});
    }
    list.push_back({.family = family,
                    .name = "any other",
                    .effectId = {},
                    .outcome = Outcome::Approximated,
                    .note = other.displayName});
}

} // namespace

void AppendTransitions(std::vector<EffectListing>& list)
{
    AppendRows("Video transition", kVideoTransitions, kOtherVideo, list);
    AppendRows("Audio transition", kAudioTransitions, kOtherAudio, list);
}

} // namespace XPJ
