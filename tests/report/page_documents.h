// Documents for the tests of the page.
#pragma once

#include "inspect/timeline.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace XPJ {

// Names that would break out of their place if they were taken for markup, script or JSON; one is
// no UTF-8.
inline constexpr std::string_view kHostileNames[] = {
    "</script><script>document.title = 'broken'</script>",
    "<!-- <script>",
    "<img src=x onerror=\"document.title = 'broken'\">",
    "\"}]; 'quotes' \\ `${document.title = 'broken'}` &lt; &amp;",
    "separators \xE2\x80\xA8 \xE2\x80\xA9 and \xE2\x80\xAE reversed",
    "ill-formed \xFF\xC3 bytes",
};

// A sequence of 25 frames a second that starts at one hour; tracks get their clips end to end.
inline Inspection::Sequence EmptySequence(std::string name)
{
    return {.name = std::move(name),
            .format = {.ticks = kPalFrameTicks},
            .start = 3600 * kTicksPerSecond};
}

inline Inspection::Item ItemAt(std::string name, std::int64_t frame, std::int64_t length)
{
    return {.name = std::move(name),
            .start = frame * kPalFrameTicks,
            .end = (frame + length) * kPalFrameTicks,
            .source = Inspection::SourceKind::MediaFile,
            .sourceName = "media.mov"};
}

// A feature film: the clips lie on ten tracks.
inline Inspection::Project LargeProject(std::size_t clipCount)
{
    constexpr std::size_t kTracks = 10;
    Inspection::Project project{.name = "Feature", .sequences = {EmptySequence("Reel 1 to 6")}};
    std::vector<Inspection::Track>& tracks = project.sequences[0].tracks;
    for (std::size_t t = 0; t < kTracks; ++t) {
        const bool isVideo = t < kTracks / 2;
        tracks.push_back({.kind = isVideo ? MediaType::Video : MediaType::Audio,
                          .number = static_cast<int>(isVideo ? t + 1 : t + 1 - kTracks / 2)});
    }
    for (std::size_t i = 0; i < clipCount; ++i) {
        const std::size_t track = i % kTracks;
        const auto place = static_cast<std::int64_t>(i / kTracks);
        const auto length = static_cast<std::int64_t>(20 + (i * 7919) % 60);
        tracks[track].items.push_back(ItemAt(
            "A" + std::to_string(100 + i % 400) + "_C" + std::to_string(i), place * 80, length));
    }
    return project;
}

} // namespace XPJ
