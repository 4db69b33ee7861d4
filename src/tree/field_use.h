// In which directions a row of a vocabulary's table counts, and why not in both.
#pragma once

#include <string_view>

namespace XPJ {

// The default: read, used by the translation that reads the vocabulary, and written.
struct FieldUse {
    bool isRead = true;
    bool isUsed = true;
    bool isWritten = true;
    bool isOpenOnly = false; // read in the open manner alone, else transparent
    std::string_view reason = {};
    bool isAddition = false; // to what the vocabulary has for everyone
};

// Used where a document has it; no writer of ours states it.
constexpr FieldUse ReadOnly(std::string_view reason)
{
    return {.isWritten = false, .reason = reason};
}

// A location where the format has no such field, but documents do.
constexpr FieldUse Stray(std::string_view reason)
{
    return {.isWritten = false, .isOpenOnly = true, .reason = reason};
}

// Written where a node has it, and read in the open manner alone.
constexpr FieldUse OpenOnly(std::string_view reason)
{
    return {.isOpenOnly = true, .reason = reason};
}

// Transparent for the reader.
constexpr FieldUse WriteOnly(std::string_view reason)
{
    return {.isRead = false, .isUsed = false, .reason = reason};
}

// Read, so that its content doesn't count as its parent's, and used by no translation.
constexpr FieldUse Skipped(std::string_view reason)
{
    return {.isUsed = false, .isWritten = false, .reason = reason};
}

// The same for a field that is written: other programs use it.
constexpr FieldUse ForOthers(std::string_view reason)
{
    return {.isUsed = false, .reason = reason};
}

} // namespace XPJ
