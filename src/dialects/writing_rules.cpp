// What other programs read: the rules between the export and the writer.
#include "dialects/dialects.h"
#include "dialects/pass.h"
#include "dialects/writing_effects.h"
#include "dialects/writing_structure.h"

namespace XPJ {

namespace {

constexpr DialectRule kWritingRules[] = {
    {.name = "effects without name",
     .seen = "readers that look effects up by id",
     .does = "An `effect` without name and id is not written.",
     .apply = RemoveNamelessEffects},
    // Times, audio and effects
    {.name = "mixed rates",
     .seen = "all readers: the edges of an item count in frames of the sequence",
     .does = "`start` and `end` count in the sequence's rate, `in`, `out` and `duration` in the "
             "item's. `velaTicksStart` and `velaTicksEnd` beside them state the same edges.",
     .file = "export/item_times.cpp"},
    {.name = "retimed audio",
     .seen = "all readers: `in` and `out` count in what plays",
     .does = "`in`, `out` and the handles at transitions count as those of the video do.",
     .file = "export/item_times.cpp"},
    {.name = "speed",
     .seen = "readers that retime by the percentage",
     .does = "The percentage is that of the clip, not the quotient of two lengths in whole frames.",
     .file = "export/item_times.cpp"},
    {.name = "gain",
     .seen = "the Gain filter, which states decibels with six digits",
     .does = "`velaGain` beside it states the gain of the clip as it is.",
     .file = "export/audio_items.cpp"},
    {.name = "faders and filters of tracks",
     .seen = "readers of mixes",
     .does = "Keyframes of faders are written, and filters of tracks and of the master that "
             "documents have an effect for; others are issues.",
     .file = "export/audio_tracks.cpp"},
    {.name = "audio filters of clips",
     .seen = "browser clips with effects that act wherever they are used",
     .does = "Those that documents have an effect for are written on the items of the `clip`.",
     .file = "export/clip_media.cpp"},
    {.name = "audio tracks",
     .seen = "documents with mono tracks, which a project has as stereo tracks of mono clips",
     .does = "A track is written as as many as its items play channels, without empty ones.",
     .file = "export/audio_tracks.cpp"},
    {.name = "pan",
     .seen = "readers that look parameters up by id",
     .does = "The `parameterid` of a pan is `pan`.",
     .apply = NamePans},
    {.name = "held values",
     .seen = "keyframes with hold interpolation, which documents do not have",
     .does = "The value is repeated a frame before the next keyframe. `velaHold` marks both, so "
             "that they come back as one.",
     .apply = WriteSteps},
    {.name = "bypassed effects",
     .seen = "readers that look at the `filter` alone",
     .does = "The `filter` of a bypassed effect has `enabled` FALSE.",
     .apply = SwitchOffBypassed},
};

} // namespace

std::span<const DialectRule> WritingRules()
{
    return kWritingRules;
}

void RestateForOthers(Document& document, ObjectHandle root, AssumptionList& assumptions)
{
    DialectPass(document, root, assumptions).Run(kWritingRules);
}

} // namespace XPJ
