#include "core/remark_kinds.h"

#include <cstddef>
#include <iterator>

namespace XPJ {

namespace {

using Kind = RemarkKind;
using Outcome = RemarkOutcome;

constexpr RemarkRow kRows[] = {
    // Of the report
    {Kind::GeneratorUnsupported, "generator.unsupported", Outcome::Lost, Severity::Error,
     "The generator <$1> has no counterpart; Transparent Video stands in its place.",
     "Render the generator to a file and cut it in, or make it anew in Vela."},
    {Kind::EffectUnsupported, "effect.unsupported", Outcome::Lost, Severity::Warning,
     "The effect <$1> has no counterpart.",
     "Render the clip with its effect, or find a similar effect and set it anew."},
    {Kind::EffectApproximate, "effect.approximate", Outcome::Changed, Severity::Warning,
     "The corrector <$1> was carried over approximately.",
     "Compare the clip with a reference frame and correct it."},
    {Kind::CompositeModeUnsupported, "composite-mode.unsupported", Outcome::Lost, Severity::Warning,
     "The composite mode has no counterpart; the clip is composited normally.",
     "Choose a similar mode, or render the composite."},
    {Kind::TransitionToConstantPower, "transition.to-constant-power", Outcome::Changed,
     Severity::Warning, "The transition <$1> became Constant Power.",
     "Listen to the cut and choose another fade where it matters."},
    {Kind::TransitionToDissolve, "transition.to-dissolve", Outcome::Changed, Severity::Warning,
     "The transition <$1> became Cross Dissolve.", "Choose a similar transition, or render it."},
    {Kind::TransitionToCrossFade, "transition.to-cross-fade", Outcome::Changed, Severity::Warning,
     "The transition <$1> became Cross Fade (0 dB).",
     "Listen to the cut and choose another fade where it matters."},
    {Kind::DipToColor, "transition.dip-to-color", Outcome::Changed, Severity::Note,
     "Dip To Color became Dip To Black.", "Choose the color anew."},
    {Kind::LevelClamped, "audio.level-clamped", Outcome::Changed, Severity::Warning,
     "A level above +6 dB was limited to +6 dB.", "Raise the gain of the clip by what is missing."},
    {Kind::MulticlipUnsupported, "multiclip.unsupported", Outcome::Lost, Severity::Error,
     "The multiclip has more than 4 angles.", "Collapse the multiclip before the export."},
    {Kind::DocumentVersion, "document.version", Outcome::Assumed, Severity::Warning,
     "Version $2 of the document is not a known one; it was read like the last known one.",
     "Check the result closely."},
    {Kind::StartExtended, "clip.start-extended", Outcome::Changed, Severity::Note,
     "The start of the clip was extended to hold its transition.", ""},
    {Kind::EndExtended, "clip.end-extended", Outcome::Changed, Severity::Note,
     "The end of the clip was extended to hold its transition.", ""},
    {Kind::FilterIncomplete, "effect.incomplete", Outcome::Lost, Severity::Warning,
     "The filter <$1> lacks required parameters.", "Apply the filter anew."},
    {Kind::InPointInvalid, "clip.in-invalid", Outcome::Changed, Severity::Error,
     "The in point is invalid; it became 0.", "Check which part of its media the clip shows."},
    {Kind::EdgesInvalid, "clip.edges-invalid", Outcome::Lost, Severity::Error,
     "The item has an invalid start or end.", "Cut the clip in anew."},
    {Kind::LookMissing, "look.missing", Outcome::Lost, Severity::Warning,
     "The look file of the clip could not be opened.",
     "Put the file at its path and convert again."},
    {Kind::GeneratorToSlug, "generator.to-slug", Outcome::Lost, Severity::Warning,
     "The generated item <$1> has no counterpart; a slug stands in its place.",
     "Render the item to a file and cut it in."},
    {Kind::MergedClipAsSequence, "merged-clip.as-sequence", Outcome::Changed, Severity::Note,
     "The merged clip was written as a sequence.", ""},
    {Kind::MulticamUnsupported, "multicam.unsupported", Outcome::Lost, Severity::Error,
     "A multicam item has no counterpart.", "Flatten the multicam clip before the export."},
    {Kind::InvalidBytes, "document.invalid-bytes", Outcome::Changed, Severity::Warning,
     "Bytes that mean nothing in the encoding $1 were replaced, at $2.",
     "Save the document anew as UTF-8."},
    {Kind::UnknownEncoding, "document.unknown-encoding", Outcome::Assumed, Severity::Warning,
     "The encoding $1 is unknown; the document was read as UTF-8.",
     "Save the document anew as UTF-8."},
    // Of both directions
    {Kind::ClipWithoutMedia, "clip.without-media", Outcome::Skipped, Severity::Error,
     "Nothing states what media the clip shows.",
     "Add the clip with its media to the document, or cut it in anew."},
    {Kind::SequenceWithoutFormat, "sequence.without-format", Outcome::Skipped, Severity::Error,
     "The sequence states no frame rate or format.",
     "Export the sequence anew from the program that made it."},
    {Kind::DocumentCutOff, "document.cut-off", Outcome::Lost, Severity::Error,
     "The document ends inside an element; what follows is missing.",
     "Export the document anew; this one is incomplete."},
    {Kind::DialectAssumed, "dialect.assumed", Outcome::Assumed, Severity::Note, "$2", ""},
    {Kind::ElementUnread, "element.unread", Outcome::Lost, Severity::Note,
     "What the document states here is not carried over.", ""},
    {Kind::ElementUnknown, "element.unknown", Outcome::Lost, Severity::Note,
     "The format has no such element here; it was ignored.", ""},
    {Kind::EffectParameterLost, "effect.parameter", Outcome::Lost, Severity::Warning,
     "The parameter $2 of <$1> has no counterpart.", "Set the effect again where it matters."},
    {Kind::EffectDisabledLost, "effect.disabled", Outcome::Lost, Severity::Note,
     "The effect <$1> is switched off and was left out.",
     "Apply it anew if it is to be used again."},
    {Kind::KeyframeInterpolation, "keyframe.interpolation", Outcome::Changed, Severity::Note,
     "The keyframes of <$1> have an interpolation that has no counterpart.",
     "Set the interpolation anew where motion matters."},
    {Kind::SpeedCurveOfAudio, "audio.speed-curve", Outcome::Lost, Severity::Warning,
     "The audio has a variable speed that has no counterpart.",
     "Render the retimed audio and cut it in."},
    {Kind::Unexplained, "unexplained", Outcome::Changed, Severity::Warning, "$1: before <$2>.",
     "Compare the clip in both programs."},
    // Of the import
    {Kind::CompositeModeUnknown, "composite-mode.unknown", Outcome::Lost, Severity::Warning,
     "The composite mode <$1> is not known; the clip is composited normally.",
     "Choose the mode anew."},
    {Kind::TransitionWithoutEffect, "transition.without-effect", Outcome::Lost, Severity::Warning,
     "A transition states no effect.", "Apply the transition anew."},
    {Kind::PanManyOutputs, "pan.many-outputs", Outcome::Lost, Severity::Warning,
     "The sequence has more than two outputs; the pan <$1> can't be kept.",
     "Assign the track to its outputs anew."},
    {Kind::PanOfTrack, "pan.track", Outcome::Lost, Severity::Warning, "The track can't be panned.",
     "Pan the track anew."},
    {Kind::PanOfClip, "pan.clip", Outcome::Lost, Severity::Warning,
     "The clip can't be panned on its track.", "Pan the track instead."},
    {Kind::TrackFilter, "track.filter", Outcome::Lost, Severity::Warning,
     "The filter <$1> of the track has no counterpart.", "Apply a similar effect to the track."},
    {Kind::BrowserClipEffect, "browser-clip.effect", Outcome::Lost, Severity::Warning,
     "The effect <$1> of the browser clip has no counterpart.",
     "Apply the effect to the clips of the cut."},
    {Kind::KeyframeUnpaired, "keyframe.unpaired", Outcome::Lost, Severity::Note,
     "A keyframe of <$1> has no partner among those of $2.", "Check the movement of the clip."},
    {Kind::FilterRange, "effect.range", Outcome::Changed, Severity::Warning,
     "The filter <$1> applies to a part of the clip only; now it applies to all of it.",
     "Cut the clip at the edges of the filter."},
    {Kind::EffectTwice, "effect.twice", Outcome::Lost, Severity::Warning,
     "The clip has <$1> a second time; only the first is kept.",
     "Nest the clip and apply the second one to the nest."},
    {Kind::FileWithoutMedia, "file.without-media", Outcome::Skipped, Severity::Error,
     "The file states nothing about its media.", "Relink the clip to its file."},
    {Kind::MulticlipIncomplete, "multiclip.incomplete", Outcome::Skipped, Severity::Error,
     "The multiclip states no $2.", "Collapse the multiclip before the export."},
    {Kind::MulticlipAngles, "multiclip.angles", Outcome::Lost, Severity::Warning,
     "Angles of the multiclip were left out.", "Collapse the multiclip before the export."},
    {Kind::GeneratorInBin, "generator.in-bin", Outcome::Skipped, Severity::Warning,
     "The generator <$1> of a bin has no counterpart.", "Make the generator anew."},
    {Kind::ProjectSecond, "document.second-project", Outcome::Skipped, Severity::Error,
     "The document holds another project.", "Export each project to a document of its own."},
    {Kind::OutsideProject, "document.outside-project", Outcome::Skipped, Severity::Error,
     "An element $2 beside the project was not read.", "Move it into the project and export anew."},
    {Kind::LabelWithoutColor, "label.without-color", Outcome::Lost, Severity::Note,
     "The label <$1> has no color.", "Choose a label anew."},
    {Kind::GainMutes, "audio.gain-mutes", Outcome::Changed, Severity::Warning,
     "The gain <$1> mutes the clip.", "Set the gain anew."},
    // Of the export
    {Kind::FaderAutomation, "fader.automation", Outcome::Lost, Severity::Warning,
     "The automation of the fader has no counterpart.",
     "Mix down the track, or set levels of clips."},
    {Kind::TrackEffect, "track.effect", Outcome::Lost, Severity::Warning,
     "The effect <$1> of the track has no counterpart.", "Render the track with its effect."},
    {Kind::MasterEffect, "master.effect", Outcome::Lost, Severity::Warning,
     "The effect <$1> of the master has no counterpart.", "Render the mix with its effect."},
    {Kind::MasterClipEffect, "master-clip.effect", Outcome::Lost, Severity::Warning,
     "The effect <$1> of the master clip has no counterpart.",
     "Apply the effect to the clips of the cut."},
    {Kind::LinkOfFiles, "link.files", Outcome::Lost, Severity::Note,
     "The link between clips of different files has no counterpart.", "Link the clips anew."},
    {Kind::SecondClipEffect, "bin-clip.second-effect", Outcome::Lost, Severity::Warning,
     "The media has effects of another bin clip already; those of this clip are lost.",
     "Apply the effects to the clips of the cut."},
    {Kind::ChannelSilent, "audio.silent-channel", Outcome::Lost, Severity::Note,
     "A channel of the clip without source has no counterpart.", ""},
    {Kind::SequenceFirstMet, "sequence.first-met", Outcome::Lost, Severity::Note,
     "Name, label and range of a sequence that is first met in another are not written.", ""},
    {Kind::CaptionUnsupported, "caption.unsupported", Outcome::Lost, Severity::Warning,
     "Captions have no counterpart.", "Export the captions as a file of their own."},
    {Kind::BlurDirection, "effect.blur-direction", Outcome::Lost, Severity::Note,
     "The direction of the blur <$1> has no counterpart.", "Choose a directional blur anew."},
    {Kind::BinTooDeep, "bin.too-deep", Outcome::Changed, Severity::Note,
     "Bins nest too deeply; this one is beside the last one written.", ""},
    {Kind::SequenceUnknown, "sequence.unknown", Outcome::Skipped, Severity::Error,
     "The project has no sequence $2.", "Choose one of the project's sequences."},
    {Kind::SequenceTooDeep, "sequence.too-deep", Outcome::Changed, Severity::Note,
     "Sequences nest too deeply; this one is written in the bin.", ""},
    {Kind::RateAssumed, "rate.assumed", Outcome::Assumed, Severity::Note,
     "Nothing states a frame rate; 29.97 was assumed.", "Check the frame rate."},
    {Kind::RateRounded, "rate.rounded", Outcome::Changed, Severity::Warning,
     "The format has no frame rate of $2; the nearest whole one was written.",
     "Conform the media or the sequence to a usual frame rate."},
    {Kind::ProjectRenamed, "project.renamed", Outcome::Lost, Severity::Note,
     "The name <$1> of the project is not written.", ""},
    {Kind::TrackName, "track.name", Outcome::Lost, Severity::Note,
     "The name <$1> of the track has no counterpart.", ""},
    {Kind::TrackPan, "track.pan", Outcome::Lost, Severity::Warning,
     "The pan of the track has no counterpart.", "Pan the clips of the track instead."},
    {Kind::TrackOutputs, "track.outputs", Outcome::Changed, Severity::Warning,
     "A channel of the track is not sent to exactly one output; it is sent to one now.",
     "Assign the channels to their outputs anew."},
    {Kind::ChannelBeyondTrack, "audio.channel-beyond-track", Outcome::Lost, Severity::Warning,
     "The clip has more channels than its track.", "Put the clip on a track with more channels."},
    {Kind::ClipSilent, "audio.silent-clip", Outcome::Skipped, Severity::Note,
     "No channel of the clip has a source.", ""},
    {Kind::EdgeRounded, "clip.edge-rounded", Outcome::Changed, Severity::Note,
     "An edge between two frames was moved to the frame before it.", ""},
    {Kind::KeyframeRounded, "keyframe.rounded", Outcome::Changed, Severity::Note,
     "Keyframes of <$1> between two frames were moved to the frame before them.", ""},
    {Kind::ValueClamped, "effect.value-clamped", Outcome::Changed, Severity::Warning,
     "The parameter $2 of <$1> exceeds the range of the format; it has the nearest value.",
     "Set the value again where it matters."},
    {Kind::EffectRenamed, "effect.renamed", Outcome::Lost, Severity::Note,
     "The user's name <$1> of an effect has no counterpart.", ""},
    {Kind::ScaleOfTwo, "motion.two-scales", Outcome::Changed, Severity::Warning,
     "Height and width have keyframes of their own; those of the larger one apply to both.",
     "Nest the clip and scale the nest in one direction."},
    {Kind::AnchorOutOfStep, "motion.anchor", Outcome::Changed, Severity::Warning,
     "Position and anchor point have keyframes at different times; the movement differs between "
     "them.",
     "Give both keyframes at the same times."},
    {Kind::OpticalFlow, "speed.optical-flow", Outcome::Changed, Severity::Warning,
     "Frames made by optical flow have no counterpart; frames are blended.",
     "Render the retimed clip and cut it in."},
    {Kind::MulticamAngles, "multicam.angles", Outcome::Lost, Severity::Note,
     "Of the multicam clip only the active angle is written.", ""},
    {Kind::MulticamCut, "multicam.cut", Outcome::Lost, Severity::Error,
     "The active angle has a cut inside the item; only the clip before it is written.",
     "Flatten the multicam clip before the export."},
    {Kind::AngleEffect, "multicam.angle-effect", Outcome::Lost, Severity::Warning,
     "The effect <$1> inside the multicam clip has no counterpart.",
     "Apply the effect to the clips of the cut."},
    {Kind::GeneratorEffect, "generator.effect", Outcome::Lost, Severity::Warning,
     "The effect <$1> of the generator has no counterpart.",
     "Nest the generator and apply the effect to the nest."},
    {Kind::TitleSimplified, "title.simplified", Outcome::Changed, Severity::Warning,
     "Of the title <$1> only words, font, size, color and position are written.",
     "Render the title to a file and cut it in."},
    {Kind::TitleInOneLook, "title.one-look", Outcome::Changed, Severity::Note,
     "Other programs show all lines of the graphic <$1> in the look of the first one.",
     "Render the graphic to a file where others need it."},
    {Kind::MarkerLost, "marker.lost", Outcome::Lost, Severity::Note,
     "A marker of the kind $2 has no counterpart.", ""},
    {Kind::MarkerKind, "marker.kind", Outcome::Changed, Severity::Note,
     "A marker of the kind $2 became an ordinary one.", ""},
    {Kind::MarkerOutside, "marker.outside", Outcome::Lost, Severity::Note,
     "A marker lies outside of the part of its media that is shown.", ""},
    {Kind::MarkerTrimmed, "marker.trimmed", Outcome::Changed, Severity::Note,
     "A marker was shortened to the part of its media that is shown.", ""},
    {Kind::MarkerUnreadable, "marker.unreadable", Outcome::Lost, Severity::Note,
     "The record of a marker can't be read.", "Set the marker anew."},
    {Kind::LabelLost, "label.lost", Outcome::Lost, Severity::Note,
     "The label <$1> has no counterpart.", "Choose one of the host's label colors."},
    {Kind::ClipComment, "clip.comment", Outcome::Lost, Severity::Note,
     "The comment of the clip in the bin has no counterpart.",
     "Move it to one of the master comments."},
    {Kind::ClipRenamed, "clip.renamed", Outcome::Lost, Severity::Note,
     "The clip's own name in the bin is not written; it has that of its media.", ""},
    {Kind::ClipOfFiles, "clip.second-file", Outcome::Lost, Severity::Warning,
     "The clip shows several files; <$1> is not written.",
     "Sync the files in a sequence instead of a clip."},
    {Kind::PathAssumed, "file.without-path", Outcome::Assumed, Severity::Warning,
     "Nothing states the path of the media; its name was written as one.", "Relink the clip to its file."},
    {Kind::MatteColor, "media.matte-color", Outcome::Lost, Severity::Note,
     "The matte color $2 of the alpha channel has no counterpart.", ""},
    {Kind::LinkTooLarge, "link.too-large", Outcome::Lost, Severity::Note,
     "Too many clips are linked to each other; they are written without links.",
     "Link the clips anew."},
};

constexpr bool AreInOrder()
{
    for (std::size_t i = 0; i < std::size(kRows); ++i)
        if (static_cast<std::size_t>(kRows[i].kind) != i)
            return false;
    return true;
}
static_assert(AreInOrder());

std::string Key(const RemarkRow& row, std::string_view part, std::string_view text)
{
    return std::string("$$$/Vela/FCP/Remark/").append(row.id).append(part).append(text);
}

} // namespace

std::span<const RemarkRow> RemarkRows()
{
    return kRows;
}

const RemarkRow& RowOf(RemarkKind kind)
{
    return kRows[static_cast<std::size_t>(kind)];
}

std::string ReasonKey(const RemarkRow& row)
{
    return Key(row, "/Reason=", row.reason);
}

std::string RemedyKey(const RemarkRow& row)
{
    return Key(row, "/Remedy=", row.remedy);
}

std::string_view OutcomeText(RemarkOutcome outcome)
{
    constexpr std::string_view kTexts[] = {"lost", "changed", "assumed", "skipped"};
    return kTexts[static_cast<std::size_t>(outcome)];
}

std::string_view SeverityText(Severity severity)
{
    constexpr std::string_view kTexts[] = {"note", "warning", "error"};
    return kTexts[static_cast<std::size_t>(severity)];
}

} // namespace XPJ
