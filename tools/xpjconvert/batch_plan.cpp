#include "xpjconvert/batch_plan.h"

#include "core/paths.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <filesystem>
#include <map>
#include <string_view>
#include <unordered_set>
#include <utility>

namespace XPJ {
namespace {

namespace fs = std::filesystem;

// "day1/cut.XML" -> "day1/cut"
std::string StemOf(const std::string& name)
{
    const Format& any = AllFormats().front();
    std::string stem = OutputNameOf(name, any);
    stem.resize(stem.size() - any.extension.size() - 1);
    return stem;
}

// File systems that ignore the case have one file for both.
std::string KeyOf(std::string text)
{
    std::ranges::transform(text, text.begin(),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

// One document may be named itself and be in a folder that is named, too.
void RemoveRepeated(std::vector<InputDocument>& documents)
{
    std::unordered_set<std::string> known;
    std::erase_if(documents, [&known](const InputDocument& document) {
        return !known.insert(NormalPath(document.path) + '\0' + document.place).second;
    });
}

bool IsBelow(std::string_view path, std::string_view folder)
{
    return path.size() > folder.size() && path.starts_with(folder) && path[folder.size()] == '/';
}

// What an earlier run has written into a folder that is below one of the inputs.
void RemoveOutputs(const std::string& outputFolder, std::vector<InputDocument>& documents)
{
    const std::string output = NormalPath(outputFolder);
    std::erase_if(documents, [&output](const InputDocument& document) {
        const std::string path = NormalPath(document.path);
        if (!IsBelow(path, output))
            return false;
        const std::string end = "/" + document.place;
        return path.ends_with(end) &&
               IsBelow(output, std::string_view(path).substr(0, path.size() - end.size()));
    });
}

// The indices of the documents whose output would have the name of another one's. What a document
// is has to be looked up only where the names alone don't decide.
std::vector<std::size_t> FindClashes(const ToolOptions& options,
                                     const std::vector<InputDocument>& documents)
{
    std::map<std::string, std::vector<std::size_t>> byStem;
    for (std::size_t i = 0; i < documents.size(); ++i)
        byStem[KeyOf(StemOf(documents[i].place))].push_back(i);
    std::vector<std::size_t> clashes;
    for (const auto& [stem, indices] : byStem) {
        if (indices.size() == 1)
            continue;
        std::map<std::string_view, std::vector<std::size_t>> byExtension;
        for (const std::size_t i : indices)
            byExtension[ExtensionToWrite(options, FormatOfDocument(options, documents[i].path,
                                                                   documents[i].path))]
                .push_back(i);
        for (const auto& [extension, same] : byExtension)
            if (same.size() > 1)
                clashes.insert(clashes.end(), same.begin(), same.end());
    }
    return clashes;
}

fs::path CommonPart(const fs::path& first, const fs::path& second)
{
    fs::path common;
    for (auto a = first.begin(), b = second.begin();
         a != first.end() && b != second.end() && *a == *b; ++a, ++b)
        common /= *a;
    return common;
}

// Each is named as it is below the deepest folder that has all of them.
void MirrorFolders(std::vector<InputDocument>& documents)
{
    fs::path common;
    bool isFirst = true;
    for (const InputDocument& document : documents) {
        if (document.path == kStandardStream)
            continue;
        const fs::path folder = fs::path(NormalPath(document.path)).parent_path();
        common = isFirst ? folder : CommonPart(common, folder);
        isFirst = false;
    }
    for (InputDocument& document : documents)
        if (document.path != kStandardStream)
            document.place =
                fs::path(NormalPath(document.path)).lexically_relative(common).string();
}

} // namespace

std::string NormalPath(const std::string& path)
{
    std::string normal = fs::path(AbsolutePath(path)).lexically_normal().string();
    if (normal.size() > 1 && normal.ends_with('/'))
        normal.pop_back();
    return normal;
}

std::string RealPath(const std::string& path)
{
    std::error_code error;
    const fs::path real = fs::weakly_canonical(path, error);
    return error ? NormalPath(path) : real.string();
}

std::vector<PlannedDocument> PlanBatch(const ToolOptions& options,
                                       std::vector<InputDocument> documents)
{
    for (InputDocument& document : documents)
        if (document.path == kStandardStream)
            document.place = "standard input";
    RemoveOutputs(options.output, documents);
    RemoveRepeated(documents);
    std::vector<std::size_t> clashes = FindClashes(options, documents);
    if (!clashes.empty()) {
        MirrorFolders(documents);
        RemoveRepeated(documents);
        clashes = FindClashes(options, documents);
    }
    std::vector<PlannedDocument> planned;
    planned.reserve(documents.size());
    for (const InputDocument& document : documents)
        planned.push_back({document, StemOf(document.place)});
    for (const std::size_t i : clashes)
        planned[i].outputStem = documents[i].place;
    return planned;
}

bool IsInPart(const PlannedDocument& planned, const BatchPart& part)
{
    std::uint64_t hash = 14695981039346656037U; // FNV-1a
    for (const char c : planned.document.path)
        hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211U;
    return hash % part.count == part.number - 1;
}

} // namespace XPJ
