// The text of a grading, element by element in a fixed order.
#include "core/guid.h"
#include "core/numbers.h"
#include "core/text.h"
#include "grading/element_writer.h"
#include "grading/look.h"
#include "grading/look_tables.h"
#include "grading/mask_text.h"

namespace XPJ {

namespace {

constexpr std::size_t kIndentStep = 2;

// Fields of a layer, in the order of its text.
constexpr std::string_view kLayerFields[] = {"customname", "visible",    "lockedvisible", "opacity",
                                             "mask",       "vectormask", "linked"};

// Of a shader's panel, not of the look.
constexpr std::string_view kPanelParameter = "GrayOut";

void WriteValue(ElementWriter& writer, std::size_t indent, const CZvValue& value)
{
    if (value.children.empty())
        return writer.Quoted(indent, value.tag, value.text);
    writer.Open(indent, value.tag);
    if (!value.text.empty())
        writer.QuotedAlone(indent + kIndentStep, value.text);
    for (const CZvValue& child : value.children)
        WriteValue(writer, indent + kIndentStep, child);
    writer.Close(indent, value.tag);
}

void WriteLayer(ElementWriter& writer, std::size_t indent, const CZvShaderParamStorage& layer)
{
    const std::size_t inner = indent + kIndentStep;
    writer.Open(indent, "shader");
    writer.Quoted(inner, "name", layer.name);
    for (const std::string_view tag : kLayerFields)
        if (const std::string* text = FindText(layer.fields, tag))
            writer.Quoted(inner, tag, *text);
    if (layer.shaderMask) {
        writer.Open(inner, "shadermask");
        WriteMask(writer, inner + kIndentStep, *layer.shaderMask);
        writer.Close(inner, "shadermask");
    }
    writer.Open(inner, "parameters");
    for (const CZvValue& parameter : layer.parameters)
        if (!EqualsIgnoreCase(parameter.tag, kPanelParameter))
            WriteValue(writer, inner + kIndentStep, parameter);
    writer.Close(inner, "parameters");
    writer.Close(indent, "shader");
}

void WriteKeyframe(ElementWriter& writer, std::size_t indent, const GradingKeyframe& keyframe)
{
    const std::size_t inner = indent + kIndentStep;
    writer.Open(indent, "keyframe");
    writer.Quoted(inner, "time", LongNumberText(keyframe.time));
    writer.Quoted(inner, "tween", keyframe.tween);
    writer.Quoted(inner, "easein", LongNumberText(keyframe.easeIn));
    writer.Quoted(inner, "easeout", LongNumberText(keyframe.easeOut));
    writer.Quoted(inner, "selectedlayer", keyframe.selectedLayer);
    for (const CZvShaderParamStorage& layer : keyframe.storage.layers)
        if (!EqualsIgnoreCase(layer.name, kColorPlaceholderLayer))
            WriteLayer(writer, inner, layer);
    writer.Close(indent, "keyframe");
}

void WriteAnimation(ElementWriter& writer, std::size_t indent, const CZvGradingAnimation& animation)
{
    if (!animation.name.empty())
        writer.Quoted(indent, "name", animation.name);
    for (const GradingKeyframe& keyframe : animation.keyframes)
        WriteKeyframe(writer, indent, keyframe);
}

void WriteNamedMask(ElementWriter& writer, std::size_t indent, const CZvShadingMask& mask)
{
    const std::size_t inner = indent + kIndentStep;
    writer.Open(indent, "mask");
    if (!mask.Name().empty())
        writer.Quoted(inner, "name", mask.Name());
    writer.Open(inner, "data");
    WriteMask(writer, inner + kIndentStep, mask);
    writer.Close(inner, "data");
    writer.Close(indent, "mask");
}

void WriteTables(ElementWriter& writer, std::size_t indent, const CGrading& grading)
{
    for (const ExternalTable& table : grading.externalLUTs)
        WriteExternalTable(writer, indent, table);
    for (const CZv3DLUT& table : grading.embeddedLUTs) {
        writer.Open(indent, "lut");
        WriteInlineTable(writer, indent + kIndentStep, table);
        writer.Close(indent, "lut");
    }
}

void WriteProperties(ElementWriter& writer, std::size_t indent, const CZvPropertyList& list)
{
    const std::size_t inner = indent + kIndentStep;
    writer.Open(indent, "properties");
    for (const CZvProperty& property : list.properties) {
        writer.Open(inner, "property");
        writer.Quoted(inner + kIndentStep, "name", property.name);
        writer.Quoted(inner + kIndentStep, "value", property.value);
        writer.Quoted(inner + kIndentStep, "weak", property.weak ? "1" : "0");
        writer.Close(inner, "property");
    }
    writer.Close(indent, "properties");
}

} // namespace

std::string Serialize(const CGrading& grading)
{
    std::string text;
    ElementWriter writer(text);
    writer.Open(0, "Gradiva");
    if (!grading.name.empty())
        writer.Quoted(kIndentStep, "name", grading.name);
    writer.Quoted(kIndentStep, "guid", AsString(grading.guid));
    writer.Quoted(kIndentStep, "version", IntToString(grading.version));
    WriteAnimation(writer, kIndentStep, grading.animation);
    if (grading.mask)
        WriteNamedMask(writer, kIndentStep, *grading.mask);
    WriteTables(writer, kIndentStep, grading);
    if (grading.properties)
        WriteProperties(writer, kIndentStep, *grading.properties);
    writer.Close(0, "Gradiva");
    return text;
}

} // namespace XPJ
