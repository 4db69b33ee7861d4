// Conversions of what is nested deep, on a small stack.
#include "platform/default_platform.h"
#include "platform/platform.h"
#include "support/count_of.h"
#include "support/export_text.h"
#include "support/import_text.h"
#include "support/small_stack.h"

#include <string>

#include <gtest/gtest.h>

namespace XPJ {
namespace {

TEST(SmallStack, HoldsTheDeepestBins)
{
    constexpr std::size_t kBins = (kMaxNesting - 3) / 2; // in `xmeml`, `project` and `children`
    const std::string document = "<xmeml version=\"5\"><project><children>" +
                                 Repeated("<bin><name>B</name><children>", kBins) +
                                 Repeated("</children></bin>", kBins) +
                                 "</children></project></xmeml>";
    RunOnSmallStack([&] {
        DefaultPlatform platform;
        const PlatformScope scope(platform);
        const std::string project = ImportText(document).project;
        EXPECT_EQ(CountOf(project, "<BinProjectItem "), kBins);
        const std::string back = RVX::ExportText(project).xmeml;
        EXPECT_EQ(CountOf(back, "<bin>"), kBins);
        EXPECT_EQ(CountOf(ImportText(back).project, "<BinProjectItem "), kBins);
    });
}

TEST(SmallStack, HoldsSequencesInSequences)
{
    constexpr std::size_t kSequences = 150;
    std::string document =
        "<sequence id=\"last\"><name>S</name><rate><timebase>25</timebase></rate>"
        "<media><video/></media></sequence>";
    for (std::size_t i = 0; i < kSequences; ++i)
        document = "<sequence id=\"s" + std::to_string(i) +
                   "\"><name>S</name><rate><timebase>25</timebase></rate><media><video><track>"
                   "<clipitem><start>0</start><end>9</end><in>0</in><out>9</out>" +
                   document + "</clipitem></track></video></media></sequence>";
    document = "<xmeml version=\"5\">" + document + "</xmeml>";
    RunOnSmallStack([&] {
        DefaultPlatform platform;
        const PlatformScope scope(platform);
        const std::string back = RVX::ExportText(ImportText(document).project).xmeml;
        EXPECT_EQ(CountOf(back, "</sequence>"), kSequences + 1);
    });
}

} // namespace
} // namespace XPJ
