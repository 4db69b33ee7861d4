// All texts that a user sees, each as a localisable key with its default text.
//
// A key reads "$$$/Vela/FCP/OK=OK". The running locale's text comes from the platform's localiser
// (platform/platform.h, `GetMessage`); $1 and $2 in the text are its arguments.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace XPJ {

enum class Message : int {
    kFCPXML,
    kFCPXMLInterchangeFormat,
    kImportingFCPXML,
    kOK,
    kCancel,
    kFCPXMLImportFailed,
    kAborted,
    kInputCouldNotBeOpened,
    kNoXMELM,
    kNoFCPDataFound,
    kOutOfMemory,
    kUnexpectedError,
    kFinalCutProProject,
    kBlackVideo,
    kTransparentVideo,
    kLayer,
    kTranslationIssue,
    kVideoTrack,
    kAudioTrack,
    kUnrecognizedXMLVersion,
    kGeneratorNotTranslated,
    kSequence,
    kGeneratorNotTranslated2,
    kEffectNotTranslated,
    kThreeWayApproximation,
    kCompositeModeNotSupported,
    kAudioLevelClamped,
    kConstantPowerTransitionNotTranslated,
    kCrossDissolveTransitionNotTranslated,
    kDipToColorNotTranslated,
    kMulticlipNotTranslated,
    kMissingLookLUT,
    kTranslationReport,
    kTranslationResultsReport,
    kTranslationResults,
    kFinalCutProXML,
    kOrrinVelaProProject,
    kExportingFCPXML,
    kTranslationResultsXML,
    kUnrecognizedVelaProVersion,
    kSyntheticNotTranslated,
    kCompositeModeNotSUpported,
    kTransitionNotSupported,
    kStartOfClipExtended,
    kEndOfClipExtended,
    kInvalidLowPassFilterParameters,
    kInvalidHighPassFilterParameters,
    kInvalidBandPassFilterParameters,
    kMergedClipExportedAsSequence,
    kMulticamExportNotSupported,
    kAudio,
    kInvalidPanFilterParameters,
    kInvalidInPoint,
    kCannotCreateFile,
    kCannotCreateFileTitle,
    kInvalidStartEnd,

    // Texts that the host's table doesn't have.
    kInvalidBytes = 1000,
    kUnknownEncoding,
};

constexpr int kMessageCount = 56; // of the host's table

// The whole key string of a message, the empty string for a number out of range.
std::string_view MessageKey(Message message) noexcept;

// The default text of a key: what follows its first "=".
std::string_view DefaultText(std::string_view key) noexcept;

// Replaces, for each argument in turn, the first "$" + its number; a later one stays.
//   FormatMessage("$1 on $2", {"Sepia", "A"}) == "Sepia on A"
std::string FormatMessage(std::string_view text, std::initializer_list<std::string_view> arguments);

} // namespace XPJ
