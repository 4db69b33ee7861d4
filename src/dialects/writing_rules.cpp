// What other programs read: the rules between the export and the writer.
#include "dialects/dialects.h"
#include "dialects/generators.h"
#include "dialects/pass.h"
#include "dialects/writing_effects.h"
#include "dialects/writing_files.h"
#include "dialects/writing_slugs.h"
#include "dialects/writing_structure.h"

namespace XPJ {

namespace {

constexpr DialectRule kWritingRules[] = {
    // ---- Structure, files and links
    {.name = "slugs",
     .seen = "any reader; a slug is read as a sequence of black video, which is no slug to others",
     .does = "A sequence that an earlier import made of a slug is written as the slug, so that no "
             "pass adds a sequence. The clip of black video that such an import adds to the bin is "
             "not written, unless an item shows it.",
     .apply = WriteSlugsAsSlugs},
    {.name = "media without a path",
     .seen = "any reader; a slug hides that media is missing",
     .does = "An offline file with the name of the media, instead of a slug. Its `pathurl` is that "
             "name; `velaOffline` marks it as no path.",
     .file = "export/files.cpp"},
    {.name = "whole files",
     .seen = "readers that take one sequence out of a document, or look no further than it",
     .does = "A `file` is written whole at its first use in each sequence, and among the clips of "
             "bins. A repeated one has the same id, and no filters. Later uses state its name and "
             "path beside the id.",
     .apply = WriteFilesWhole},
    {.name = "one sequence",
     .seen = "readers that expect what an editor exports of one sequence",
     .does = "With `--sequence` the `sequence` is directly in `xmeml`, without project and bins.",
     .apply = PutSequenceFirst},
    {.name = "links across files",
     .seen = "readers that move linked video and audio together; most recordings have audio files "
             "of their own",
     .does = "Each item names all items of its group, whatever they show. In groups of more than "
             "256 items each names itself and the first one, which names all.",
     .file = "export/links.cpp"},
    {.name = "multiclips",
     .seen = "any reader; a multiclip of a project is a sequence with a track for each angle",
     .does = "An item of a multiclip is written as the clip of its active angle.",
     .file = "export/items.cpp"},
    {.name = "markers of clips",
     .seen = "any reader; markers of clips count from the start of the media",
     .does = "Their times are written as they are, without the in point of the clip.",
     .file = "export/clips.cpp"},
    {.name = "markers between frames",
     .seen = "projects with markers at samples of audio",
     .does = "They go to the nearest frame.",
     .file = "export/markers.cpp"},
    {.name = "sequences in themselves",
     .seen = "any reader; those that follow each item to its source don't end",
     .does =
         "An item that shows a sequence which it is in, directly or through others, is offline.",
     .file = "export/items.cpp"},
    // ---- Generated video
    {.name = "generated video",
     .seen = "any reader; a file without a path stops some, and a slug has no text",
     .does = "A `generatoritem` of the effect that others know: a title is a Text, Lower 3rd, "
             "Scrolling Text or Crawl with its words, black video is a Slug, a matte is a Color. "
             "The effects of a graphic, filters, markers and labels are written with it. Bars and "
             "tone stay a file.",
     .file = "export/generators.cpp"},
    {.name = "styles of written titles",
     .seen = "the published examples: plain, bold, italic and both count from 1",
     .does = "`fontstyle` has those numbers; `velaStyle` beside it is that of the import.",
     .apply = WriteTitleStyles},

    {.name = "good takes",
     .seen = "the logging of Final Cut itself",
     .does = "`good` of the `logginginfo` states the mark of the clip in the bin.",
     .file = "export/clips.cpp"},

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
    {.name = "audio alone",
     .seen = "sound that is conformed by its timecode",
     .does = "The file and its clip count in the rate that the logging of the clip states.",
     .file = "export/files.cpp"},
    {.name = "held frames",
     .seen = "clips of a project that hold a frame, which documents to the letter don't have",
     .does = "`stillframe` and `stillframeoffset` of the item, which count in its rate.",
     .file = "export/video_items.cpp"},
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
    {.name = "effects without name",
     .seen = "readers that look effects up by id",
     .does = "A `filter` whose `effect` has neither name nor id is not written. Transitions and "
             "generators always have both.",
     .applyToEffect = RemoveNameless},
    {.name = "pan",
     .seen = "readers that look parameters up by id",
     .does = "The `parameterid` of a pan is `pan`.",
     .applyToEffect = NamePan},
    {.name = "held values",
     .seen = "keyframes with hold interpolation, which documents do not have",
     .does = "The value is repeated a frame before the next keyframe. `velaHold` marks both, so "
             "that they come back as one.",
     .applyToEffect = WriteSteps},
    {.name = "bypassed effects",
     .seen = "readers that look at the `filter` alone",
     .does = "The `filter` of a bypassed effect has `enabled` FALSE.",
     .applyToEffect = SwitchOffBypassed},
    {.name = "channels of mono audio",
     .seen = "readers that go by the layout and the labels of the channels",
     .does =
         "Each channel states `layout` mono and a discrete `channellabel`, as pairs state theirs.",
     .apply = LabelMonoAudio},
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

void RestateForOthers(Document& document, ObjectHandle root, const WritingRequest& request,
                      AssumptionList& assumptions)
{
    DialectPass(document, root, assumptions, request).Run(kWritingRules);
}

} // namespace XPJ
