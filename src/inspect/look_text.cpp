// Looks and tables as text.
#include "core/text.h"
#include "grading/transfer_curves.h"
#include "inspect/look_listing.h"
#include "platform/platform.h"

#include <utility>

#include <fmt/format.h>

namespace XPJ::Inspection {

namespace {

class LookWriter {
public:
    std::string Write(const LookFile& file)
    {
        if (file.look)
            WriteLook(*file.look);
        if (file.table) {
            WriteTable(0, *file.table, file.tableFormat);
            Line(1, "hash {}", DigestText(file.table->hash));
        }
        return std::move(text_);
    }

private:
    // Values may hold line ends and other control characters.
    template <class... Args>
    void Line(int depth, fmt::format_string<Args...> format, Args&&... args)
    {
        text_.append(static_cast<std::size_t>(depth) * 2, ' ');
        for (const char c : fmt::format(format, std::forward<Args>(args)...))
            text_ += static_cast<unsigned char>(c) < ' ' || c == '\x7f' ? ' ' : c;
        text_ += '\n';
    }

    void WriteLook(const CGrading& look)
    {
        Line(0, "look \"{}\"  {}  version {}", look.name, AsString(look.guid), look.version);
        for (const GradingKeyframe& keyframe : look.animation.keyframes)
            WriteKeyframe(keyframe);
        if (look.mask)
            WriteMask(1, *look.mask);
        for (const CZv3DLUT& table : look.embeddedLUTs)
            WriteTable(1, table, "");
        for (const ExternalTable& table : look.externalLUTs)
            Line(1, "table \"{}\"  not in the file, hash {}", table.fileName, table.hash);
        if (look.properties)
            for (const CZvProperty& property : look.properties->properties)
                Line(1, "property {}: {}{}", property.name, property.value,
                     property.weak ? "  (weak)" : "");
    }

    void WriteKeyframe(const GradingKeyframe& keyframe)
    {
        Line(1, "keyframe at {:g} s", keyframe.time);
        for (const CZvShaderParamStorage& layer : keyframe.storage.layers)
            WriteLayer(layer);
    }

    void WriteLayer(const CZvShaderParamStorage& layer)
    {
        std::string line = "layer " + layer.name;
        for (const CZvValue& field : layer.fields)
            line += EqualsIgnoreCase(field.tag, "customname")
                        ? fmt::format("  \"{}\"", field.text)
                        : fmt::format("  {} {}", field.tag, field.text);
        Line(2, "{}", line);
        if (layer.shaderMask)
            WriteMask(3, *layer.shaderMask);
        for (const CZvValue& parameter : layer.parameters)
            WriteParameter(3, parameter);
    }

    void WriteParameter(int depth, const CZvValue& parameter)
    {
        const TransferCurve* curve = FindTransferCurve(parameter.text);
        const std::string shown =
            curve ? fmt::format("  ({})", ToUTF8(GetPlatform().Localize(curve->displayKey))) : "";
        Line(depth, "{}:{}{}{}", parameter.tag, parameter.text.empty() ? "" : " ", parameter.text,
             shown);
        for (const CZvValue& child : parameter.children)
            WriteParameter(depth + 1, child);
    }

    void WriteMask(int depth, const CZvShadingMask& mask)
    {
        std::string line = fmt::format("mask \"{}\"", mask.Name());
        for (const CZvValue& field : mask.fields)
            if (!EqualsIgnoreCase(field.tag, "name"))
                line += fmt::format("  {} {}", field.tag, field.text);
        Line(depth, "{}", line);
        for (const CContour& contour : mask.contours)
            Line(depth + 1, "contour of {} points", contour.points.size());
    }

    void WriteTable(int depth, const CZv3DLUT& table, std::string_view format)
    {
        Line(depth,
             "table \"{}\"{}{}  {}  size {}  {} entries  domain {:g} {:g} {:g} to {:g} {:g} {:g}",
             table.name, format.empty() ? "" : "  ", format, table.is3d ? "3D" : "1D", table.size,
             table.entries.size(), table.min[0], table.min[1], table.min[2], table.max[0],
             table.max[1], table.max[2]);
        for (const CZv3DLUT& subTable : table.subTables)
            WriteTable(depth + 1, subTable, "");
    }

    std::string text_;
};

} // namespace

std::string LookFileText(const LookFile& file)
{
    return LookWriter().Write(file);
}

} // namespace XPJ::Inspection
