#include "xmeml/element_listing.h"

#include "xmeml/elements.h"

#include <span>
#include <string_view>

namespace XPJ {

namespace {

std::string Quoted(std::string_view text)
{
    return "`" + std::string(text) + "`";
}

std::string_view RuleText(XmemlRule rule)
{
    switch (rule) {
    case XmemlRule::ClipDuration:
        return "always; that of `media` first";
    case XmemlRule::ClipRate:
        return "always; else that of `media`, else 30 NTSC";
    case XmemlRule::RateOrDefault:
        return "always; else 30 NTSC";
    case XmemlRule::OfOwnFile:
        return "if its file is written here and states it";
    case XmemlRule::SequenceUnlessFile:
        return "once, then by id; not beside a `file`";
    case XmemlRule::AudioOfFile:
        return "one for each channel or group of channels";
    }
    return {};
}

std::string WrittenText(const XmemlField& field)
{
    if (!field.use.isWritten)
        return "-";
    switch (field.kind) {
    case FieldKind::Required:
        return field.text.empty() ? "always" : "always; else " + Quoted(field.text);
    case FieldKind::Fixed:
        return "always " + Quoted(field.text);
    case FieldKind::Leaf:
    case FieldKind::Child:
        return "if stated";
    case FieldKind::Each:
        return "each";
    case FieldKind::Mixed:
        return "each, in order";
    case FieldKind::Whole:
        return "once, then by id";
    case FieldKind::LeafBy:
    case FieldKind::ChildBy:
        return std::string(RuleText(field.rule));
    }
    return {};
}

std::string WrittenText(const XmemlAttribute& attribute)
{
    if (!attribute.use.isWritten)
        return "-";
    switch (attribute.kind) {
    case AttributeKind::Always:
        return "always";
    case AttributeKind::Present:
    case AttributeKind::List:
        return "if stated";
    case AttributeKind::Equal:
        return "if it is " + Quoted(attribute.text);
    case AttributeKind::Fixed:
        return "always " + Quoted(attribute.text);
    }
    return {};
}

// What a row states of writing, with a mark at additions.
template <class Field>
std::string WrittenCell(const Field& field)
{
    return WrittenText(field) + (field.use.isAddition ? "; an addition" : "");
}

std::string ReadText(const FieldUse& use)
{
    if (!use.isRead)
        return "-";
    if (use.isOpenOnly)
        return "open";
    return use.isUsed ? "yes" : "skipped";
}

std::string NamesText(const XmemlAttribute& attribute)
{
    std::string text = attribute.isLeafToo ? "attribute or element " : "attribute ";
    if (!attribute.list)
        return text + Quoted(attribute.name.View());
    const std::span<const Name> names = attribute.list();
    return text + Quoted(names.front().View()) + " and " + std::to_string(names.size() - 1) +
           " more of `src/core/host_properties.cpp`";
}

std::string NameText(const XmemlField& field)
{
    if (!field.IsChild())
        return Quoted(field.name.View());
    const XmemlElement& element = *FindXmemlElement(field.element);
    return "element " + Quoted(element.tag.View()) + (element.selfClosed ? " by id" : "");
}

std::string Row(std::string_view name, std::string_view read, std::string_view written,
                std::string_view reason)
{
    std::string row;
    for (const std::string_view cell : {name, read, written, reason})
        row.append("| ").append(cell).append(cell.empty() ? "" : " ");
    return row + "|\n";
}

} // namespace

std::string ElementListing()
{
    std::string text;
    // The first row is no element of the document.
    for (const XmemlElement& element : XmemlElements().subspan(1)) {
        if (element.fields.empty())
            continue;
        text += "\n### " + std::string(element.name) + "\n\n" +
                Row("Field", "Read", "Written", "Why") + "|---|---|---|---|\n";
        for (const XmemlAttribute& attribute : element.attributes)
            text += Row(NamesText(attribute), ReadText(attribute.use), WrittenCell(attribute),
                        attribute.use.reason);
        if (!element.text.IsEmpty())
            text += Row("its own text", "yes", "-", "a plain value is written as a leaf");
        for (const XmemlField& field : element.fields) {
            std::string read = ReadText(field.use);
            if (field.use.isRead && !field.reference.IsEmpty())
                read += ", also by id";
            text += Row(NameText(field), read, WrittenCell(field), field.use.reason);
        }
    }
    return text;
}

} // namespace XPJ
