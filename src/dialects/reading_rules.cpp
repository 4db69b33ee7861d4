// What other writers mean: the rules between the reader and the import.
#include "dialects/dialects.h"
#include "dialects/pass.h"
#include "dialects/reading_audio.h"
#include "dialects/reading_formats.h"
#include "dialects/reading_media.h"
#include "dialects/reading_times.h"

namespace XPJ {

namespace {

constexpr DialectRule kReadingRules[] = {
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
    {.name = "timecode as text",
     .seen = "a `timecode` with a `string` and no `frame`",
     .does = "The frame is computed from the text, its rate and `displayformat`.",
     .apply = CountTimecodes},
    // Times, audio and effects
    {.name = "gain in decibels",
     .seen = "the Gain filter",
     .does = "0 dB leaves the level as it is, -6 dB is about half of it. One value is the gain of "
             "the clip; a gain with keyframes is a volume effect, as those of tracks are.",
     .apply = ReadGains},
    {.name = "pan keyframes",
     .seen = "all writers: -1 is left in keyframes as in static values",
     .does = "The keyframes are not inverted.",
     .apply = ReadPans},
    {.name = "filters of tracks",
     .seen = "`track`s, and the `audio` of sequences, with filters beside their level",
     .does = "They become effects of the track or of the master.",
     .file = "import/tracks.cpp"},
    {.name = "exact points of video",
     .seen = "documents of this system",
     .does = "`velaTicksIn` and `velaTicksOut` count for video as they do for audio: a clip with "
             "another speed keeps its frames.",
     .file = "import/item_clips.cpp"},
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
