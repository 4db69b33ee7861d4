// What other programs read: the rules between the export and the writer.
#include "dialects/dialects.h"
#include "dialects/pass.h"
#include "dialects/writing_structure.h"

namespace XPJ {

namespace {

constexpr DialectRule kWritingRules[] = {
    {.name = "effects without name",
     .seen = "readers that look effects up by id",
     .does = "An `effect` without name and id is not written.",
     .apply = RemoveNamelessEffects},
    // Effects that come back
    {.name = "correctors and keys",
     .seen = "values that move with each export and import: levels and angles of the three-way "
             "corrector, thresholds of the luma key",
     .does = "What is written is what the import reads as the same value; keyframes of the "
             "corrector are written too.",
     .file = "effects/effect_row.cpp"},
    {.name = "flips, turns and transforms",
     .seen = "effects without a filter in documents to the letter",
     .does = "A flip is a Flop, Basic 3D and Transform are effects of their own.",
     .file = "effects/video_effects.cpp"},
    {.name = "exponential fades",
     .seen = "audio transitions, which are Cross Fade ( 0dB) to the letter",
     .does = "Written as Cross Fade (Exponential).",
     .file = "effects/transitions.cpp"},
    {.name = "parameters of projects alone",
     .seen =
         "a blur of one dimension, tonal ranges of a corrector, the distance of Basic 3D, other "
         "blend modes",
     .does = "Carried as a `parameter` with an id of its own, as `vela3`, where they are not "
             "neutral. There is no empty `compositemode`.",
     .file = "effects/effect_row.cpp"},
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
