// Why a look or a table could not be read, as localizable texts.
#pragma once

#include <string>
#include <string_view>

namespace XPJ {

enum class LookMessage : int {
    XMLFileIsNotOpen,
    UnexpectedEndTagAtRootLevel,
    UnexpectedEndOfFileWhileLookingFor, // argument: what was looked for
    NewlineUnexpectedInBrackets,
    WhitespaceUnexpectedInBrackets,
    UnexpectedNewlineInValue,
    Expected, // argument: what was expected
    EmptyKeyframeTagInGradingDefinition,
    IncompleteMaskPointDefinition,
    UnknownTagInPropertyDefinition,
    UnknownTagInPropertyListDefinition,
    LookUpTableCouldNotBeLoadedFileNotFound, // argument of these three: the table's name
    LookUpTableCouldNotBeLoadedOutOfMemory,
    LookUpTableCouldNotBeLoadedUnknownFormat,
};

constexpr int kLookMessageCount = 14;

// The whole key of a message, "$$$/Errors/Expected=Expected"; empty for a number out of range.
std::string_view LookMessageKey(LookMessage message) noexcept;

// The localized text; the argument takes the place of "%s", or follows behind a blank.
//   GetMessage(LookMessage::Expected, "</a>") == "Expected </a>"
std::string GetMessage(LookMessage message, std::string_view argument = {});

} // namespace XPJ
