#include "effects/color_matte.h"

#include "core/base64.h"
#include "core/numbers.h"
#include "effects/effect_elements.h"
#include "effects/parameters.h"

#include <array>
#include <cstdint>
#include <string>

namespace XPJ {

namespace {

using ColorBytes = std::array<std::uint8_t, 4>; // red, green, blue, alpha

constexpr ColorBytes kOpaqueBlack = {0, 0, 0, 255};

bool IsNumber(std::string_view text)
{
    return !text.empty() && text.find_first_not_of("0123456789") == text.npos;
}

ColorBytes BytesOf(std::string_view prefs)
{
    ColorBytes bytes{};
    if (IsNumber(prefs)) {
        const std::int64_t packed = ParseInt64(prefs);
        for (std::size_t i = 0; i < bytes.size(); ++i)
            bytes[i] = static_cast<std::uint8_t>(packed >> (8 * i) & 0xff);
        return bytes;
    }
    const std::string data = DecodeBase64(prefs);
    if (data.size() < bytes.size())
        return kOpaqueBlack;
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<std::uint8_t>(data[i]);
    return bytes;
}

} // namespace

Color MatteColor(std::string_view importerPrefs)
{
    const ColorBytes bytes = BytesOf(importerPrefs);
    return {.red = bytes[0], .green = bytes[1], .blue = bytes[2], .alpha = bytes[3]};
}

ObjectHandle ColorMatteEffect(Document& document, ConstHandle media)
{
    const Color color = MatteColor(media.GetProperty("ImporterPrefs"));
    const ObjectHandle effect = document.NewObject("effect");
    WriteEffectHead({"Color", "Color", "Matte", "generator"}, effect);
    AddColorValue(document, AddParameter(document, effect, {.id = "fillcolor", .name = "Color"}),
                  color);
    return effect;
}

} // namespace XPJ
