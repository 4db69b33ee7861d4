#include "media/media_search.h"

#include "core/paths.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <unordered_set>

namespace XPJ {

namespace {

namespace fs = std::filesystem;

// ASCII letters.
std::string InLowerCase(std::string_view name)
{
    std::string text(name);
    for (char& c : text)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return text;
}

// Sorted, so that two walks give the same.
std::vector<fs::path> EntriesOf(const fs::path& folder)
{
    std::vector<fs::path> entries;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error))
        entries.push_back(entry->path());
    std::ranges::sort(entries);
    return entries;
}

// Two links to one file, or a file and a link to it, are one.
void RemoveRepeated(std::vector<std::string>& paths)
{
    std::unordered_set<std::string> seen;
    std::erase_if(paths, [&seen](const std::string& path) {
        std::error_code error;
        const fs::path actual = fs::canonical(path, error);
        return !error && !seen.insert(actual.string()).second;
    });
}

} // namespace

// Folders behind links come last, so that a file that is in a folder itself is found there.
bool MediaSearch::Walk(const StopCheck& wantsStop)
{
    std::vector<fs::path> waiting;
    std::vector<fs::path> linked;
    for (auto folder = folders_.rbegin(); folder != folders_.rend(); ++folder)
        waiting.emplace_back(fs::path(AbsolutePath(*folder)).lexically_normal());
    std::unordered_set<std::string> visited;
    while (!waiting.empty() || !linked.empty()) {
        if (wantsStop && wantsStop()) {
            files_.clear();
            return false;
        }
        std::vector<fs::path>& next = waiting.empty() ? linked : waiting;
        const fs::path folder = std::move(next.back());
        next.pop_back();
        std::error_code error;
        const fs::path actual = fs::canonical(folder, error);
        if (error || !visited.insert(actual.string()).second)
            continue;
        for (const fs::path& entry : EntriesOf(folder)) {
            const fs::file_status status = fs::status(entry, error);
            if (fs::is_directory(status))
                (fs::is_symlink(fs::symlink_status(entry, error)) ? linked : waiting)
                    .push_back(entry);
            else if (fs::is_regular_file(status))
                files_[InLowerCase(entry.filename().string())].push_back(entry.string());
        }
    }
    return true;
}

std::vector<std::string> MediaSearch::FilesNamed(std::string_view name, const StopCheck& wantsStop)
{
    if (!isWalked_)
        isWalked_ = Walk(wantsStop);
    const auto found = files_.find(InLowerCase(name));
    if (found == files_.end())
        return {};
    std::vector<std::string> paths;
    std::ranges::copy_if(found->second, std::back_inserter(paths),
                         [name](const std::string& path) { return FileNameOf(path) == name; });
    if (paths.empty())
        paths = found->second;
    std::ranges::sort(paths);
    if (paths.size() > 1)
        RemoveRepeated(paths);
    return paths;
}

} // namespace XPJ
