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
using R = RemarkKind;

constexpr IssueKind Row(ImportIssue number, R remark, std::string_view name, Message message,
                        L line, F first = F::None, F second = F::None)
{
    return {
        Direction::Import, static_cast<int>(number), name, message, first, second, line, remark};
}

constexpr IssueKind Row(ExportIssue number, R remark, std::string_view name, Message message,
                        L line, F first = F::None, F second = F::None)
{
    return {
        Direction::Export, static_cast<int>(number), name, message, first, second, line, remark};
}

constexpr IssueKind kKinds[] = {
    Row(I::GeneratorNotTranslated2, R::GeneratorUnsupported, "GeneratorNotTranslated2",
        M::kGeneratorNotTranslated2, L::Located, F::Subject),
    Row(I::GeneratorNotTranslated, R::GeneratorUnsupported, "GeneratorNotTranslated",
        M::kGeneratorNotTranslated, L::Indented, F::Subject, F::Sequence),
    Row(I::EffectNotTranslated, R::EffectUnsupported, "EffectNotTranslated",
        M::kEffectNotTranslated, L::Located, F::Subject, F::Clip),
    Row(I::ThreeWayApproximation, R::EffectApproximate, "ThreeWayApproximation",
        M::kThreeWayApproximation, L::Located, F::Clip),
    Row(I::CompositeModeNotSupported, R::CompositeModeUnsupported, "CompositeModeNotSupported",
        M::kCompositeModeNotSupported, L::Located, F::Subject, F::Clip),
    Row(I::ConstantPowerTransitionNotTranslated, R::TransitionToConstantPower,
        "ConstantPowerTransitionNotTranslated", M::kConstantPowerTransitionNotTranslated,
        L::Located, F::Subject),
    Row(I::CrossDissolveTransitionNotTranslated, R::TransitionToDissolve,
        "CrossDissolveTransitionNotTranslated", M::kCrossDissolveTransitionNotTranslated,
        L::Located, F::Subject),
    Row(I::DipToColorNotTranslated, R::DipToColor, "DipToColorNotTranslated",
        M::kDipToColorNotTranslated, L::Located),
    Row(I::AudioLevelClamped, R::LevelClamped, "AudioLevelClamped", M::kAudioLevelClamped,
        L::Located, F::Subject, F::Clip),
    Row(I::MulticlipNotTranslated, R::MulticlipAngles, "MulticlipNotTranslated",
        M::kMulticlipNotTranslated, L::Located, F::Clip),
    Row(I::UnrecognizedXMLVersion, R::DocumentVersion, "UnrecognizedXMLVersion",
        M::kUnrecognizedXMLVersion, L::Indented, F::Time),
    Row(I::StartOfClipExtended, R::StartExtended, "StartOfClipExtended", M::kStartOfClipExtended,
        L::Located),
    Row(I::EndOfClipExtended, R::EndExtended, "EndOfClipExtended", M::kEndOfClipExtended,
        L::Located),
    Row(I::InvalidLowPassFilterParameters, R::FilterIncomplete, "InvalidLowPassFilterParameters",
        M::kInvalidLowPassFilterParameters, L::Located),
    Row(I::InvalidHighPassFilterParameters, R::FilterIncomplete, "InvalidHighPassFilterParameters",
        M::kInvalidHighPassFilterParameters, L::Located),
    Row(I::InvalidBandPassFilterParameters, R::FilterIncomplete, "InvalidBandPassFilterParameters",
        M::kInvalidBandPassFilterParameters, L::Located),
    Row(I::InvalidPanFilterParameters, R::FilterIncomplete, "InvalidPanFilterParameters",
        M::kInvalidPanFilterParameters, L::Located),
    Row(I::InvalidInPoint, R::InPointInvalid, "InvalidInPoint", M::kInvalidInPoint, L::Indented),
    Row(I::MissingLookLUT, R::LookMissing, "MissingLookLUT", M::kMissingLookLUT, L::Indented,
        F::Clip),
    Row(I::InvalidStartEnd, R::EdgesInvalid, "InvalidStartEnd", M::kInvalidStartEnd, L::Plain,
        F::Clip),
    Row(I::InvalidBytes, R::InvalidBytes, "InvalidBytes", M::kInvalidBytes, L::Indented, F::Subject,
        F::Time),
    Row(I::UnknownEncoding, R::UnknownEncoding, "UnknownEncoding", M::kUnknownEncoding, L::Indented,
        F::Subject),
    Row(E::UnrecognizedVelaProVersion, R::DocumentVersion, "UnrecognizedVelaProVersion",
        M::kUnrecognizedVelaProVersion, L::Indented, F::Time),
    Row(E::SyntheticNotTranslated, R::GeneratorToSlug, "SyntheticNotTranslated",
        M::kSyntheticNotTranslated, L::Indented, F::Clip),
    Row(E::EffectNotTranslated, R::EffectUnsupported, "EffectNotTranslated",
        M::kEffectNotTranslated, L::Located, F::Subject, F::Clip),
    Row(E::CompositeModeNotSupported, R::CompositeModeUnsupported, "CompositeModeNotSupported",
        M::kCompositeModeNotSUpported, L::Located, F::Clip),
    Row(E::TransitionNotSupported, R::TransitionToCrossFade, "TransitionNotSupported",
        M::kTransitionNotSupported, L::Located, F::Subject),
    Row(E::CrossDissolveTransitionNotTranslated, R::TransitionToDissolve,
        "CrossDissolveTransitionNotTranslated", M::kCrossDissolveTransitionNotTranslated,
        L::Located, F::Subject),
    Row(E::ThreeWayApproximation, R::EffectApproximate, "ThreeWayApproximation",
        M::kThreeWayApproximation, L::Located, F::Clip),
    Row(E::MergedClipExportedAsSequence, R::MergedClipAsSequence, "MergedClipExportedAsSequence",
        M::kMergedClipExportedAsSequence, L::Indented, F::Clip),
    Row(E::MulticamExportNotSupported, R::MulticamUnsupported, "MulticamExportNotSupported",
        M::kMulticamExportNotSupported, L::Located, F::Clip),
    Row(E::EffectNotTranslatedHeadless, R::EffectUnsupported, "EffectNotTranslatedHeadless",
        M::kEffectNotTranslated, L::Indented, F::Subject, F::Clip),
    Row(E::InvalidBytes, R::InvalidBytes, "InvalidBytes", M::kInvalidBytes, L::Indented, F::Subject,
        F::Time),
    Row(E::UnknownEncoding, R::UnknownEncoding, "UnknownEncoding", M::kUnknownEncoding, L::Indented,
        F::Subject),
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
