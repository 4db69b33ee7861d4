// Findings: what a conversion could not carry over, with the place in the timeline.
#pragma once

#include <set>
#include <string>
#include <vector>

namespace XPJ {

// Kinds of the import; the numbers are part of the report's table.
enum class ImportIssue : int {
    GeneratorNotTranslated2 = 1,
    GeneratorNotTranslated = 2,
    EffectNotTranslated = 3,
    ThreeWayApproximation = 4,
    CompositeModeNotSupported = 5,
    ConstantPowerTransitionNotTranslated = 6,
    CrossDissolveTransitionNotTranslated = 7,
    DipToColorNotTranslated = 8,
    AudioLevelClamped = 9,
    MulticlipNotTranslated = 10,
    UnrecognizedXMLVersion = 11,
    StartOfClipExtended = 12,
    EndOfClipExtended = 13,
    InvalidLowPassFilterParameters = 14,
    InvalidHighPassFilterParameters = 15,
    InvalidBandPassFilterParameters = 16,
    InvalidPanFilterParameters = 17,
    InvalidInPoint = 18,
    MissingLookLUT = 19,
    InvalidStartEnd = 20,
    InvalidBytes = 21,
    UnknownEncoding = 22,
};

// Kinds of the export.
enum class ExportIssue : int {
    UnrecognizedVelaProVersion = 1,
    SyntheticNotTranslated = 2,
    EffectNotTranslated = 3,
    CompositeModeNotSupported = 4,
    TransitionNotSupported = 5,
    CrossDissolveTransitionNotTranslated = 6,
    ThreeWayApproximation = 7,
    MergedClipExportedAsSequence = 8,
    MulticamExportNotSupported = 9,
    EffectNotTranslatedHeadless = 10,
    InvalidBytes = 11,
    UnknownEncoding = 12,
};

// A name with the word that the host's record carries before it.
struct IssueName {
    int word = 0;
    std::string text;
};

// `trackKind` of what stands on no track: within a sequence that is its sound as a whole, without
// one an effect of a medium or what concerns the document.
constexpr int kNoTrack = 3;

struct TranslationIssue {
    int kind = 0;
    IssueName sequence;
    IssueName clip;
    IssueName subject; // effect, transition or generator
    int trackKind = 0; // 1 video, anything else audio; 3 where there is no track
    int trackIndex = 0;
    // Timecode of the place; for findings about the document the version's text, or line and
    // column.
    std::string time;
};

// The report's order. `kind` is no part of it: two findings that differ in kind alone are one, and
// the first stays.
struct IssueOrder {
    bool operator()(const TranslationIssue& a, const TranslationIssue& b) const;
};

using IssueSet = std::set<TranslationIssue, IssueOrder>;

// Clips and sequences of which nothing says what media they show: an import passes over them, an
// export writes them without media. No finding stands for them; their places are kept so that a
// front end can tell. A record without `clip` is a sequence, one without `sequence` a clip of a
// bin.
using SkippedList = std::vector<TranslationIssue>;

enum class Direction { Import, Export };

} // namespace XPJ
