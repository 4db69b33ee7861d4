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
     "The effect <$1> is switched off and was skipped.",
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
     "The sequence has more than two outputs; the pan $2 of the clip can't be kept.",
     "Assign the track to its outputs anew."},
    {Kind::PanOfTrack, "pan.track", Outcome::Lost, Severity::Warning,
     "The track or the master can't be panned by $2.", "Pan the track anew."},
    {Kind::PanOfClip, "pan.clip", Outcome::Lost, Severity::Warning,
     "The clip can't be panned by $2 on its track.", "Pan the track instead."},
    {Kind::TrackFilter, "track.filter", Outcome::Lost, Severity::Warning,
     "The filter <$1> of the track or the master has no counterpart.",
     "Apply a similar effect to the track."},
    {Kind::BrowserClipEffect, "browser-clip.effect", Outcome::Lost, Severity::Warning,
     "The effect <$1> of the browser clip has no counterpart.",
     "Apply the effect to the clips of the cut."},
    {Kind::KeyframeUnpaired, "keyframe.unpaired", Outcome::Lost, Severity::Note,
     "In <$1>, keyframes of the center and of $2 count in pairs; one is without a partner.",
     "Check the movement of the clip."},
    {Kind::FilterRange, "effect.range", Outcome::Changed, Severity::Warning,
     "The filter <$1> applies to frames $2 of the clip only; now it applies to all of it.",
     "Cut the clip at the edges of the filter."},
    {Kind::EffectTwice, "effect.twice", Outcome::Lost, Severity::Warning,
     "The clip has <$1> more than once; only one of them is kept.",
     "Nest the clip and apply the second one to the nest."},
    {Kind::FileWithoutMedia, "file.without-media", Outcome::Skipped, Severity::Error,
     "The file states nothing about its media.", "Relink the clip to its file."},
    {Kind::MulticlipIncomplete, "multiclip.incomplete", Outcome::Skipped, Severity::Error,
     "The multiclip <$1> states no $2.", "Collapse the multiclip before the export."},
    {Kind::MulticlipAngles, "multiclip.angles", Outcome::Lost, Severity::Warning,
     "Only the active angle of the multiclip is kept.",
     "Collapse the multiclip before the export."},
    {Kind::GeneratorInBin, "generator.in-bin", Outcome::Skipped, Severity::Warning,
     "The generator <$1> of a bin has no counterpart.", "Make the generator anew."},
    {Kind::ProjectSecond, "document.second-project", Outcome::Skipped, Severity::Error,
     "The document holds another project <$1>, which was not read.",
     "Export each project to a document of its own."},
    {Kind::OutsideProject, "document.outside-project", Outcome::Skipped, Severity::Error,
     "The $2 <$1> is not in the list of a project or bin and was not read.",
     "Move it into the project and export anew."},
    {Kind::LabelWithoutColor, "label.without-color", Outcome::Lost, Severity::Note,
     "The label <$1> has no color.", "Choose a label anew."},
    {Kind::GainMutes, "audio.gain-mutes", Outcome::Changed, Severity::Warning,
     "The gain of $2 dB is read as a factor and mutes the clip.", "Set the gain anew."},
    {Kind::FilterUnnamed, "effect.unnamed", Outcome::Lost, Severity::Warning,
     "A filter states neither the name nor the id of its effect.", "Apply the effect anew."},
    {Kind::EffectsWithoutRate, "clip.without-rate", Outcome::Lost, Severity::Warning,
     "Nothing states the frame rate of the clip; its effects were not read.",
     "Apply the effects anew."},
    {Kind::KeyframesLost, "effect.keyframes", Outcome::Lost, Severity::Warning,
     "The keyframes of $2 of <$1> have no counterpart; the first value is kept.",
     "Set the keyframes anew, or render the clip with its effect."},
    {Kind::KeyframeWithoutValue, "keyframe.without-value", Outcome::Lost, Severity::Note,
     "A keyframe of $2 of <$1> states no value.", ""},
    {Kind::ValueLimited, "effect.value", Outcome::Changed, Severity::Warning,
     "The value of $2 of <$1> has no exact counterpart; the nearest one is used.",
     "Compare the clip in both programs."},
    {Kind::BypassLost, "effect.bypass", Outcome::Changed, Severity::Warning,
     "The effect <$1> is bypassed in the document and on in the project.",
     "Switch the effect off."},
    {Kind::GainAsFactor, "audio.gain-factor", Outcome::Changed, Severity::Warning,
     "The gain of $2 dB is read as a factor.", "Set the gain anew."},
    {Kind::LookUnreadable, "look.unreadable", Outcome::Lost, Severity::Warning,
     "The file $2 of the look <$1> holds nothing that can be read as a look.",
     "Save the look or the lookup table anew and convert again."},
    {Kind::TransitionAlone, "transition.without-clips", Outcome::Lost, Severity::Warning,
     "No clip is beside the transition <$1>.", "Apply the transition anew."},
    {Kind::TransitionAlignment, "transition.alignment", Outcome::Assumed, Severity::Note,
     "The alignment $2 of the transition <$1> is not known; it is centered on the cut.", ""},
    {Kind::TitleStands, "title.motion", Outcome::Lost, Severity::Warning,
     "The title <$1> moves in the document and stands still in the project.",
     "Animate the title anew."},
    {Kind::TitleFont, "title.font", Outcome::Changed, Severity::Warning,
     "The font $2 of the title <$1> is not a known one; another font replaces it.",
     "Choose the font of the title anew."},
    {Kind::RateAssumed, "sequence.rate", Outcome::Assumed, Severity::Warning,
     "The sequence states no frame rate; it has 29.97 frames a second.",
     "Check the times of the cut."},
    {Kind::MarkerWithoutTime, "marker.without-time", Outcome::Assumed, Severity::Note,
     "The marker <$1> states no time; it is at the start.", "Move the marker."},
    {Kind::LinkUnknown, "link.unknown", Outcome::Lost, Severity::Note,
     "The clip is linked to $2, which is not in the sequence.", "Link the clips anew."},
    {Kind::FileTwice, "file.same-id", Outcome::Skipped, Severity::Error,
     "The file <$1> has the id $2 of another file, which is used instead.",
     "Relink the clips of the file."},
    {Kind::SequenceTwice, "sequence.same-id", Outcome::Skipped, Severity::Error,
     "The sequence has the id $2 of the sequence <$1>, which is used instead.",
     "Export the sequence to a document of its own."},
    {Kind::SequenceAsStill, "sequence.as-still", Outcome::Skipped, Severity::Error,
     "The sequence begins with a freeze frame and was taken for a still.",
     "Export the sequence without the freeze frame at its start."},
    {Kind::ChannelAssumed, "audio.channel", Outcome::Assumed, Severity::Warning,
     "The media of the clip has no channel $2; the clip plays another one.",
     "Check what the clip plays."},
    {Kind::OutputsLost, "sequence.outputs", Outcome::Lost, Severity::Warning,
     "The sequence has $2 outputs, of which 32 are kept.", "Assign the tracks to outputs anew."},
    {Kind::MergedClipMoved, "merged-clip.moved", Outcome::Changed, Severity::Note,
     "The merged clip is not in its bin but beside all bins.", "Move the clip into its bin."},
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
     "Label and range of a sequence first met in another are not written.", ""},
    {Kind::CaptionUnsupported, "caption.unsupported", Outcome::Lost, Severity::Warning,
     "Captions have no counterpart.", "Export the captions as a file of their own."},
    {Kind::BlurDirection, "effect.blur-direction", Outcome::Lost, Severity::Note,
     "The direction of the blur <$1> has no counterpart.", "Choose a directional blur anew."},
    {Kind::BinTooDeep, "bin.too-deep", Outcome::Changed, Severity::Note,
     "Bins nest too deeply; this one is beside the last one written.", ""},
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
