// The kinds of issues, and the one table of both directions that says how each is reported.
#pragma once

#include "core/messages.h"
#include "core/remark_kinds.h"

#include <string_view>

namespace XPJ {

enum class Direction { Import, Export };

// Kinds of the import; the numbers are those of the host's report.
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

// What of an issue an argument of its message is.
enum class IssueField { None, Sequence, Clip, Subject, Time };

// How its line in the report starts.
enum class IssueLine {
    Located,  // a tab, the location in the timeline, the message
    Indented, // a tab, the message
    Plain,    // the message
};

struct IssueKind {
    Direction direction;
    int number; // from 1 in each direction
    std::string_view name;
    Message message;
    IssueField first = IssueField::None; // its arguments
    IssueField second = IssueField::None;
    IssueLine line = IssueLine::Located;
    RemarkKind remark{}; // what it is in the account
};

// Null for a number that the direction doesn't have.
const IssueKind* FindIssueKind(Direction direction, int number) noexcept;

} // namespace XPJ
