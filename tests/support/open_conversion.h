// Conversions in memory, with the dialects or to the letter.
#pragma once

#include "frame/conversion.h"
#include "platform/default_platform.h"
#include "platform/platform.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <string_view>
#include <utility>

namespace XPJ {

class OpenConversion {
public:
    OpenConversion() { SetOpen(true); }

    void Set(const std::string& entry) { platform_.SetDebugEntry(entry, "true"); }
    void SetOpen(bool isOpen)
    {
        platform_.SetDebugEntry("FCP.OpenInterchange", isOpen ? "true" : "false");
    }

    std::string ToProject(const std::string& xmeml)
    {
        return Converted({.inputPath = folder_.Write("cut.xml", xmeml)});
    }
    std::string ToXmeml(const std::string& project, ConversionRequest request = {})
    {
        request.from = &FormatOf(TreeKind::Project);
        request.to = &FormatOf(TreeKind::Xmeml);
        request.inputPath = folder_.Write("cut.vlproj", project);
        return Converted(std::move(request));
    }
    std::string ThereAndBack(const std::string& project) { return ToProject(ToXmeml(project)); }

private:
    std::string Converted(ConversionRequest request)
    {
        request.reserveReport = [] { return std::string(); };
        request.listsReport = false;
        std::ostringstream output;
        SilentProgress progress;
        ConversionOutcome outcome;
        EXPECT_EQ(Convert(request, {.input = nullptr, .output = output}, progress, outcome),
                  kSuccess)
            << request.inputPath;
        return output.str();
    }

    TempFolder folder_;
    DefaultPlatform platform_;
    PlatformScope scope_{platform_};
};

class OpenConversionTest : public ::testing::Test, protected OpenConversion {};

// An element.
inline std::string In(std::string_view name, std::string_view content)
{
    return "<" + std::string(name) + ">" + std::string(content) + "</" + std::string(name) + ">";
}

inline bool Has(std::string_view text, std::string_view part)
{
    return text.find(part) != text.npos;
}

inline int CountOf(std::string_view text, std::string_view part)
{
    int count = 0;
    for (std::size_t at = text.find(part); at != text.npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

} // namespace XPJ
