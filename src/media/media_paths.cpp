#include "media/media_paths.h"

#include "core/paths.h"
#include "media/media_header.h"

#include <algorithm>
#include <filesystem>

namespace XPJ {

namespace {

// Documents count whole frames, headers samples too.
bool AreClose(Ticks a, Ticks b, Ticks frameTicks)
{
    constexpr Ticks kShortest = kTicksPerSecond / 60;
    const Ticks frame = frameTicks > 0 ? frameTicks : kNtscFrameTicks;
    const Ticks tolerance = std::max(frame, kShortest);
    const Ticks difference = SubtractTicks(a, b);
    return difference >= -tolerance && difference <= tolerance;
}

// 23.976 and 24 frames a second are not the same, 23.976 and 23.98 are.
bool AreSameRates(Ticks a, Ticks b)
{
    return std::abs(a - b) <= a / 4000;
}

// The one that fits best; none, an empty text, where two fit equally.
std::string BestOf(const std::vector<std::string>& paths, const MediaFacts& stated)
{
    std::string best;
    int agreements = -1;
    for (const std::string& path : paths) {
        const FactsFit fit = CompareFacts(stated, ReadMediaHeaderOfFile(path));
        if (fit.isOfOtherTime || fit.agreements < agreements)
            continue;
        best = fit.agreements > agreements ? path : std::string();
        agreements = fit.agreements;
    }
    return best;
}

// A relative path counts from the current folder.
std::string RootedPath(const std::string& path)
{
    const bool isRooted =
        path.starts_with('/') || path.starts_with('\\') || path.substr(1).starts_with(':');
    return isRooted ? path : std::filesystem::path(AbsolutePath(path)).lexically_normal().string();
}

std::string_view NameOfFile(std::string_view path)
{
    return path.substr(path.find_last_of("/\\") + 1);
}

} // namespace

FactsFit CompareFacts(const MediaFacts& stated, const MediaFacts& found)
{
    FactsFit fit;
    const auto compareTimes = [&fit](bool areKnown, bool areSame) {
        fit.isOfOtherTime = fit.isOfOtherTime || (areKnown && !areSame);
        fit.agreements += areKnown && areSame;
    };
    compareTimes(stated.length > 0 && found.length > 0,
                 AreClose(stated.length, found.length, stated.frameTicks));
    compareTimes(stated.frameTicks > 1 && found.frameTicks > 1,
                 AreSameRates(stated.frameTicks, found.frameTicks));
    // Many writers state a start of 0 for any file.
    const Ticks start = stated.start.value_or(0);
    const bool isSameStart = AreClose(start, found.start.value_or(0), stated.frameTicks);
    compareTimes(stated.start && found.start && (start != 0 || isSameStart), isSameStart);

    const auto compare = [&fit](int a, int b) { fit.agreements += a > 0 && a == b; };
    if (stated.height == found.height)
        compare(stated.width, found.width);
    compare(stated.sampleRate, found.sampleRate);
    compare(stated.channels, found.channels);
    return fit;
}

std::vector<std::string> MediaPaths::FilesNamed(std::string_view name, const StopCheck& wantsStop)
{
    const std::lock_guard lock(searching_);
    return search_.FilesNamed(name, wantsStop);
}

MediaPath MediaPaths::Find(const std::string& path, const MediaFacts& stated,
                           const StopCheck& wantsStop)
{
    MediaPath result{.path = path};
    if (path.empty())
        return result;
    if (std::optional<std::string> mapped = map_.Mapped(RootedPath(path))) {
        result.path = std::move(*mapped);
        result.isMapped = true;
    }
    if (!search_.HasFolders() || FileExists(result.path))
        return result;
    const std::vector<std::string> files = FilesNamed(NameOfFile(result.path), wantsStop);
    std::string best = files.size() == 1 ? files.front() : BestOf(files, stated);
    if (!best.empty()) {
        result.path = std::move(best);
        result.search = MediaSearchResult::Found;
    } else {
        result.candidates = files.size();
        result.search = files.empty() ? MediaSearchResult::NotFound : MediaSearchResult::Ambiguous;
    }
    return result;
}

} // namespace XPJ
