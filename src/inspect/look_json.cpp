// Looks and tables as JSON.
#include "inspect/look_listing.h"

#include "core/json.h"

#include <nlohmann/json.hpp>

namespace XPJ::Inspection {

namespace {

using Json = nlohmann::ordered_json;

Json TableJson(const CZv3DLUT& table)
{
    Json subTables = Json::array();
    for (const CZv3DLUT& subTable : table.subTables)
        subTables.push_back(TableJson(subTable));
    return {{"name", table.name},
            {"kind", table.is3d ? "3D" : "1D"},
            {"size", table.size},
            {"entries", table.entries.size()},
            {"min", table.min},
            {"max", table.max},
            {"subTables", std::move(subTables)}};
}

// Name, value and, of a value with a structure, its children.
Json ValuesJson(const CZvValues& values)
{
    Json list = Json::array();
    for (const CZvValue& value : values) {
        Json entry{{"name", value.tag}, {"value", value.text}};
        if (!value.children.empty())
            entry["children"] = ValuesJson(value.children);
        list.push_back(std::move(entry));
    }
    return list;
}

Json MaskJson(const CZvShadingMask& mask)
{
    Json contours = Json::array();
    for (const CContour& contour : mask.contours) {
        Json points = Json::array();
        for (const CWidget& point : contour.points) {
            Json values = Json::object();
            for (std::size_t i = 0; i < kMaskPointTags.size(); ++i)
                values[std::string(kMaskPointTags[i])] = point.values[i];
            points.push_back(std::move(values));
        }
        contours.push_back({{"fields", ValuesJson(contour.fields)}, {"points", std::move(points)}});
    }
    return {{"fields", ValuesJson(mask.fields)}, {"contours", std::move(contours)}};
}

Json LayerJson(const CZvShaderParamStorage& layer)
{
    return {{"shader", layer.name},
            {"fields", ValuesJson(layer.fields)},
            {"mask", layer.shaderMask ? MaskJson(*layer.shaderMask) : Json()},
            {"parameters", ValuesJson(layer.parameters)}};
}

Json KeyframeJson(const GradingKeyframe& keyframe)
{
    Json layers = Json::array();
    for (const CZvShaderParamStorage& layer : keyframe.storage.layers)
        layers.push_back(LayerJson(layer));
    return {{"time", keyframe.time},
            {"tween", keyframe.tween},
            {"easeIn", keyframe.easeIn},
            {"easeOut", keyframe.easeOut},
            {"selectedLayer", keyframe.selectedLayer},
            {"layers", std::move(layers)}};
}

Json LookJson(const CGrading& look)
{
    Json json{{"family", "look"},
              {"name", look.name},
              {"guid", AsString(look.guid)},
              {"version", look.version},
              {"keyframes", Json::array()},
              {"mask", look.mask ? MaskJson(*look.mask) : Json()},
              {"tables", Json::array()},
              {"externalTables", Json::array()},
              {"properties", Json::array()}};
    for (const GradingKeyframe& keyframe : look.animation.keyframes)
        json["keyframes"].push_back(KeyframeJson(keyframe));
    for (const CZv3DLUT& table : look.embeddedLUTs)
        json["tables"].push_back(TableJson(table));
    for (const ExternalTable& table : look.externalLUTs)
        json["externalTables"].push_back({{"fileName", table.fileName}, {"hash", table.hash}});
    if (look.properties)
        for (const CZvProperty& property : look.properties->properties)
            json["properties"].push_back(
                {{"name", property.name}, {"value", property.value}, {"weak", property.weak}});
    return json;
}

} // namespace

std::string LookFileJson(const LookFile& file)
{
    Json json;
    if (file.look)
        json = LookJson(*file.look);
    if (file.table) {
        json = {{"family", "table"}, {"format", file.tableFormat}};
        json.update(TableJson(*file.table));
        json["hash"] = DigestText(file.table->hash);
    }
    return JsonText(json, 2) + '\n';
}

} // namespace XPJ::Inspection
