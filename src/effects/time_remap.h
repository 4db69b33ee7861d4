// Speed that differs from that of the source. Projects state a constant speed on the clip, a
// variable one in its TimeRemapping; documents state both in the effect Time Remap.
#pragma once

#include "core/media_type.h"
#include "core/ticks.h"
#include "effects/effect_row.h"

#include <cstdint>
#include <string_view>

namespace XPJ {

inline constexpr ParamRow kTimeRemapParams[] = {
    {.id = -1,
     .kind = ParamKind::Speed,
     .name = "Speed",
     .xmeml = {.id = "graphdict", .name = "graphdict", .min = "0"}},
    {.name = "Reverse", .xmeml = {.id = "reverse", .name = "reverse"}, .animates = false},
    {.name = "Frame Blending",
     .xmeml = {.id = "frameblending", .name = "frameblending"},
     .animates = false},
    XmemlOnly({"variablespeed", "variablespeed", "0", "1"}),
    XmemlOnly({"speed", "speed", "-100000", "100000"}),
};

inline constexpr EffectRow kTimeRemap = {
    .xmeml = {"timeremap", "Time Remap", "motion", "motion"},
    .note = "the curve between points of a variable speed is not carried",
    .params = kTimeRemapParams,
    .toProject = nullptr, // by the functions below
    .toXmeml = nullptr,
    .isIntrinsic = true,
};

// True for a `timeremap` effect of video whose graph has points of its own, beside those at the
// edges of the clip.
bool IsVariableSpeed(ConstHandle effect);
// The same for any media.
bool HasSpeedCurve(ConstHandle effect);
// True for a `timeremap` that plays its source as it is.
bool IsNeutralSpeed(ConstHandle effect);
// The `parameter` of the graph; null without one.
ConstHandle SpeedGraph(ConstHandle effect);

// Gives the clip of a SubClip the graph of a `timeremap`, unless it has one; false without a clip.
bool AddTimeRemapping(Document& document, ConstHandle effect, Ticks frameTicks,
                      ObjectHandle subClip);

// How an item plays its source. Lengths count in the unit of the written item: frames or ticks.
struct PlayedSpeed {
    Ticks frameTicks = kNtscFrameTicks;
    double factor = 1.0; // above 0
    bool reverse = false;
    bool frameBlend = false;
    std::int64_t originalDuration = 0; // of the source
    std::int64_t duration = 0;         // of the source as the item plays it
    double ratio = 1.0;                // originalDuration / duration
};

// True for speed keyframes that are joined by curves of the user's, which documents don't have.
bool HasSpeedCurves(std::string_view keyframes);

// Puts a Time Remap on an item that has its `in` and `out` already. `keyframes` are the project's
// speed keyframes, empty for a constant speed.
void TimeRemapToXmeml(Document& document, const PlayedSpeed& speed, std::string_view keyframes,
                      MediaType type, ObjectHandle item);

} // namespace XPJ
