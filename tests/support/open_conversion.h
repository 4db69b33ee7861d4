// Conversions in memory, with the dialects or to the letter.
#pragma once

#include "frame/conversion.h"
#include "platform/default_platform.h"
#include "platform/platform.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace XPJ {

class OpenConversionTest : public ::testing::Test {
protected:
    OpenConversionTest() { SetOpen(true); }

    void SetOpen(bool isOpen)
    {
        platform_.SetDebugEntry("FCP.OpenInterchange", isOpen ? "true" : "false");
    }

    std::string ToProject(const std::string& xmeml)
    {
        return Converted({.inputPath = folder_.Write("cut.xml", xmeml)});
    }
    std::string ToXmeml(const std::string& project)
    {
        return Converted({.from = &FormatOf(TreeKind::Project),
                          .to = &FormatOf(TreeKind::Xmeml),
                          .inputPath = folder_.Write("cut.vlproj", project)});
    }

private:
    std::string Converted(ConversionRequest request)
    {
        request.reportFolder = folder_ / "";
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
