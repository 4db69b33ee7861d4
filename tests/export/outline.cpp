#include "export/outline.h"

#include "support/document_text.h"

#include <algorithm>
#include <sstream>

#include <fmt/format.h>

namespace XPJ::RVX {
namespace {

constexpr std::size_t kLineWidth = 100;

bool IsLeaf(const Element& element)
{
    return element.children.empty() && element.attributes.empty();
}

void AddOutline(const Element& element, const std::string& folded, std::size_t depth,
                std::string& text)
{
    if (folded.find("," + element.name + ",") != folded.npos)
        return;
    text += std::string(2 * depth, ' ') + element.name;
    for (const auto& [key, value] : element.attributes)
        text += fmt::format(" {}={}", key, value);
    text += element.children.empty() && !element.text.empty() ? " = " + element.text : "";
    std::string separator = ": ";
    for (const Element& child : element.children) {
        if (!IsLeaf(child) || folded.find("," + child.name + ",") != folded.npos)
            continue;
        text += separator + child.name + "=" + child.text;
        separator = ", ";
    }
    text += "\n";
    for (const Element& child : element.children)
        if (!IsLeaf(child))
            AddOutline(child, folded, depth + 1, text);
}

// A number, "h:v" for a point, "r,g,b,a" for a color.
std::string ValueText(const Element& owner)
{
    const Element& value = owner.Child("value");
    std::string text = value.text;
    for (const Element& part : value.children)
        text += (text.empty() ? "" : value.children.size() == 2 ? ":" : ",") + part.text;
    return text;
}

std::string ParameterText(const Element& parameter)
{
    std::string text = parameter.Child("parameterid").text + "=" + ValueText(parameter);
    if (const Element& min = parameter.Child("valuemin"); !min.IsNone())
        text += fmt::format(" {}..{}", min.text, parameter.Child("valuemax").text);
    for (const Element& field : parameter.children)
        if (field.name == "hash" || (field.name[0] >= 'A' && field.name[0] <= 'Z'))
            text += fmt::format(" {} {}", field.name, field.text);
    std::string separator = " {";
    for (const Element& keyframe : parameter.children) {
        if (keyframe.name != "keyframe")
            continue;
        text += separator + keyframe.Child("when").text + ":" + ValueText(keyframe);
        separator = " ";
    }
    return separator == " " ? text + "}" : text;
}

void AddEffect(const Element& effect, const std::string& indent, std::string& text)
{
    text += fmt::format("{}{} [{} {} {} {}]", indent, effect.Child("name").text,
                        effect.Child("effectid").text, effect.Child("effectcategory").text,
                        effect.Child("effecttype").text, effect.Child("mediatype").text);
    text += effect.Child("velaBypass").text == "true" ? " bypassed" : "";
    text += effect.Child("velaExpanded").text == "true" ? " expanded" : "";
    for (const char* const key : {"wipecode", "startratio", "endratio", "reverse"})
        if (const Element& field = effect.Child(key); !field.IsNone())
            text += fmt::format(" {} {}", key, field.text);
    for (const Element& child : effect.children)
        if (child.name == "dependency")
            text += fmt::format(" needs {} {}", child.Child("tag").text, child.Child("path").text);
    text += "\n";
    std::string line;
    for (const Element& child : effect.children) {
        if (child.name != "parameter")
            continue;
        const std::string parameter = ParameterText(child);
        if (!line.empty() && line.size() + parameter.size() > kLineWidth) {
            text += indent + "  " + line + ",\n";
            line.clear();
        }
        line += (line.empty() ? "" : ", ") + parameter;
    }
    text += line.empty() ? "" : indent + "  " + line + "\n";
}

void AddEffects(const Element& element, std::size_t depth, std::string& text)
{
    const bool hasEffect = !element.Child("filter").IsNone() || !element.Child("effect").IsNone();
    if (hasEffect && element.name != "filter") {
        const std::string indent(2 * depth++, ' ');
        const std::string& name = element.Child("name").text;
        text += indent + element.name + (name.empty() ? "" : " \"" + name + "\"");
        if (const Element& mode = element.Child("compositemode"); !mode.IsNone())
            text += " mode \"" + mode.text + "\"";
        text += "\n";
    }
    if (const Element& effect = element.Child("effect"); !effect.IsNone())
        AddEffect(effect, std::string(2 * depth, ' '), text);
    for (const Element& child : element.children)
        AddEffects(child, depth, text);
}

} // namespace

std::string XmemlOutline(std::string_view xmeml, std::string_view folded)
{
    std::string text;
    AddOutline(ParseElements(xmeml), "," + std::string(folded) + ",", 0, text);
    return text;
}

std::string XmemlEffects(std::string_view xmeml)
{
    std::string text;
    AddEffects(ParseElements(xmeml), 0, text);
    return text;
}

std::string FoldedElements(std::string_view xmeml, std::string_view tags)
{
    if (tags.empty())
        return std::string(xmeml);
    const std::string folded = "," + std::string(tags) + ",";
    std::istringstream lines{std::string(xmeml)};
    std::string result;
    std::string closing; // of the element that is folded
    for (std::string line; std::getline(lines, line);) {
        const std::size_t start = std::min(line.find('<'), line.size());
        if (!closing.empty()) {
            if (line == closing) {
                result += line.substr(start) + "\n";
                closing.clear();
            }
            continue;
        }
        result += line;
        const std::string tag = line.substr(start, line.find_first_of(" >") - start);
        const bool isWhole = line.find('<', start + 1) != line.npos || line.ends_with("/>");
        if (tag.size() > 1 && !isWhole && folded.find("," + tag.substr(1) + ",") != folded.npos) {
            closing = line.substr(0, start) + "</" + tag.substr(1) + ">";
            result += "...";
        } else {
            result += '\n';
        }
    }
    return result;
}

} // namespace XPJ::RVX
