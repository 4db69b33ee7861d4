#include "xpjconvert/documents.h"

#include "core/paths.h"
#include "frame/otio_conversion.h"
#include "platform/files.h"
#include "tree/input.h"
#include "xpjconvert/closing_line.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <system_error>

#include <fmt/format.h>

namespace XPJ {
namespace {

namespace fs = std::filesystem;

std::string InLowerCase(std::string_view text)
{
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return lower;
}

const Format* FormatOfName(std::string_view name)
{
    return FormatOfExtension(InLowerCase(ExtensionOf(name)));
}

// The start of a file, enough to show what it is; empty for what isn't a regular file.
std::string HeadOf(const std::string& path)
{
    constexpr std::size_t kHead = std::size_t{64} * 1024;
    std::string head;
    std::error_code error;
    CoreFile file;
    if (!fs::is_regular_file(path, error) || !file.Open(path, false))
        return head;
    head.resize(kHead);
    std::size_t count = 0;
    static_cast<void>(file.Read(head.data(), head.size(), count));
    head.resize(count);
    return head;
}

const Format* FormatOfContent(const std::string& path)
{
    const std::string head = HeadOf(path);
    std::string decoded;
    EncodingFaults faults;
    return KnownFormatOfText(DecodeDocument(head, decoded, faults));
}

void AddFolder(const fs::path& folder, bool recursive, std::vector<InputDocument>& documents,
               std::string& problems)
{
    const std::size_t first = documents.size();
    std::vector<fs::path> open{folder};
    while (!open.empty()) {
        const fs::path current = open.back();
        open.pop_back();
        std::error_code error;
        for (fs::directory_iterator entry(current, error), end; !error && entry != end;
             entry.increment(error)) {
            std::error_code unknown;
            if (recursive && entry->is_directory(unknown) && !entry->is_symlink(unknown))
                open.push_back(entry->path());
            else if (FormatOfName(entry->path().string()) && entry->is_regular_file(unknown))
                documents.push_back({.path = entry->path().string(),
                                     .place = entry->path().lexically_relative(folder).string()});
        }
        if (error)
            problems += fmt::format("XPJConvert: {}: {}.\n", current.string(), error.message());
    }
    std::ranges::sort(documents.begin() + static_cast<std::ptrdiff_t>(first), documents.end(), {},
                      &InputDocument::path);
}

void AddInput(const std::string& input, bool recursive, std::vector<InputDocument>& documents,
              std::string& problems)
{
    std::error_code error;
    if (input != kStandardStream && fs::is_directory(input, error))
        AddFolder(input, recursive, documents, problems);
    else
        documents.push_back({.path = input, .place = std::string(FileNameOf(input))});
}

// The lines of a list, without those that are empty.
std::vector<std::string> LinesOf(std::string_view text)
{
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        if (!line.empty())
            lines.emplace_back(line);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

void AddList(const std::string& path, bool recursive, std::vector<InputDocument>& documents,
             std::string& problems)
{
    InputText text;
    CoreFile file;
    if (!file.Open(path == kStandardStream ? "/dev/stdin" : path, false) || !text.Read(file)) {
        problems += fmt::format("XPJConvert: {}: {}.\n", path, ErrorText(file.Error()));
        return;
    }
    for (const std::string& line : LinesOf(text.Bytes()))
        AddInput(line, recursive, documents, problems);
}

} // namespace

std::vector<InputDocument> ExpandInputs(const ToolOptions& options, std::string& problems)
{
    std::vector<InputDocument> documents;
    for (const std::string& input : options.inputs)
        if (input.starts_with('@') && !FileExists(input))
            AddList(input.substr(1), options.recursive, documents, problems);
        else
            AddInput(input, options.recursive, documents, problems);
    return documents;
}

const Format& FormatOfDocument(const ToolOptions& options, const std::string& path,
                               const std::string& name)
{
    if (options.from)
        return *options.from;
    if (const Format* const shown = FormatOfContent(path))
        return *shown;
    if (const Format* const named = FormatOfName(name))
        return *named;
    return options.to ? FormatToWrite(*options.to) : AllFormats().front();
}

bool IsDocumentOf(const Format& format, const std::string& path)
{
    return FormatOfContent(path) == &format;
}

const Format& FormatToWrite(const Format& from)
{
    return FormatOf(from.kind == TreeKind::Xmeml ? TreeKind::Project : TreeKind::Xmeml);
}

std::string_view ExtensionToWrite(const ToolOptions& options, const Format& from)
{
    return options.toOtio ? kOtioExtension : FormatToWrite(from).extension;
}

std::string OutputNameOf(const std::string& place, const Format& to)
{
    return OutputNameOf(place, to.extension);
}

std::string OutputNameOf(const std::string& place, std::string_view extension)
{
    std::string_view stem = place;
    if (FormatOfName(place))
        stem.remove_suffix(ExtensionOf(place).size() + 1);
    return std::string(stem).append(".").append(extension);
}

std::string OutputPathOf(const ToolOptions& options, const std::string& name, const Format& to)
{
    std::string file = OutputNameOf(name, options.toOtio ? kOtioExtension : to.extension);
    if (options.output.empty())
        return file;
    std::error_code error;
    const fs::path output(options.output);
    if (options.output.ends_with('/'))
        fs::create_directories(output, error); // a folder that can't be made holds no file either
    return fs::is_directory(output, error) || options.output.ends_with('/')
               ? (output / file).string()
               : options.output;
}

} // namespace XPJ
