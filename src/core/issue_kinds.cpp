#include "core/issue_kinds.h"

#include <algorithm>
#include <iterator>

namespace XPJ {

namespace {

using I = ImportIssue;
using E = ExportIssue;
using M = Message;
using L = IssueLine;
using F = IssueField;

constexpr IssueKind Row(ImportIssue number, std::string_view name, Message message, L line,
                        F first = F::None, F second = F::None)
{
    return {Direction::Import, static_cast<int>(number), name, message, first, second, line};
}

constexpr IssueKind Row(ExportIssue number, std::string_view name, Message message, L line,
                        F first = F::None, F second = F::None)
{
    return {Direction::Export, static_cast<int>(number), name, message, first, second, line};
}

constexpr IssueKind kKinds[] = {
    Row(I::GeneratorNotTranslated2, "GeneratorNotTranslated2", M::kGeneratorNotTranslated2,
        L::Located, F::Subject),
    Row(I::GeneratorNotTranslated, "GeneratorNotTranslated", M::kGeneratorNotTranslated,
        L::Indented, F::Subject, F::Sequence),
    Row(I::EffectNotTranslated, "EffectNotTranslated", M::kEffectNotTranslated, L::Located,
        F::Subject, F::Clip),
    Row(I::ThreeWayApproximation, "ThreeWayApproximation", M::kThreeWayApproximation, L::Located,
        F::Clip),
    Row(I::CompositeModeNotSupported, "CompositeModeNotSupported", M::kCompositeModeNotSupported,
        L::Located, F::Subject, F::Clip),
    Row(I::ConstantPowerTransitionNotTranslated, "ConstantPowerTransitionNotTranslated",
        M::kConstantPowerTransitionNotTranslated, L::Located, F::Subject),
    Row(I::CrossDissolveTransitionNotTranslated, "CrossDissolveTransitionNotTranslated",
        M::kCrossDissolveTransitionNotTranslated, L::Located, F::Subject),
    Row(I::DipToColorNotTranslated, "DipToColorNotTranslated", M::kDipToColorNotTranslated,
        L::Located),
    Row(I::AudioLevelClamped, "AudioLevelClamped", M::kAudioLevelClamped, L::Located, F::Subject,
        F::Clip),
    Row(I::MulticlipNotTranslated, "MulticlipNotTranslated", M::kMulticlipNotTranslated, L::Located,
        F::Clip),
    Row(I::UnrecognizedXMLVersion, "UnrecognizedXMLVersion", M::kUnrecognizedXMLVersion,
        L::Indented, F::Time),
    Row(I::StartOfClipExtended, "StartOfClipExtended", M::kStartOfClipExtended, L::Located),
    Row(I::EndOfClipExtended, "EndOfClipExtended", M::kEndOfClipExtended, L::Located),
    Row(I::InvalidLowPassFilterParameters, "InvalidLowPassFilterParameters",
        M::kInvalidLowPassFilterParameters, L::Located),
    Row(I::InvalidHighPassFilterParameters, "InvalidHighPassFilterParameters",
        M::kInvalidHighPassFilterParameters, L::Located),
    Row(I::InvalidBandPassFilterParameters, "InvalidBandPassFilterParameters",
        M::kInvalidBandPassFilterParameters, L::Located),
    Row(I::InvalidPanFilterParameters, "InvalidPanFilterParameters", M::kInvalidPanFilterParameters,
        L::Located),
    Row(I::InvalidInPoint, "InvalidInPoint", M::kInvalidInPoint, L::Indented),
    Row(I::MissingLookLUT, "MissingLookLUT", M::kMissingLookLUT, L::Indented, F::Clip),
    Row(I::InvalidStartEnd, "InvalidStartEnd", M::kInvalidStartEnd, L::Plain, F::Clip),
    Row(I::InvalidBytes, "InvalidBytes", M::kInvalidBytes, L::Indented, F::Subject, F::Time),
    Row(I::UnknownEncoding, "UnknownEncoding", M::kUnknownEncoding, L::Indented, F::Subject),
    Row(E::UnrecognizedVelaProVersion, "UnrecognizedVelaProVersion", M::kUnrecognizedVelaProVersion,
        L::Indented, F::Time),
    Row(E::SyntheticNotTranslated, "SyntheticNotTranslated", M::kSyntheticNotTranslated,
        L::Indented, F::Clip),
    Row(E::EffectNotTranslated, "EffectNotTranslated", M::kEffectNotTranslated, L::Located,
        F::Subject, F::Clip),
    Row(E::CompositeModeNotSupported, "CompositeModeNotSupported", M::kCompositeModeNotSUpported,
        L::Located, F::Clip),
    Row(E::TransitionNotSupported, "TransitionNotSupported", M::kTransitionNotSupported, L::Located,
        F::Subject),
    Row(E::CrossDissolveTransitionNotTranslated, "CrossDissolveTransitionNotTranslated",
        M::kCrossDissolveTransitionNotTranslated, L::Located, F::Subject),
    Row(E::ThreeWayApproximation, "ThreeWayApproximation", M::kThreeWayApproximation, L::Located,
        F::Clip),
    Row(E::MergedClipExportedAsSequence, "MergedClipExportedAsSequence",
        M::kMergedClipExportedAsSequence, L::Indented, F::Clip),
    Row(E::MulticamExportNotSupported, "MulticamExportNotSupported", M::kMulticamExportNotSupported,
        L::Located, F::Clip),
    Row(E::EffectNotTranslatedHeadless, "EffectNotTranslatedHeadless", M::kEffectNotTranslated,
        L::Indented, F::Subject, F::Clip),
    Row(E::InvalidBytes, "InvalidBytes", M::kInvalidBytes, L::Indented, F::Subject, F::Time),
    Row(E::UnknownEncoding, "UnknownEncoding", M::kUnknownEncoding, L::Indented, F::Subject),
};

} // namespace

const IssueKind* FindIssueKind(Direction direction, int number) noexcept
{
    const auto found = std::ranges::find_if(kKinds, [=](const IssueKind& kind) {
        return kind.direction == direction && kind.number == number;
    });
    return found == std::end(kKinds) ? nullptr : &*found;
}

} // namespace XPJ
