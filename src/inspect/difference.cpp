#include "inspect/difference.h"

#include <iterator>

namespace XPJ::Inspection {

namespace {

constexpr std::string_view kChangeTexts[] = {"added", "lost", "moved", "changed"};
constexpr std::string_view kSubjectTexts[] = {"sequence", "track", "clip",    "transition",
                                              "marker",   "bin",   "bin clip"};
constexpr std::string_view kPropertyTexts[] = {
    "",
    "name",
    "bin",
    "label",
    "path",
    "frame length",
    "drop frame",
    "start timecode",
    "frame size",
    "enabled",
    "locked",
    "track",
    "start",
    "end",
    "duration",
    "in",
    "out",
    "speed",
    "frame blending",
    "held frame",
    "source channel",
    "composite mode",
    "source",
    "links",
    "title",
    "title font",
    "title size",
    "title color",
    "effect",
    "effect name",
    "parameter",
    "alignment",
    "comment",
    "marker kind",
};
static_assert(std::size(kSubjectTexts) == static_cast<std::size_t>(Subject::BinClip) + 1);
static_assert(std::size(kPropertyTexts) == static_cast<std::size_t>(Property::MarkerKind) + 1);

} // namespace

std::string_view ChangeText(Change change)
{
    return kChangeTexts[static_cast<std::size_t>(change)];
}

std::string_view SubjectText(Subject subject)
{
    return kSubjectTexts[static_cast<std::size_t>(subject)];
}

std::string_view PropertyText(Property property)
{
    return kPropertyTexts[static_cast<std::size_t>(property)];
}

} // namespace XPJ::Inspection
