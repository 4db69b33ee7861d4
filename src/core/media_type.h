// The two media types, and the GUIDs that stand for them in project documents.
#pragma once

#include <string_view>

namespace XPJ {

enum class MediaType { Video, Audio };

// Value of `MediaType` and of a track group's `First`.
constexpr std::string_view MediaTypeText(MediaType type)
{
    return type == MediaType::Video ? "228cda18-3625-4d2d-951e-348879e4ed93"
                                    : "80b8e3d5-6dca-4195-aefb-cb5f407ab009";
}

} // namespace XPJ
