#include "media/path_map.h"

#include "core/csv.h"
#include "core/paths.h"
#include "core/text.h"
#include "platform/files.h"

#include <algorithm>
#include <cstddef>

#include <fmt/format.h>

namespace XPJ {

namespace {

constexpr std::size_t kMaxFileSize = std::size_t{256} << 20;

bool IsLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool StartsWithDrive(std::string_view path)
{
    return path.size() >= 2 && IsLetter(path[0]) && path[1] == ':' &&
           (path.size() == 2 || path[2] == '/');
}

// "\\server\a" is "//server/a", "/c:/a" is "C:/a".
std::string ComparablePath(std::string_view path)
{
    std::string text(path);
    std::ranges::replace(text, '\\', '/');
    if (text.starts_with('/') && StartsWithDrive(std::string_view(text).substr(1)))
        text.erase(0, 1);
    if (StartsWithDrive(text) && text[0] >= 'a')
        text[0] = static_cast<char>(text[0] - 'a' + 'A');
    return text;
}

// Without the last separators: "/" is the empty text.
std::string Prefix(std::string_view text)
{
    const bool isUrl = text.size() >= 5 && EqualsIgnoreCase(text.substr(0, 5), "file:");
    std::string prefix = ComparablePath(isUrl ? PathFromUrl(text, "") : std::string(text));
    while (prefix.ends_with('/'))
        prefix.pop_back();
    return prefix;
}

} // namespace

bool PathMap::Add(std::string_view oldPrefix, std::string_view newPrefix)
{
    if (oldPrefix.empty() || newPrefix.empty())
        return false;
    prefixes_.try_emplace(Prefix(oldPrefix), Prefix(newPrefix));
    return true;
}

std::optional<std::string> PathMap::Mapped(std::string_view path) const
{
    if (IsEmpty())
        return std::nullopt;
    const std::string comparable = ComparablePath(path);
    std::size_t end = comparable.size();
    for (;;) {
        // A server's name is no folder below "/".
        const bool isServerOnly = end <= 1 && comparable.starts_with("//");
        const auto found =
            isServerOnly ? prefixes_.end() : prefixes_.find(comparable.substr(0, end));
        if (found != prefixes_.end()) {
            std::string mapped = found->second + comparable.substr(end);
            return mapped == comparable ? std::nullopt : std::optional(std::move(mapped));
        }
        if (end == 0)
            return std::nullopt;
        const std::size_t slash = comparable.rfind('/', end - 1);
        if (slash == comparable.npos)
            return std::nullopt;
        end = slash;
    }
}

std::string AddPathPairs(std::string_view csv, std::string_view name, PathMap& map)
{
    CsvReader reader(csv);
    bool isFirst = true;
    while (const std::optional<CsvRecord> record = reader.Next()) {
        if (!record->fault.empty())
            return fmt::format("{}:{}: {}", name, record->line, record->fault);
        if (record->fields.size() != 2)
            return fmt::format("{}:{}: not two columns, the old path and the new one", name,
                               record->line);
        const std::string& oldPrefix = record->fields[0];
        const std::string& newPrefix = record->fields[1];
        const bool isHeading = isFirst && EqualsIgnoreCase(Trimmed(oldPrefix), "old") &&
                               EqualsIgnoreCase(Trimmed(newPrefix), "new");
        isFirst = false;
        if (!isHeading && !map.Add(oldPrefix, newPrefix))
            return fmt::format("{}:{}: one of the two paths is empty", name, record->line);
    }
    return {};
}

std::string AddPathFile(const std::string& path, PathMap& map)
{
    const std::optional<std::string> csv = ReadRegularFile(path, kMaxFileSize);
    return csv ? AddPathPairs(*csv, path, map) : path + ": the file can't be read";
}

} // namespace XPJ
