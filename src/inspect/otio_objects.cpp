#include "inspect/otio_objects.h"

#include "core/numbers.h"
#include "core/paths.h"

#include <algorithm>
#include <map>
#include <utility>

#include <nlohmann/json.hpp>

namespace XPJ::Inspection::Otio {

namespace {

constexpr const char* kNamespace = "vela_fcpxml";

// An object of so many fields at most: files consist of small ones, and growing them costs more
// than all else.
Json Typed(std::string_view schema, std::size_t fields)
{
    Json json = Json::object();
    json.get_ref<Json::object_t&>().reserve(fields);
    json["OTIO_SCHEMA"] = schema;
    return json;
}

Json SimpleRange(Ticks start, Ticks duration, Ticks frameTicks)
{
    return TimeRange({start, frameTicks, duration, frameTicks});
}

bool IsRooted(std::string_view path)
{
    return path.starts_with('/') || path.starts_with('\\') || path.substr(1).starts_with(':');
}

// A relative path is a relative URL, as it is.
std::string UrlOf(const std::string& path)
{
    return IsRooted(path) ? MakePathUrl(path) : path;
}

Json MakeReference(std::string_view schema, std::string name, Json availableRange)
{
    Json reference = MakeObject(schema, std::move(name), Json::object());
    reference["available_range"] = std::move(availableRange);
    reference["available_image_bounds"] = nullptr;
    return reference;
}

const Effect* GeneratorEffectOf(const Item& item)
{
    const auto found = std::ranges::find_if(item.effects, &Effect::isSource);
    return found == item.effects.end() ? nullptr : &*found;
}

bool IsGenerated(const Project& project, const Item& item)
{
    if (item.mediaFile != kNothing && !project.mediaFiles[item.mediaFile].path.empty())
        return false;
    return item.source == SourceKind::Generator || item.title != kNothing ||
           (item.source == SourceKind::MediaFile && GeneratorEffectOf(item));
}

// Values by name, of which the last counts; keyframes go into the metadata.
Json GeneratorReference(const Project& project, const Item& item)
{
    Json reference = MakeReference("GeneratorReference.1", item.sourceName, nullptr);
    const Effect* const effect = GeneratorEffectOf(item);
    reference["generator_kind"] = effect ? effect->name : item.sourceName;
    std::map<std::string, std::string> values;
    bool isAnimated = false;
    if (effect)
        for (const Parameter& parameter : effect->parameters) {
            values[parameter.name] = parameter.value;
            isAnimated = isAnimated || !parameter.keyframes.empty();
        }
    reference["parameters"] = Json(values);
    if (isAnimated)
        reference["metadata"][kNamespace]["parameters"] =
            Parameters(effect->parameters, SourceTimeOf(project, item));
    return reference;
}

Json MakeEffect(std::string_view schema, std::string name, std::string_view kind, Json metadata)
{
    Json effect = MakeObject(schema, std::move(name), std::move(metadata));
    effect["effect_name"] = kind;
    effect["enabled"] = true;
    return effect;
}

Json Keyframes(const std::vector<Keyframe>& keyframes, const SourceTime& time)
{
    Json list = Json::array();
    for (const Keyframe& keyframe : keyframes)
        list.push_back(
            {{"time", RationalTime(AddTicks(time.first, keyframe.time), time.frameTicks)},
             {"value", keyframe.value}});
    return list;
}

Json SpeedKeyframes(const std::vector<Keyframe>& keyframes, const SourceTime& time)
{
    Json list = Json::array();
    for (const Keyframe& keyframe : keyframes)
        list.push_back(
            {{"time", RationalTime(keyframe.time, time.frameTicks)},
             {"media_time",
              RationalTime(AddTicks(time.first, ParseInt64(keyframe.value)), time.frameTicks)}});
    return list;
}

// True if a variable speed shows one frame all the time.
bool IsFreeze(const std::vector<Keyframe>& speedKeyframes)
{
    return std::ranges::all_of(speedKeyframes, [&speedKeyframes](const Keyframe& keyframe) {
        return keyframe.value == speedKeyframes.front().value;
    });
}

void AddFreeze(Json metadata, Json& effects)
{
    effects.push_back(MakeEffect("FreezeFrame.1", "", "FreezeFrame", std::move(metadata)));
    effects.back()["time_scalar"] = 0.0;
}

void AddSpeed(const Item& item, const SourceTime& time, Json& effects)
{
    if (item.held)
        return AddFreeze(Json::object(), effects);
    if (item.speedKeyframes.empty()) {
        if (item.speed == 1.0 && !item.reverse)
            return;
        effects.push_back(MakeEffect("LinearTimeWarp.1", "", "LinearTimeWarp", Json::object()));
        effects.back()["time_scalar"] = item.reverse ? -item.speed : item.speed;
        return;
    }
    Json metadata{{"keyframes", SpeedKeyframes(item.speedKeyframes, time)}};
    if (IsFreeze(item.speedKeyframes)) {
        AddFreeze(std::move(metadata), effects);
    } else {
        metadata["reverse"] = item.reverse;
        effects.push_back(MakeEffect("TimeEffect.1", "", "VariableSpeed", std::move(metadata)));
    }
}

} // namespace

Json MakeObject(std::string_view schema, std::string name, Json metadata)
{
    constexpr std::size_t kMostFields = 10; // a clip's
    Json object = Typed(schema, kMostFields);
    object["name"] = std::move(name);
    object["metadata"] = Json::object();
    if (!metadata.empty())
        object["metadata"][kNamespace] = std::move(metadata);
    return object;
}

Json MakeComponent(std::string_view schema, std::string name, Json metadata)
{
    Json component = MakeObject(schema, std::move(name), std::move(metadata));
    component["source_range"] = nullptr;
    component["effects"] = Json::array();
    component["markers"] = Json::array();
    component["enabled"] = true;
    return component;
}

Json RationalTime(Ticks time, Ticks frameTicks)
{
    const auto frame = static_cast<double>(frameTicks);
    const Ticks whole = time / frameTicks;
    const Ticks rest = time % frameTicks;
    Json json = Typed("RationalTime.1", 3);
    json["rate"] = static_cast<double>(kTicksPerSecond) / frame;
    json["value"] = static_cast<double>(whole) + static_cast<double>(rest) / frame;
    return json;
}

Json TimeRange(const Range& range)
{
    Json json = Typed("TimeRange.1", 3);
    json["start_time"] = RationalTime(range.start, range.startFrame);
    json["duration"] = RationalTime(range.duration, range.durationFrame);
    return json;
}

SourceTime SourceTimeOf(const Project& project, const Item& item)
{
    return {item.sourceFormat.ticks,
            item.mediaFile == kNothing ? 0 : project.mediaFiles[item.mediaFile].start};
}

// Colors are those of the schema's default.
Json Markers(const std::vector<Marker>& markers, const SourceTime& time)
{
    Json list = Json::array();
    for (const Marker& marker : markers) {
        Json json = MakeObject("Marker.2", marker.name, Json::object());
        json["color"] = "GREEN";
        json["comment"] = marker.comment;
        json["marked_range"] = SimpleRange(AddTicks(time.first, marker.start),
                                           std::max<Ticks>(marker.duration, 0), time.frameTicks);
        list.push_back(std::move(json));
    }
    return list;
}

Json Parameters(const std::vector<Parameter>& parameters, const SourceTime& time)
{
    Json list = Json::array();
    for (const Parameter& parameter : parameters) {
        Json entry{{"name", parameter.name}, {"value", parameter.value}};
        if (!parameter.keyframes.empty())
            entry["keyframes"] = Keyframes(parameter.keyframes, time);
        list.push_back(std::move(entry));
    }
    return list;
}

Json Effects(const Project& project, const Item& item)
{
    const SourceTime time = SourceTimeOf(project, item);
    const Effect* const generator = IsGenerated(project, item) ? GeneratorEffectOf(item) : nullptr;
    Json list = Json::array();
    AddSpeed(item, time, list);
    for (const Effect& effect : item.effects) {
        if (&effect == generator)
            continue;
        Json metadata = Json::object();
        if (!effect.parameters.empty())
            metadata["parameters"] = Parameters(effect.parameters, time);
        list.push_back(MakeEffect("Effect.1", effect.ownName.empty() ? effect.name : effect.ownName,
                                  effect.name, std::move(metadata)));
        list.back()["enabled"] = effect.enabled;
    }
    return list;
}

Json MediaReference(const MediaFile& file)
{
    Json range = file.facts.length > 0
                     ? SimpleRange(file.start, file.facts.length, file.format.ticks)
                     : Json(nullptr);
    if (file.path.empty())
        return MakeReference("MissingReference.1", file.name, std::move(range));
    Json reference = MakeReference("ExternalReference.1", file.name, std::move(range));
    reference["target_url"] = UrlOf(file.path);
    return reference;
}

Json MediaReference(const Project& project, const Item& item)
{
    if (IsGenerated(project, item))
        return GeneratorReference(project, item);
    if (item.mediaFile != kNothing)
        return MediaReference(project.mediaFiles[item.mediaFile]);
    return MakeReference("MissingReference.1", item.sourceName, nullptr);
}

} // namespace XPJ::Inspection::Otio
