#include "grading/look_messages.h"

#include "core/text.h"
#include "platform/platform.h"

#include <iterator>

namespace XPJ {

namespace {

// In the order of `LookMessage`, one a line.
constexpr std::string_view kKeys[] = {
    // clang-format off
    "$$$/Errors/XMLFileIsNotOpen=XML file is not open.",
    "$$$/Errors/UnexpectedEndTagAtRootLevel=Unexpected end tag at root level",
    "$$$/Errors/UnexpectedEndOfFileWhileLookingFor=Unexpected end of file while looking for",
    "$$$/Errors/NewlineUnexpectedInBrackets=Newline unexpected in < > brackets.",
    "$$$/Errors/WhitespaceUnexpectedInBrackets=Whitespace unexpected in < > brackets.",
    "$$$/Errors/UnexpectedNewlineInValue=Unexpected newline in value. Use \" \" to enclose values with newlines.",
    "$$$/Errors/Expected=Expected",
    "$$$/Errors/EmptyKeyframeTagInGradingDefinition=Empty <keyframe> tag in grading definition",
    "$$$/Errors/IncompleteMaskPointDefinition=Incomplete mask point definition",
    "$$$/Errors/UnknownTagInPropertyDefinition=Unknown tag in property definition",
    "$$$/Errors/UnknownTagInPropertyListDefinition=Unknown tag in property list definition",
    "$$$/Errors/LookUpTableCouldNotBeLoadedFileNotFound=Lookup table \"%s\" could not be loaded: file not found.",
    "$$$/Errors/LookUpTableCouldNotBeLoadedOutOfMemory=Lookup table \"%s\" could not be loaded: out of memory.",
    "$$$/Errors/LookUpTableCouldNotBeLoadedUnknownFormat=Lookup table \"%s\" could not be loaded: unknown format.",
    // clang-format on
};
static_assert(std::size(kKeys) == kLookMessageCount);

} // namespace

std::string_view LookMessageKey(LookMessage message) noexcept
{
    const int number = static_cast<int>(message);
    return number >= 0 && number < kLookMessageCount ? kKeys[number] : std::string_view();
}

std::string GetMessage(LookMessage message, std::string_view argument)
{
    constexpr std::string_view kPlace = "%s";
    std::string text = ToUTF8(GetPlatform().Localize(LookMessageKey(message)));
    if (const std::size_t place = text.find(kPlace); place != text.npos)
        text.replace(place, kPlace.size(), argument);
    else if (!argument.empty())
        text.append(" ").append(argument);
    return text;
}

} // namespace XPJ
