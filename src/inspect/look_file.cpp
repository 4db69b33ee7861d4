#include "inspect/look_file.h"

#include "core/text.h"
#include "grading/look.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <utility>

namespace XPJ::Inspection {

namespace {

// The first element of a look; one of the last two if it has no root.
constexpr std::string_view kLookElements[] = {"Gradiva", "keyframe", "shader"};
constexpr std::string_view kDocumentElements[] = {"xmeml", "VelaData"};

// The name of the first element, behind declarations and comments; empty without one.
std::string_view FirstElement(std::string_view text)
{
    constexpr std::string_view kComment = "<!--";
    for (std::size_t at = text.find('<'); at != text.npos; at = text.find('<', at)) {
        const std::string_view rest = text.substr(at);
        if (!rest.starts_with("<?") && !rest.starts_with("<!")) {
            const std::size_t end = rest.find_first_of(" \t\r\n/><", 1);
            return rest.substr(1, end == rest.npos ? end : end - 1);
        }
        at = text.find(rest.starts_with(kComment) ? "-->" : ">", at);
        if (at == text.npos)
            break;
    }
    return {};
}

bool IsOneOf(std::string_view name, std::span<const std::string_view> names)
{
    return std::ranges::any_of(
        names, [name](std::string_view other) { return EqualsIgnoreCase(name, other); });
}

} // namespace

bool IsLookFile(std::string_view bytes)
{
    const std::string_view element = FirstElement(bytes.substr(0, 65536));
    if (IsOneOf(element, kDocumentElements))
        return false;
    return IsOneOf(element, kLookElements) || !TableFormat(bytes).empty();
}

std::optional<LookFile> ReadLookFile(std::string_view bytes, std::string_view name, CZvError& error)
{
    LookFile file;
    file.tableFormat = TableFormat(bytes);
    if (file.tableFormat.empty() || IsOneOf(FirstElement(bytes), kLookElements))
        file.look = ReadLookDocument(bytes, "", &error);
    else
        file.table = ReadTable(bytes, name, &error);
    return file.look || file.table ? std::optional(std::move(file)) : std::nullopt;
}

} // namespace XPJ::Inspection
