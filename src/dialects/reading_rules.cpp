// What other writers mean: the rules between the reader and the import.
#include "dialects/dialects.h"
#include "dialects/pass.h"
#include "dialects/reading_formats.h"
#include "dialects/reading_items.h"
#include "dialects/reading_media.h"
#include "dialects/reading_numbers.h"
#include "dialects/reading_structure.h"
#include "dialects/reading_times.h"

namespace XPJ {

namespace {

constexpr DialectRule kReadingRules[] = {
    {.name = "elements out of place",
     .seen =
         "entries beside a `project`, several `project`s, bins without `children`, items beside "
         "`track`s",
     .does = "Taken in, in document order: entries into the first project, items into a track of "
             "their own.",
     .apply = TakeInStrays},
    {.name = "attributes as XML has them",
     .seen = "the published examples: blanks around the `=` of an attribute; single quotes",
     .does = "Read like any other.",
     .file = "frame/conversion.cpp"},
    {.name = "item in parts",
     .seen = "the published examples: an item that repeats the id of an earlier one and states a "
             "channel of it",
     .does = "What it doesn't state is that of the earlier one.",
     .apply = CompleteRepeatedItems},
    {.name = "clip without file",
     .seen = "outlines and examples: a clip or an item with a name alone",
     .does = "An offline file of that name; an item of a clip shows the file of that clip.",
     .apply = AddMissingFiles},
    {.name = "file without media",
     .seen = "scripts and hand-made documents: a `file` with a path and a name",
     .does =
         "Offline media with the path, name, rate and length that are stated: video where it is "
         "on video tracks, audio where it is on audio tracks, both in a bin. Channels are those "
         "that the items name, else two.",
     .apply = AddMissingMedia},
    {.name = "file with half of its media",
     .seen = "cuts made from edit decision lists: an audio item on a file that states video alone, "
             "and the reverse",
     .does = "The missing half is added.",
     .apply = AddMissingHalves},
    {.name = "sequence without rate or format",
     .seen = "writers without `samplecharacteristics`, or with a `format` directly under `media`",
     .does = "Rate, size and pixels are those that any part of the `media` states, else those of "
             "the first file with a size on any track. Pixels are square unless something states "
             "otherwise. Where nothing states a size it is 1920 by 1080.",
     .apply = CompleteFormats},
    {.name = "in and out of the file",
     .seen =
         "cuts of media with another rate than the sequence: `in` and `out` count in the file's "
         "rate although the item states none, or the sequence's",
     .does = "An item whose lengths agree in the file's rate alone counts in it.",
     .apply = CountInFileRate},
    {.name = "freeze on a track",
     .seen = "any cut with a freeze frame, or with a video at speed 0",
     .does = "The item holds its frame. A sequence stands for a still only if the freeze is all "
             "that it has.",
     .apply = HoldFrames},
    {.name = "transition in part",
     .seen = "transitions without `effect`, or with an `alignment` that the format doesn't have",
     .does = "A plain dissolve or fade, in the middle of the cut.",
     .apply = CompleteTransitions},
    {.name = "media of items",
     .seen = "cuts of mixed rates without bins: the item counts in another rate than its file",
     .does =
         "Rate, length and start timecode of the media are the file's own; the rate of the item "
         "counts the item.",
     .file = "import/streams.cpp"},
    {.name = "effects of browser clips",
     .seen = "clips of a bin with a `filter` of their own, or on the item that shows their file",
     .does = "They are effects of the master clip, as those of the file.",
     .apply = TakeInClipFilters},
    {.name = "levels of correctors",
     .seen = "the three-way corrector, whose neutral levels are 0, 100 and 255",
     .does = "A neutral level is a neutral gain, the lowest and highest level the lowest and "
             "highest gain. Keyframes are carried over.",
     .file = "effects/effect_row.cpp"},
    {.name = "thresholds of -100 to 100",
     .seen = "the luma key of documents of this system",
     .does = "The range is that of 0 to 100 in projects. A threshold with another range is taken "
             "as it is.",
     .file = "effects/video_effects.cpp"},
    {.name = "stretches below 3 percent",
     .seen = "a Distort of a clip whose pixels are those of the sequence",
     .does = "They are stretches, not what is left of a change of pixels.",
     .file = "effects/motion.cpp"},
    {.name = "wipes",
     .seen = "angles below 0 or close to a full turn, borders with fractions",
     .does = "Taken as they are.",
     .file = "effects/transitions.cpp"},
    {.name = "neutral effects",
     .seen = "a neutral Crop or Basic 3D of documents of this system; Motion that is bypassed",
     .does = "Kept, as a user added it.",
     .file = "effects/effect_row.cpp"},
    {.name = "decimal commas",
     .seen = "effects written under a locale: a value of 0,5",
     .does = "Read as 0.5, in parameters that are numbers.",
     .apply = ReadDecimalCommas},
    {.name = "timecode as text",
     .seen = "a `timecode` with a `string` and no `frame`, or with a `frame` that is always 0",
     .does = "The frame is computed from the text, its rate and `displayformat`.",
     .apply = CountTimecodes},
};

} // namespace

std::span<const DialectRule> ReadingRules()
{
    return kReadingRules;
}

void RestateAsMeant(Document& document, ObjectHandle root, AssumptionList& assumptions)
{
    DialectPass(document, root, assumptions).Run(kReadingRules);
}

} // namespace XPJ
