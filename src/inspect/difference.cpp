#include "inspect/difference.h"

namespace XPJ::Inspection {

namespace {

constexpr std::string_view kChangeTexts[] = {"added", "lost", "moved", "changed"};
constexpr std::string_view kSubjectTexts[] = {"sequence", "track", "clip", "transition", "marker"};

} // namespace

std::string_view ChangeText(Change change)
{
    return kChangeTexts[static_cast<std::size_t>(change)];
}

std::string_view SubjectText(Subject subject)
{
    return kSubjectTexts[static_cast<std::size_t>(subject)];
}

} // namespace XPJ::Inspection
