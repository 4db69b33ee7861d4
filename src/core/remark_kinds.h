// The kinds of remarks, and the one table that says what each means and what a user can do.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace XPJ {

enum class RemarkKind : std::uint8_t {
    // Of the report
    GeneratorUnsupported,
    EffectUnsupported,
    EffectConditional,
    EffectApproximate,
    CompositeModeUnsupported,
    TransitionToConstantPower,
    TransitionToDissolve,
    TransitionToCrossFade,
    DipToColor,
    LevelClamped,
    DocumentVersion,
    StartExtended,
    EndExtended,
    FilterIncomplete,
    InPointInvalid,
    EdgesInvalid,
    LookMissing,
    GeneratorToSlug,
    MergedClipAsSequence,
    MulticamUnsupported,
    InvalidBytes,
    UnknownEncoding,

    // Of both directions
    ClipWithoutMedia,
    SequenceWithoutFormat,
    SequenceInItself,
    DocumentCutOff,
    DialectAssumed,
    ElementUnread,
    ElementUnknown,
    EffectParameterLost,
    EffectDisabledLost,
    KeyframeInterpolation,
    SpeedCurveOfAudio,
    FrameHold,
    TimesAssumed,
    TransitionCut,
    Unexplained,
    MediaPathMapped,
    MediaRelinked,
    MediaAmbiguous,
    MediaNotFound,

    // Of the import
    CompositeModeUnknown,
    TransitionWithoutEffect,
    PanManyOutputs,
    PanOfTrack,
    PanOfClip,
    TrackFilter,
    BrowserClipEffect,
    KeyframeUnpaired,
    FilterRange,
    EffectTwice,
    FileWithoutMedia,
    MulticlipIncomplete,
    MulticlipAngles,
    GeneratorInBin,
    ProjectSecond,
    OutsideProject,
    LabelWithoutColor,
    GainMutes,
    FilterUnnamed,
    EffectsWithoutRate,
    KeyframesLost,
    KeyframeWithoutValue,
    ValueLimited,
    BypassLost,
    GainAsFactor,
    LookUnreadable,
    TransitionAlone,
    TransitionAlignment,
    TitleStands,
    TitleFont,
    RateAssumed,
    MarkerWithoutTime,
    LinkUnknown,
    FileTwice,
    SequenceTwice,
    SequenceAsStill,
    ChannelAssumed,
    OutputsLost,
    MergedClipMoved,
    MergedClipPart,
    ScaleAssumed,
    TitleKind,
    MasterShared,
    LayersAsClips,
    PointRounded,

    // Of the export
    FaderAutomation,
    TrackEffect,
    MasterEffect,
    MasterClipEffect,
    LinkOfFiles,
    SecondClipEffect,
    ChannelSilent,
    SequenceFirstMet,
    CaptionUnsupported,
    BlurDirection,
    BinTooDeep,
    SequenceUnknown,
    SequenceTooDeep,
    RateRounded,
    ProjectRenamed,
    TrackName,
    TrackPan,
    TrackOutputs,
    ChannelBeyondTrack,
    ClipSilent,
    EdgeRounded,
    ClipTooShort,
    KeyframeRounded,
    ValueClamped,
    EffectRenamed,
    ScaleOfTwo,
    AnchorOutOfStep,
    OpticalFlow,
    MulticamAngles,
    MulticamCut,
    AngleEffect,
    GeneratorEffect,
    TitleSimplified,
    TitleInOneLook,
    GraphicWithoutText,
    MarkerLost,
    MarkerKind,
    MarkerOutside,
    MarkerTrimmed,
    MarkerUnreadable,
    LabelLost,
    ClipComment,
    ClipRenamed,
    ClipOfFiles,
    PathAssumed,
    LinkTooLarge,
    ScaledToFrame,
    AdditionLost,
    EffectOfAdditions,
    TransitionOfNext,
};

// What became of something.
enum class RemarkOutcome : std::uint8_t { Lost, Changed, Assumed, Skipped };

// How much it matters in the finished film: an error is a clip that is missing or wrong, a warning
// something that is seen or heard, a note what only the project shows.
enum class Severity : std::uint8_t { Note, Warning, Error };

struct RemarkRow {
    RemarkKind kind;
    std::string_view id; // stable: programs distinguish kinds by it
    RemarkOutcome outcome;
    Severity severity;
    std::string_view reason; // default text; $1 is the subject, $2 the detail
    std::string_view remedy; // empty where there is nothing to do
};

std::span<const RemarkRow> RemarkRows();
const RemarkRow& RowOf(RemarkKind kind);

// Localisable keys of the two texts, with the default texts.
//   "$$$/Vela/FCP/Remark/pan.clip/Remedy=Pan the track instead."
std::string ReasonKey(const RemarkRow& row);
std::string RemedyKey(const RemarkRow& row);

std::string_view OutcomeText(RemarkOutcome outcome); // "lost", "changed", "assumed", "skipped"
std::string_view SeverityText(Severity severity);    // "note", "warning", "error"

} // namespace XPJ
