// Hosts run plug-ins on threads of their own, whose stacks may be small.
#include "core/progress.h"
#include "export/export_driver.h"
#include "import/import_driver.h"
#include "platform/default_platform.h"
#include "platform/platform.h"
#include "project/reader.h"
#include "project/writer.h"
#include "tree/reading.h"
#include "xmeml/reader.h"
#include "xmeml/writer.h"

#include <functional>
#include <sstream>
#include <string>

#include <pthread.h>

#include <gtest/gtest.h>

namespace XPJ {
namespace {

constexpr std::size_t kSmallStack = std::size_t{256} * 1024;

void* Call(void* work)
{
    (*static_cast<const std::function<void()>*>(work))();
    return nullptr;
}

void RunOnSmallStack(const std::function<void()>& work)
{
    pthread_attr_t attributes;
    ASSERT_EQ(pthread_attr_init(&attributes), 0);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, kSmallStack), 0);
    pthread_t thread{};
    ASSERT_EQ(pthread_create(&thread, &attributes, Call, const_cast<std::function<void()>*>(&work)),
              0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}

std::string Repeated(std::string_view text, int count)
{
    std::string result;
    for (int i = 0; i < count; ++i)
        result += text;
    return result;
}

int CountOf(std::string_view text, std::string_view part)
{
    int count = 0;
    for (std::size_t i = text.find(part); i != text.npos; i = text.find(part, i + 1))
        ++count;
    return count;
}

std::string ToProject(std::string_view xmeml)
{
    SilentProgress progress;
    IssueSet issues;
    Document input;
    Document output;
    ObjectHandle root;
    ObjectHandle project;
    EXPECT_EQ(ParseFCPXML(xmeml, input, root), kReadDone);
    EXPECT_EQ(ImportDocument(root, {}, progress, output, issues, project), kSuccess);
    std::ostringstream text;
    EXPECT_EQ(WriteProjectDocument(project, progress, text, false), kWriteDone);
    return text.str();
}

std::string ToXmeml(const std::string& project)
{
    SilentProgress progress;
    IssueSet issues;
    Document input;
    Document output;
    ObjectHandle root;
    ObjectHandle xmeml;
    std::istringstream stream(project);
    EXPECT_EQ(ReadProjectDocument(stream, input, root), kReadDone);
    EXPECT_EQ(RVX::TranslateProjectDocument(root, {}, progress, output, issues, xmeml), kSuccess);
    std::ostringstream text;
    EXPECT_EQ(WriteFCPXML(xmeml, progress, false, text), kWriteDone);
    return text.str();
}

TEST(SmallStack, HoldsTheDeepestBins)
{
    constexpr int kBins = (kMaxNesting - 3) / 2; // in `xmeml`, `project` and `children`
    const std::string document = "<xmeml version=\"5\"><project><children>" +
                                 Repeated("<bin><name>B</name><children>", kBins) +
                                 Repeated("</children></bin>", kBins) +
                                 "</children></project></xmeml>";
    RunOnSmallStack([&] {
        DefaultPlatform platform;
        const PlatformScope scope(platform);
        const std::string project = ToProject(document);
        EXPECT_EQ(CountOf(project, "<BinProjectItem "), kBins);
        const std::string back = ToXmeml(project);
        EXPECT_EQ(CountOf(back, "<bin>"), kBins);
        EXPECT_EQ(CountOf(ToProject(back), "<BinProjectItem "), kBins);
    });
}

TEST(SmallStack, HoldsSequencesInSequences)
{
    constexpr int kSequences = 150;
    std::string document =
        "<sequence id=\"last\"><name>S</name><rate><timebase>25</timebase></rate>"
        "<media><video/></media></sequence>";
    for (int i = 0; i < kSequences; ++i)
        document = "<sequence id=\"s" + std::to_string(i) +
                   "\"><name>S</name><rate><timebase>25</timebase></rate><media><video><track>"
                   "<clipitem><start>0</start><end>9</end><in>0</in><out>9</out>" +
                   document + "</clipitem></track></video></media></sequence>";
    document = "<xmeml version=\"5\">" + document + "</xmeml>";
    RunOnSmallStack([&] {
        DefaultPlatform platform;
        const PlatformScope scope(platform);
        const std::string back = ToXmeml(ToProject(document));
        EXPECT_EQ(CountOf(back, "</sequence>"), kSequences + 1);
    });
}

} // namespace
} // namespace XPJ
