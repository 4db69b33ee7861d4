// Two documents of the same edit, one of each family.
#pragma once

#include "frame/document_timelines.h"

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

namespace XPJ::Inspection {

inline std::string DataText(const char* name)
{
    std::ifstream file(std::filesystem::path(VELA_TEST_DATA) / "inspect" / name);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

// The first `from` becomes `to`; it has to be there.
inline std::string Replaced(std::string text, const std::string& from, const std::string& to)
{
    const std::size_t at = text.find(from);
    EXPECT_NE(at, text.npos) << from;
    return at == text.npos ? text : text.replace(at, from.size(), to);
}

inline Project Timelines(const std::string& text)
{
    DocumentTimelines timelines = ReadTimelines(text);
    EXPECT_EQ(timelines.result, kSuccess);
    return std::move(timelines.project);
}

} // namespace XPJ::Inspection
