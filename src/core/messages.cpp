#include "core/messages.h"

#include <fmt/format.h>

#include <iterator>
#include <span>

namespace XPJ {

namespace {

// In the order of `Message`, one a line.
constexpr std::string_view kMessages[] = {
    // clang-format off
    "$$$/Vela/FCP/FCPXML=FCP XML (*.xml)",
    "$$$/Vela/FCP/FCPXMLInterchangeFormat=FCP XML Interchange Format",
    "$$$/Vela/FCP/ImportingFCPXML=Importing FCP XML...",
    "$$$/Vela/FCP/OK=OK",
    "$$$/Vela/FCP/Cancel=Cancel",
    "$$$/Vela/FCP/FCPXMLImportFailed=FCP XML Import Failed",
    "$$$/Vela/FCP/Aborted=The operation was aborted.",
    "$$$/Vela/FCP/InputCouldNotBeOpened=The input file could not be opened.",
    "$$$/Vela/FCP/NoXMELM=No xmeml data found in input file.",
    "$$$/Vela/FCP/NoFCPDataFound=No FCP data found in input file.",
    "$$$/Vela/FCP/OutOfMemory=The converter ran out of memory.",
    "$$$/Vela/FCP/UnexpectedError=An unexpected error occurred.",
    "$$$/Vela/FCP/FinalCutProProject=Final Cut Pro Project",
    "$$$/Vela/FCP/BlackVideo=Black Video",
    "$$$/Vela/FCP/TransparentVideo=Transparent Video",
    "$$$/Vela/FCP/Layer=Layer $1",
    "$$$/Vela/FCP/TranslationIssue=Translation issue:",
    "$$$/Vela/FCP/VideoTrack=video track $1",
    "$$$/Vela/FCP/AudioTrack=audio track $1",
    "$$$/Vela/FCP/UnrecognizedXMLVersion=FCP XML xmeml version ($1) is not one we recognize (1-5), results may not be predictable.",
    "$$$/Vela/FCP/GeneratorNotTranslated=Generator Item ($1) not translated for clip <$2>, Transparent Video used as a placeholder.",
    "$$$/Vela/FCP/Sequence=Sequence <$1> at $2, $3:",
    "$$$/Vela/FCP/GeneratorNotTranslated2=Generator Item <$1> not translated, Transparent Video used as a placeholder.",
    "$$$/Vela/FCP/EffectNotTranslated=Effect <$1> on Clip <$2> not translated.",
    "$$$/Vela/FCP/ThreeWayApproximation=3-Way Color Corrector on Clip <$1>: translation is approximate and should be reviewed.",
    "$$$/Vela/FCP/CompositeModeNotSupported=Composite mode <$1> on Clip <$2> not supported.",
    "$$$/Vela/FCP/AudioLevelClamped=Effect <$1> on Clip <$2> had audio levels above +6db which had to be clamped at +6db.",
    "$$$/Vela/FCP/ConstantPowerTransitionNotTranslated=Transition <$1> not translated, Constant Power used instead.",
    "$$$/Vela/FCP/CrossDissolveTransitionNotTranslated=Transition <$1> not translated, Cross Dissolve used instead.",
    "$$$/Vela/FCP/DipToColorNotTranslated=Dip To Color transition has no equivalent, Dip To Black used instead.",
    "$$$/Vela/FCP/MulticlipNotTranslated=Multiclip <$1> uses more than 4 inputs. Consider collapsing the multiclip in FCP.",
    "$$$/Vela/FCP/MissingLookLUT=Could not open referenced Gradiva file <$1>. Effect will be omitted.",
    "$$$/Vela/FCP/TranslationReport=Translation Report",
    "$$$/Vela/FCP/TranslationResultsReport=Please check the FCP Translation Results report (added to the main bin) for possible issues encountered during translation.",
    "$$$/Vela/FCP/TranslationResults=FCP Translation Results",
    "$$$/Vela/FCP/FinalCutProXML=Final Cut Pro XML",
    "$$$/Vela/FCP/OrrinVelaProProject=Orrin Vela Pro Project",
    "$$$/Vela/FCP/ExportingFCPXML=Exporting FCP XML...",
    "$$$/Vela/FCP/TranslationResultsXML=Please check the FCP Translation Results report (saved next to the xml file) for possible issues encountered during translation.",
    "$$$/Vela/FCP/UnrecognizedVelaProVersion=Vela Pro xml version ($1) is not the version we were expecting (3), results may not be predictable.",
    "$$$/Vela/FCP/SyntheticNotTranslated=Synthetic Item ($1) not translated, Slug used as a placeholder.",
    "$$$/Vela/FCP/CompositeModeNotSUpported=Composite mode on Clip <$1> not supported.",
    "$$$/Vela/FCP/TransitionNotSupported=Transition <$1> not translated, Cross Fade ( 0db) used instead.",
    "$$$/Vela/FCP/StartOfClipExtended=Start of clip extended to include entire transition; alignment changed to \"start at cut.\"",
    "$$$/Vela/FCP/EndOfClipExtended=End of clip extended to include entire transition; alignment changed to \"end at cut.\"",
    "$$$/Vela/FCP/InvalidLowPassFilterParameters=Low Pass filter found without required parameters, skipped.",
    "$$$/Vela/FCP/InvalidHighPassFilterParameters=High Pass filter found without required parameters, skipped.",
    "$$$/Vela/FCP/InvalidBandPassFilterParameters=Band Pass filter found without required parameters, skipped.",
    "$$$/Vela/FCP/MergedClipExportedAsSequence=Merged clip <$1> exported as a sequence.",
    "$$$/Vela/FCP/MulticamExportNotSupported=Track item <$1> was skipped because multicam sequences are not supported in FCP XML export.",
    "$$$/Vela/FCP/Audio=Audio",
    "$$$/Vela/FCP/InvalidPanFilterParameters=Pan filter found without required parameters, skipped.",
    "$$$/Vela/FCP/InvalidInPoint=Invalid in-point on clipitem. In-point was reset to 0.",
    "$$$/Vela/FCP/CannotCreateFile=Cannot create file $1. Make sure you have write permissions for the target directory.",
    "$$$/Vela/FCP/CannotCreateFileTitle=File Creation Failed",
    "$$$/Vela/FCP/InvalidStartEnd=Track item <$1> has invalid start/end and will be skipped.",
    // clang-format on
};

static_assert(std::size(kMessages) == kMessageCount);

constexpr int kFirstOwnMessage = static_cast<int>(Message::kInvalidBytes);

constexpr std::string_view kOwnMessages[] = {
    // clang-format off
    "$$$/Vela/FCP/InvalidBytes=Bytes that mean nothing in the encoding $1 were replaced, at $2.",
    "$$$/Vela/FCP/UnknownEncoding=Encoding ($1) is not one we recognize, the document was read as UTF-8.",
    // clang-format on
};

std::string_view At(std::span<const std::string_view> table, int number)
{
    return number >= 0 && static_cast<std::size_t>(number) < table.size()
               ? table[static_cast<std::size_t>(number)]
               : std::string_view();
}

} // namespace

std::string_view MessageKey(Message message) noexcept
{
    const int number = static_cast<int>(message);
    return number < kFirstOwnMessage ? At(kMessages, number)
                                     : At(kOwnMessages, number - kFirstOwnMessage);
}

std::string_view DefaultText(std::string_view key) noexcept
{
    const std::size_t equals = key.find('=');
    return equals == key.npos ? key : key.substr(equals + 1);
}

std::string FormatMessage(std::string_view text, std::initializer_list<std::string_view> arguments)
{
    std::string result(text);
    int number = 0;
    for (const std::string_view argument : arguments) {
        const std::string mark = fmt::format("${}", ++number);
        const std::size_t place = result.find(mark);
        if (place != result.npos)
            result.replace(place, mark.size(), argument);
    }
    return result;
}

} // namespace XPJ
