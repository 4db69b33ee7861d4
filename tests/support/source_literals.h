// The string literals of source folders: what of a document the code mentions by name.
#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <set>
#include <string>
#include <string_view>

namespace XPJ {

using Literals = std::set<std::string, std::less<>>;

// Plain literals only: those with escapes or line breaks are no names.
inline void AddLiterals(std::string_view source, Literals& literals)
{
    for (std::size_t i = 0; i < source.size(); ++i) {
        if (source.substr(i, 2) == "//") {
            i = std::min(source.find('\n', i), source.size());
        } else if (source[i] == '\'' && i + 2 < source.size()) {
            if (source[i + 1] == '"' && source[i + 2] == '\'')
                i += 2;
        } else if (source.substr(i, 3) == "R\"(") {
            i = std::min(source.find(")\"", i), source.size()) + 1;
        } else if (source[i] == '"') {
            const std::size_t begin = i + 1;
            for (++i; i < source.size() && source[i] != '"' && source[i] != '\n'; ++i)
                i += source[i] == '\\';
            literals.emplace(source.substr(begin, std::min(i, source.size()) - begin));
        }
    }
}

// `folders` are those below src/; files named in `except` don't count.
inline Literals LiteralsOf(std::initializer_list<std::string_view> folders,
                           const std::set<std::string>& except = {})
{
    Literals literals;
    for (const std::string_view folder : folders) {
        const std::filesystem::path path = std::filesystem::path(VELA_SOURCES) / folder;
        if (!std::filesystem::exists(path))
            continue;
        for (const auto& entry : std::filesystem::directory_iterator(path)) {
            if (except.contains(entry.path().filename().string()))
                continue;
            std::ifstream file(entry.path(), std::ios::binary);
            AddLiterals(std::string(std::istreambuf_iterator<char>(file), {}), literals);
        }
    }
    return literals;
}

} // namespace XPJ
