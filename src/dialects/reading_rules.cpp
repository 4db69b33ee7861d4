// What other writers mean: the rules between the reader and the import.
#include "dialects/dialects.h"
#include "dialects/generators.h"
#include "dialects/pass.h"
#include "dialects/reading_audio.h"
#include "dialects/reading_channels.h"
#include "dialects/reading_formats.h"
#include "dialects/reading_items.h"
#include "dialects/reading_media.h"
#include "dialects/reading_names.h"
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
    {.name = "tags as XML has them",
     .seen = "the published examples: blanks around the `=` of an attribute; single quotes. Tags "
             "over several lines, blanks behind the name of an end tag",
     .does = "Read like any other.",
     .file = "frame/conversion.cpp"},
    {.name = "notes of several lines",
     .seen = "comments of markers and clips, descriptions, log notes",
     .does = "Their line ends and tabs are kept, as character references.",
     .file = "frame/conversion.cpp"},
    {.name = "item in parts",
     .seen = "the published examples: an item that repeats the id of an earlier one and states a "
             "channel of it",
     .does = "What it doesn't state is that of the earlier one.",
     .apply = CompleteRepeatedItems},
    // ---- Generated video
    {.name = "gaps as slugs",
     .seen = "any editor: a gap in the cut that is an item of its own, with a file or as a "
             "generator",
     .does =
         "Black video, where the file is named \"Slug\". Its audio is silence and gets no item.",
     .apply = ReadSlugsAsGenerators},
    {.name = "generators of one clip",
     .seen = "titles and mattes of a bin, or those that a cut repeats",
     .does = "Items of a clip with the same effect share its master.",
     .file = "import/generators.cpp"},
    {.name = "styles of titles",
     .seen = "the published examples: plain, bold, italic and both count from 1",
     .does = "They are the plain, bold, italic and bold italic face.",
     .apply = ReadTitleStyles},

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

    // What users name, both ways.
    {.name = "labels by name",
     .seen = "the labels of Final Cut (Good Take, Best Take, Alternate Shots, Interviews, B Roll, "
             "in any case and with hyphens), and those that users name themselves",
     .does = "A label keeps its name. The colors follow Final Cut's list: Good Take has the first. "
             "The export writes the name as long as the color is the same.",
     .file = "export/logging.cpp"},
    {.name = "labels of Final Cut itself",
     .seen = "`label` with a blank `label2`",
     .does = "The label is the one of `label`; the export writes both.",
     .apply = ReadFinalCutLabels},
    {.name = "names of tracks",
     .seen = "a `track` with a `name`",
     .does = "The track of the project has the name; the export writes it.",
     .apply = NameTracks},
    {.name = "name of the project",
     .seen = "any `project` with a `name`",
     .does =
         "A project keeps the name and exports it; one that has none is exported under the name "
         "of its file.",
     .file = "export/export_driver.cpp"},

    // What files hold.
    {.name = "frame of a file stated elsewhere",
     .seen = "field order and pixel aspect of items and clips, or directly in a `file`",
     .does = "The file has them, if it states none itself.",
     .apply = GatherFormats},
    {.name = "channels by label and layout",
     .seen =
         "audio of a file without `channelcount`, with `channellabel`s left and right alone, or "
         "with some of its channels in pairs",
     .does =
         "Channels are counted by `audiochannel`, else by `layout`, else by the items; left and "
         "right make a pair. Where not all channels are in pairs each counts for itself.",
     .apply = ReadChannels},
    {.name = "stereo on one track",
     .seen = "cuts made by programs with stereo tracks: items that name the first channel of a "
             "stereo file, and none that names the second",
     .does = "The items have both channels.",
     .apply = ShowBothChannels},
    {.name = "stereo in a merged clip",
     .seen = "a merged clip with a file of several channels in one stream",
     .does = "The merged clip has all of its channels.",
     .file = "import/merged_master.cpp"},
    {.name = "sync in a merged clip",
     .seen = "merged clips whose files begin at different times, as `in` of their items",
     .does = "The first frames of its files are as far apart as the items say, none before the "
             "start of the merged clip.",
     .file = "import/merged_master.cpp"},

    {.name = "sequence without rate or format",
     .seen = "writers without `samplecharacteristics`, or with a `format` directly under `media`",
     .does =
         "Rate, size and pixels are those that any part of the `media` states, else those of "
         "the first file with a size on any track. Pixels are square unless something states "
         "otherwise. A file and an item without a rate have the sequence's; so have the pixels of "
         "a file that states none and is of standard definition or of the sequence's size; others "
         "are square. Where nothing states a size it is 1920 by 1080.",
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
     .does = "They are effects of the master clip, as those of the file. Of a clip with several "
             "files, each master has the effects of the items that show its file.",
     .file = "import/effects.cpp"},
    {.name = "audio effects of browser clips",
     .seen = "clips of a bin with filters on the item of their audio",
     .does = "Those of the first such item are the audio effects of the master clip.",
     .file = "import/effects.cpp"},
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
    {.name = "names of effects",
     .seen = "filters that an editor named after what they are for",
     .does = "The component has that name, and gives it back.",
     .file = "effects/video_effects.cpp"},
    {.name = "blurs in part",
     .seen = "scripts: a Gaussian Blur with a radius alone",
     .does = "It blurs all channels, as is its default.",
     .file = "effects/video_effects.cpp"},
    {.name = "neutral effects",
     .seen = "a neutral Crop or Basic 3D of documents of this system; Motion that is bypassed",
     .does = "Kept, as a user added it.",
     .file = "effects/effect_row.cpp"},
    {.name = "timecode as text",
     .seen = "a `timecode` with a `string` and no `frame`, or with a `frame` that is always 0",
     .does = "The frame is computed from the text, its rate and `displayformat`.",
     .apply = CountTimecodes},
    {.name = "points of audio alone",
     .seen = "browser clips of sound with `in` and `out`",
     .does = "They are the points of the master clip, as those of video are.",
     .file = "import/masters.cpp"},
    {.name = "graphs of variable speed",
     .seen = "time remaps whose out point is a keyframe of the graph, as exports mark it",
     .does = "The speed of the clip is the stated one, not the slope of the graph at that point.",
     .applyToEffect = ReadSpeedGraphs},
    {.name = "decimal commas",
     .seen = "effects written under a locale: a value of 0,5",
     .does = "Read as 0.5, in parameters that are numbers.",
     .applyToEffect = ReadDecimalCommas},
    {.name = "channels of colors",
     .seen = "damaged mattes and titles: a channel beyond 0 to 255",
     .does = "It is 0 or 255.",
     .applyToEffect = LimitColors},
    // Times, audio and effects
    {.name = "gain in decibels",
     .seen = "the Gain filter",
     .does = "0 dB leaves the level as it is, -6 dB is about half of it. One value is the gain of "
             "the clip; a gain with keyframes is a volume effect, as those of tracks are.",
     .applyToEffect = ReadGain},
    {.name = "pan keyframes",
     .seen = "all writers: -1 is left in keyframes as in static values",
     .does = "The keyframes are not inverted.",
     .applyToEffect = ReadPan},
    {.name = "filters of tracks",
     .seen = "`track`s, and the `audio` of sequences, with filters beside their level",
     .does = "They become effects of the track or of the master.",
     .file = "import/tracks.cpp"},
    {.name = "points the wrong way round",
     .seen = "scripts and hand-made documents: video with an out point before its in point",
     .does = "The item keeps its place and begins at its in point.",
     .file = "import/item_clips.cpp"},
    {.name = "circles of sequences",
     .seen = "damaged documents: sequences that are nested in themselves, directly or through "
             "others",
     .does = "The item that closes the circle is skipped.",
     .file = "import/track_items.cpp"},
    {.name = "exact points of video",
     .seen = "documents of this system",
     .does = "`velaTicksIn` and `velaTicksOut` count for video as they do for audio: a clip with "
             "another speed keeps its frames.",
     .file = "import/item_clips.cpp"},
    {.name = "exact points at transitions",
     .seen = "documents of this system with items of another rate than the sequence",
     .does = "Beside a transition that is before or behind the cut, `velaTicksIn` and "
             "`velaTicksOut` move with the edge instead of following from the length of the item, "
             "which need not be a whole number of its frames.",
     .file = "xmeml/cut_points.cpp"},
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
