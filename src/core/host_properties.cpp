#include "core/host_properties.h"

#include "core/text.h"

#include <algorithm>

namespace XPJ {

namespace {

constexpr Name kColumnProperties[] = {
    "Column.PropertyText.Label", "Column.PropertyText.Comment", "Master_95_Comment_95_1",
    "Master_95_Comment_95_2",    "Master_95_Comment_95_3",      "Master_95_Comment_95_4",
    "Clip_95_Comment_95_A",      "Clip_95_Comment_95_B",
};

constexpr Name kSequenceUIProperties[] = {
    "TL.SQAudioVisibleBase",
    "TL.SQVideoVisibleBase",
    "TL.SQVisibleBaseTime",
    "TL.SQAVDividerPosition",
    "TL.SQHideShyTracks",
    "TL.SQHeaderWidth",
    "Monitor.ProgramZoomOut",
    "Monitor.ProgramZoomIn",
    "TL.SQTimePerPixel",
    "AM.TrackVScrollPosition",
    "AM.TrackScrollPosition",
    "MZ.EditLine",
    "MZ.Sequence.PreviewFrameSizeHeight",
    "MZ.Sequence.PreviewFrameSizeWidth",
    "MZ.Sequence.AudioTimeDisplayFormat",
    "MZ.Sequence.PreviewRenderingClassID",
    "MZ.Sequence.PreviewRenderingPresetCodec",
    "MZ.Sequence.PreviewRenderingPresetPath",
    "MZ.Sequence.PreviewUseMaxRenderQuality",
    "MZ.Sequence.PreviewUseMaxBitDepth",
    "MZ.Sequence.EditingModeGUID",
    "MZ.Sequence.VideoTimeDisplayFormat",
    "MZ.WorkOutPoint",
    "MZ.WorkInPoint",
    "MZ.ZeroPoint",
};

constexpr Name kTrackUIProperties[] = {
    "TL.SQTrackAudioKeyframeStyle",
    "TL.SQTrackAudioDisplayStyle",
    "TL.SQTrackShy",
    "TL.SQTrackCollapsedHeight",
    "TL.SQTrackExpandedHeight",
    "TL.SQTrackExpanded",
    "TL.SQTrackVideoKeyframeStyle",
    "TL.SQTrackVideoDisplayStyle",
    "MZ.TrackTargeted",
    "MZ.TrackName",
};

constexpr Name kPannerProperties[] = {
    "CurrentValue", "IsInverted", "Keyframes", "StartKeyframe", "Name",
};

struct LabelColor {
    std::string_view key;
    std::string_view name;
    std::string_view finalCutLabel = {}; // at the same position of its list
};

constexpr LabelColor kLabelColors[] = {
    {"BE.Prefs.LabelColors.0", "Violet", "Good Take"},
    {"BE.Prefs.LabelColors.1", "Iris", "Best Take"},
    {"BE.Prefs.LabelColors.2", "Caribbean", "Alternate Shots"},
    {"BE.Prefs.LabelColors.3", "Lavender", "Interviews"},
    {"BE.Prefs.LabelColors.4", "Cerulean", "B Roll"},
    {"BE.Prefs.LabelColors.5", "Forest"},
    {"BE.Prefs.LabelColors.6", "Rose"},
    {"BE.Prefs.LabelColors.7", "Mango"},
};

// "b-roll" is "B Roll".
bool IsLabel(std::string_view text, std::string_view label)
{
    std::string plain(text);
    std::ranges::replace(plain, '-', ' ');
    return !label.empty() && EqualsIgnoreCase(plain, label);
}

// The host writes "_95_" for a character that is unsafe in XMP.
constexpr std::string_view kUnsafeMark = "_95_";

std::string ReplaceMark(std::string_view property, char replacement)
{
    std::string result(property);
    for (std::size_t i = result.find(kUnsafeMark); i != result.npos;
         i = result.find(kUnsafeMark, i))
        result.replace(i, kUnsafeMark.size(), 1, replacement);
    return result;
}

} // namespace

std::span<const Name> ColumnPropertyList()
{
    return kColumnProperties;
}

std::span<const Name> SequenceUIPropertyList()
{
    return kSequenceUIProperties;
}

std::span<const Name> TrackUIPropertyList()
{
    return kTrackUIProperties;
}

std::span<const Name> PannerPropertyList()
{
    return kPannerProperties;
}

std::string_view LabelKeyOf(std::string_view colorName)
{
    for (const LabelColor& color : kLabelColors)
        if (color.name == colorName)
            return color.key;
    return {};
}

std::string_view LabelKeyOfAny(std::string_view label)
{
    for (const LabelColor& color : kLabelColors)
        if (IsLabel(label, color.name) || IsLabel(label, color.finalCutLabel))
            return color.key;
    return {};
}

bool IsFinalCutLabel(std::string_view label)
{
    return std::ranges::any_of(kLabelColors, [label](const LabelColor& color) {
        return IsLabel(label, color.finalCutLabel);
    });
}

std::string_view LabelNameOf(std::string_view key)
{
    for (const LabelColor& color : kLabelColors)
        if (color.key == key)
            return color.name;
    return {};
}

std::string PropertyLabel(std::string_view property)
{
    return ReplaceMark(property, ' ');
}

std::string XMPPropertyName(std::string_view property)
{
    return ReplaceMark(property, '_');
}

std::string CustomPropertyKey(std::string_view schema, std::string_view property)
{
    const std::string label = PropertyLabel(property);
    std::string key = "$$$/custom_xmp_schemas/";
    key.append(schema).append("/property_name/").append(label).append("=").append(label);
    return key;
}

} // namespace XPJ
