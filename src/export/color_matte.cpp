#include "export/color_matte.h"

#include "core/base64.h"
#include "core/numbers.h"
#include "effects/parameters.h"

#include <array>
#include <cstdint>
#include <string>

namespace XPJ::RVX {

namespace {

using ColourBytes = std::array<std::uint8_t, 4>; // red, green, blue, alpha

constexpr ColourBytes kOpaqueBlack = {0, 0, 0, 255};

bool IsNumber(std::string_view text)
{
    return !text.empty() && text.find_first_not_of("0123456789") == text.npos;
}

ColourBytes BytesOf(std::string_view prefs)
{
    ColourBytes bytes{};
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

Colour MatteColour(std::string_view importerPrefs)
{
    const ColourBytes bytes = BytesOf(importerPrefs);
    return {.red = bytes[0], .green = bytes[1], .blue = bytes[2], .alpha = bytes[3]};
}

ObjectHandle ColorMatteEffect(ExportContext& context, Media media)
{
    const Colour colour = MatteColour(media.GetProperty("ImporterPrefs"));
    const ObjectHandle effect = context.document.NewObject("effect");
    effect.SetPropertyShared("name", "Color");
    effect.SetPropertyShared("effectid", "Color");
    effect.SetPropertyShared("effectcategory", "Matte");
    effect.SetPropertyShared("effecttype", "generator");
    effect.SetPropertyShared("mediatype", "video");
    AddColourValue(context.document,
                   AddParameter(context.document, effect, {.id = "fillcolor", .name = "Color"}),
                   colour);
    return effect;
}

} // namespace XPJ::RVX
