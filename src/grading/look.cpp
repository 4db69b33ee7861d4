#include "grading/look.h"

#include "core/text.h"
#include "grading/look_reader.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace XPJ {

namespace {

using Layers = std::vector<CZvShaderParamStorage>;

// A name from outside, made fit for quotes and for use as a bare value.
std::string StorableName(std::string_view name)
{
    std::string text(name);
    std::ranges::replace(text, '"', '\'');
    std::ranges::replace(text, '<', '(');
    return text;
}

CZvShaderParamStorage MakeLayer(std::string_view name)
{
    CZvShaderParamStorage layer;
    layer.name = name;
    layer.fields = {{.tag = "visible", .text = "1"}, {.tag = "opacity", .text = "1"}};
    return layer;
}

// ---- The old style

Layers::iterator FindLayer(Layers& layers, std::string_view name)
{
    return std::ranges::find_if(layers, [name](const CZvShaderParamStorage& layer) {
        return EqualsIgnoreCase(layer.name, name);
    });
}

bool IsNewStyle(const CZvGradingAnimation& animation)
{
    if (animation.keyframes.empty())
        return true;
    const Layers& layers = animation.keyframes.front().storage.layers;
    return !layers.empty() && EqualsIgnoreCase(layers.front().name, kGroupBeginLayer);
}

// At the position that is reserved for it, else first.
void AddColorLayer(Layers& layers)
{
    if (FindLayer(layers, kColorLayer) != layers.end())
        return;
    const auto placeholder = FindLayer(layers, kColorPlaceholderLayer);
    if (placeholder != layers.end())
        *placeholder = MakeLayer(kColorLayer);
    else
        layers.insert(layers.begin(), MakeLayer(kColorLayer));
}

// ---- Names

// A name of the animation alone would be read back as that of the grading.
void CompleteNames(CGrading& grading, std::string_view name)
{
    if (grading.name.empty())
        grading.name = StorableName(name);
    if (grading.name.empty())
        grading.name = std::exchange(grading.animation.name, {});
}

} // namespace

std::optional<CGrading> ReadLookDocument(std::string_view text, std::string_view name,
                                         CZvError* error)
{
    try {
        CGrading grading = ReadGrading(text);
        CompleteNames(grading, name);
        if (!IsNewStyle(grading.animation))
            for (GradingKeyframe& keyframe : grading.animation.keyframes)
                AddColorLayer(keyframe.storage.layers);
        if (!grading.properties)
            grading.properties.emplace();
        return grading;
    } catch (CZvError& fault) {
        fault.file = name;
        if (error)
            *error = std::move(fault);
        return {};
    }
}

std::optional<CGrading> ReadLookupTable(std::string_view bytes, std::string_view name,
                                        CZvError* error)
{
    std::optional<CZv3DLUT> table = ReadTable(bytes, StorableName(name), error);
    if (!table) {
        if (error)
            error->file = name;
        return {};
    }
    CGrading grading;
    grading.name = table->name;
    grading.guid = GuidOfBytes(bytes);
    grading.properties.emplace();
    CZvShaderParamStorage layer = MakeLayer("LUT");
    layer.parameters = {{.tag = "LUT", .text = table->name}};
    grading.animation.keyframes.emplace_back().storage.layers.push_back(std::move(layer));
    grading.embeddedLUTs.push_back(std::move(*table));
    return grading;
}

} // namespace XPJ
