// Documents for the tests of the page.
#pragma once

#include "inspect/timeline.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace XPJ {

// Names that would break out of their element if they were taken for markup, script or JSON; one is
// no UTF-8.
inline constexpr std::string_view kHostileNames[] = {
    "</script><script>document.title = 'broken'</script>",
    "<!-- <script>",
    "<img src=x onerror=\"document.title = 'broken'\">",
    "\"}]; 'quotes' \\ `${document.title = 'broken'}` &lt; &amp;",
    "separators \xE2\x80\xA8 \xE2\x80\xA9 and \xE2\x80\xAE reversed",
    "ill-formed \xFF\xC3 bytes",
};

inline Inspection::Sequence EmptySequence(std::string name, Inspection::TimecodeFormat format = {
                                                                kPalFrameTicks, false})
{
    return {.name = std::move(name), .format = format, .start = 90000 * format.ticks};
}

inline Inspection::Item ItemAt(std::string name, Ticks start, Ticks end)
{
    return {.name = std::move(name),
            .start = start,
            .end = end,
            .source = Inspection::SourceKind::MediaFile,
            .sourceName = "media.mov"};
}

// A feature film with drop frame: its clips are on ten tracks, with gaps between them.
inline Inspection::Project LargeProject(std::size_t clipCount)
{
    constexpr std::size_t kTracks = 10;
    constexpr Inspection::TimecodeFormat kFormat{kNtscFrameTicks, true};
    Inspection::Project project{.name = "Feature",
                                .sequences = {EmptySequence("Reel 1 to 6", kFormat)}};
    std::vector<Inspection::Track>& tracks = project.sequences[0].tracks;
    for (std::size_t t = 0; t < kTracks; ++t) {
        const bool isVideo = t < kTracks / 2;
        tracks.push_back({.kind = isVideo ? MediaType::Video : MediaType::Audio,
                          .number = static_cast<int>(isVideo ? t + 1 : t + 1 - kTracks / 2)});
    }
    for (std::size_t i = 0; i < clipCount; ++i) {
        const auto start = static_cast<Ticks>(i / kTracks * 80);
        const auto length = static_cast<Ticks>(20 + (i * 7919) % 61);
        tracks[i % kTracks].items.push_back(
            ItemAt("A" + std::to_string(100 + i % 400) + "_C" + std::to_string(i),
                   start * kFormat.ticks, (start + length) * kFormat.ticks));
    }
    return project;
}

} // namespace XPJ
