// Tables of tests that are files of the test data: a row a line, its fields between " => ", with
// the escapes \n \t \r \0 \\ and \xHH. Lines that start with "# " are comments.
#pragma once

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace XPJ {

inline std::string Unescaped(std::string_view text)
{
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\' || i + 1 == text.size()) {
            result += text[i];
            continue;
        }
        const char c = text[++i];
        if (c == 'x') {
            result += static_cast<char>(std::stoi(std::string(text.substr(i + 1, 2)), nullptr, 16));
            i += 2;
        } else {
            result += c == 'n' ? '\n' : c == 't' ? '\t' : c == 'r' ? '\r' : c == '0' ? '\0' : c;
        }
    }
    return result;
}

// Of `name` below the test data; every row has that many fields.
inline std::vector<std::vector<std::string>> ReadRows(std::string_view name, std::size_t fields)
{
    constexpr std::string_view kMark = " =>";
    std::ifstream file(std::filesystem::path(VELA_TEST_DATA) / name);
    std::vector<std::vector<std::string>> rows;
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line.starts_with("# "))
            continue;
        std::vector<std::string> row;
        for (std::string_view rest = line; row.size() < fields;) {
            const std::size_t end = std::min(rest.find(kMark), rest.size());
            row.push_back(Unescaped(rest.substr(0, end)));
            rest.remove_prefix(std::min(end + kMark.size() + 1, rest.size()));
        }
        rows.push_back(std::move(row));
    }
    EXPECT_FALSE(rows.empty()) << name;
    return rows;
}

} // namespace XPJ
