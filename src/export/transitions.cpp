#include "export/transitions.h"

#include "core/numbers.h"
#include "effects/parameters.h"
#include "effects/values.h"
#include "export/rates.h"

#include <algorithm>

namespace XPJ::RVX {

namespace {

// What a transition has beyond name and codes.
enum class Parameters { None, DipToWhite, DipToBlack, Wipe };

struct TransitionRow {
    std::string_view matchName;
    std::string_view name;
    std::string_view effectId;
    std::string_view category; // empty: not written
    std::string_view wipeCode = "0";
    Parameters parameters = Parameters::None;
    bool handOffOnly = false;
};

// The last row is for any other match name, with an issue.
constexpr TransitionRow kVideoTransitions[] = {
    {"ORRN Cross Dissolve", "Cross Dissolve", "Cross Dissolve", "Dissolve"},
    {"KX.ORRN Cross Dissolve New", "Cross Dissolve", "Cross Dissolve", "Dissolve"},
    {"ORRN Dip To White", "Dip to Color Dissolve", "Dip to Color Dissolve", "Dissolve", "0",
     Parameters::DipToWhite},
    {"ORRN Dip To Black", "Dip to Color Dissolve", "Dip to Color Dissolve", "Dissolve", "0",
     Parameters::DipToBlack},
    {"ORRN Wipe", "Edge Wipe", "Edge Wipe", "Wipe", "2", Parameters::Wipe},
    {"", "Cross Dissolve", "Cross Dissolve", "Dissolve"},
};

constexpr TransitionRow kAudioTransitions[] = {
    {"Constant Power", "Cross Fade (+3dB)", "KGAudioTransCrossFade3dB", ""},
    {"Constant Gain", "Cross Fade ( 0dB)", "KGAudioTransCrossFade0dB", ""},
    {"Exponential Fade", "Cross Fade (Exponential)", "KGAudioTransCrossFadeExponential", "", "0",
     Parameters::None, true},
    {"", "Cross Fade ( 0dB)", "KGAudioTransCrossFade0dB", ""},
};

struct WipeAngle {
    int direction; // of the project
    std::string_view degrees;
};

// Any other direction is 0.
constexpr WipeAngle kWipeAngles[] = {
    {1, "180"}, {2, "270"}, {4, "0"}, {8, "90"}, {16, "225"}, {32, "315"}, {64, "45"}, {128, "135"},
};

template <std::size_t N>
const TransitionRow& RowOf(const TransitionRow (&rows)[N], std::string_view matchName, bool handOff)
{
    return *std::find_if(std::begin(rows), std::end(rows) - 1, [&](const TransitionRow& row) {
        return row.matchName == matchName && (handOff || !row.handOffOnly);
    });
}

bool IsOther(const TransitionRow& row)
{
    return row.matchName.empty();
}

// |  outgoing  |=====|=====|  incoming  |      the cut by thirds of the transition's length
//            Start  cut   End
std::string_view TransitionAlignment(ConstHandle transition)
{
    const ConstHandle core = TransitionCore(transition);
    if (!IsTrue(core, "HasOutgoingClip"))
        return "start-black";
    if (!IsTrue(core, "HasIncomingClip"))
        return "end-black";
    const ConstHandle edges = TransitionEdges(transition);
    if (!edges)
        return "center";
    const double length = static_cast<double>(Int64Property(edges, "End")) -
                          static_cast<double>(Int64Property(edges, "Start"));
    const auto cut = static_cast<double>(Int64Property(core, "Alignment"));
    if (cut < length * 0.3333333333333333)
        return "start";
    return cut > length * 0.6666666666666667 ? "end" : "center";
}

// "255,128,0", opaque; what is missing is 0.
Colour ParseColour(std::string_view text)
{
    Colour colour{.alpha = 255};
    for (int* const channel : {&colour.red, &colour.green, &colour.blue}) {
        const std::size_t end = std::min(text.find(','), text.size());
        *channel = ParseInt(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return colour;
}

void AddColour(Document& document, std::string_view id, const Colour& colour, ObjectHandle effect)
{
    AddColourValue(document, AddParameter(document, effect, {.id = id, .name = "Color"}), colour);
}

void AddWipeParameters(Document& document, ConstHandle transition, ObjectHandle effect)
{
    std::string_view degrees = "0";
    for (const WipeAngle& row : kWipeAngles)
        if (row.direction == IntProperty(transition, "Direction"))
            degrees = row.degrees;
    AddParameter(
        document, effect,
        {.id = "directionofwipe", .name = "Angle", .min = "-360", .max = "360", .value = degrees});

    const double width = DoubleProperty(transition, "BorderWidth");
    if (!(width > 0))
        return;
    AddParameter(document, effect,
                 {.id = "borderwidth",
                  .name = "Border",
                  .min = "0",
                  .max = "100",
                  .value = NumberText(width)});
    AddColour(document, "bordercolor", ParseColour(transition.GetProperty("BorderColor")), effect);
}

void AddParameters(Document& document, const TransitionRow& row, ConstHandle transition,
                   ObjectHandle effect)
{
    switch (row.parameters) {
    case Parameters::None:
        return;
    case Parameters::DipToWhite:
        return AddColour(document, "dipcolor",
                         {.red = 255, .green = 255, .blue = 255, .alpha = 255}, effect);
    case Parameters::DipToBlack:
        return AddColour(document, "dipcolor", {.alpha = 255}, effect);
    case Parameters::Wipe:
        return AddWipeParameters(document, transition, effect);
    }
}

// Projects skip the two percents of a transition that runs from start to end.
void WriteVideoRun(ConstHandle transition, ObjectHandle effect)
{
    effect.SetPropertyShared("reverse", IsTrue(transition, "Reverse") ? "TRUE" : "FALSE");
    effect.SetProperty("startratio", NumberText(DoubleProperty(transition, "StartPercent")));
    effect.SetProperty("endratio", HasValue(transition, "EndPercent")
                                       ? NumberText(DoubleProperty(transition, "EndPercent"))
                                       : "1");
}

void WriteAudioRun(ObjectHandle effect)
{
    effect.SetPropertyShared("reverse", "FALSE");
    effect.SetPropertyShared("startratio", "0");
    effect.SetPropertyShared("endratio", "1");
}

ObjectHandle TranslateEffect(ExportContext& context, const TransitionRow& row, MediaType kind,
                             ConstHandle transition)
{
    const ObjectHandle effect = context.document.NewObject("effect");
    effect.SetPropertyShared("name", row.name);
    effect.SetPropertyShared("effectid", row.effectId);
    if (!row.category.empty())
        effect.SetPropertyShared("effectcategory", row.category);
    effect.SetPropertyShared("effecttype", "transition");
    effect.SetPropertyShared("mediatype", kind == MediaType::Video ? "video" : "audio");
    effect.SetPropertyShared("wipecode", row.wipeCode);
    effect.SetPropertyShared("wipeaccuracy", "100");
    if (kind == MediaType::Video)
        WriteVideoRun(transition, effect);
    else
        WriteAudioRun(effect);
    AddParameters(context.document, row, transition, effect);
    return effect;
}

} // namespace

void TranslateTransition(ExportContext& context, TrackContext& track, ConstHandle transition)
{
    const ConstHandle core = TransitionCore(transition);
    if (!core)
        return;
    const ConstHandle edges = TransitionEdges(transition);
    const Ticks start = Int64Property(edges, "Start");
    const Ticks rate = track.sequence.frameTicks;
    const bool isVideo = track.type == MediaType::Video;

    const ObjectHandle result = context.document.NewObject("transitionitem");
    result.AddChild(WriteRate(context.document, rate, track.unit));
    result.SetProperty("start", TimeText(track.unit, start, rate));
    result.SetProperty("end", TimeText(track.unit, Int64Property(edges, "End"), rate));
    result.SetPropertyShared("alignment", TransitionAlignment(transition));
    if (HasValue(core, "Alignment"))
        result.SetProperty("cutPointTicks", TickText(Int64Property(core, "Alignment")));

    const std::string_view matchName = core.GetProperty("MatchName");
    const TransitionRow& row = isVideo ? RowOf(kVideoTransitions, matchName, context.IsHandOff())
                                       : RowOf(kAudioTransitions, matchName, context.IsHandOff());
    result.AddChild(TranslateEffect(context, row, track.type, transition));
    if (IsOther(row))
        AddIssue(context,
                 isVideo ? ExportIssue::CrossDissolveTransitionNotTranslated
                         : ExportIssue::TransitionNotSupported,
                 PlaceOfItem(track, start, {}), core.GetProperty("DisplayName"));
    track.Add(result);
    track.lastTransition = transition;
}

} // namespace XPJ::RVX
