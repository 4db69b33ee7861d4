#include "frame/conversion_operation.h"
#include "frame/export_operation.h"
#include "frame_test_support.h"

#include <gtest/gtest.h>

#include <new>
#include <sstream>
#include <stdexcept>

namespace XPJ {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

// An operation that does what a test says.
class TestOperation final : public Operation {
public:
    using Body = std::function<int(Operation&, Findings&)>;
    explicit TestOperation(Body body) : body_(std::move(body)) {}
    ~TestOperation() override { Join(); }

private:
    int Convert(Findings& findings) override { return body_(*this, findings); }
    Body body_;
};

int ResultOf(const TestOperation::Body& body)
{
    TestOperation operation(body);
    EXPECT_EQ(operation.GetResult(), kUnexpectedError);
    EXPECT_TRUE(operation.Start());
    EXPECT_TRUE(operation.WaitFor(10s));
    return operation.GetResult();
}

TEST(Operation, MapsExceptionsToResults)
{
    EXPECT_EQ(ResultOf([](Operation&, Findings&) -> int { return kNoXMELM; }), kNoXMELM);
    EXPECT_EQ(ResultOf([](Operation&, Findings&) -> int { throw std::bad_alloc(); }), kOutOfMemory);
    EXPECT_EQ(ResultOf([](Operation&, Findings&) -> int { throw std::logic_error("link"); }),
              kUnexpectedError);
    EXPECT_EQ(ResultOf([](Operation&, Findings&) -> int { throw 3; }), kUnexpectedError);
}

TEST(Operation, AnExceptionEndsTheStagesAndKeepsTheFindings)
{
    TestOperation operation([](Operation& progress, Findings& findings) -> int {
        const StageScope road(progress, 1, 8);
        const StageScope step(progress, 2, 4);
        findings.issues.insert(TranslationIssue());
        findings.stop.line = 12;
        throw std::runtime_error("end");
    });
    operation.Start();
    ASSERT_TRUE(operation.WaitFor(10s));
    EXPECT_DOUBLE_EQ(operation.GetProgress(), 1);
    EXPECT_TRUE(operation.HasIssues());
    EXPECT_EQ(operation.GetIssues().size(), 1u);
    EXPECT_EQ(operation.GetReadStop().line, 12u);
}

TEST(Operation, WaitingWakesAtOnceAndTimesOut)
{
    std::atomic<bool> goOn = false;
    TestOperation operation([&goOn](Operation&, Findings&) -> int {
        while (!goOn)
            std::this_thread::sleep_for(1ms);
        return kSuccess;
    });
    ASSERT_TRUE(operation.Start());
    EXPECT_FALSE(operation.Start()); // once
    EXPECT_FALSE(operation.WaitFor(5ms));
    EXPECT_FALSE(operation.IsFinished());
    const Clock::time_point start = Clock::now();
    goOn = true;
    EXPECT_TRUE(operation.WaitFor(60s));
    EXPECT_LT(Clock::now() - start, 30s);
    EXPECT_TRUE(operation.IsFinished());
}

TEST(Operation, TheDestructorWaitsForTheWorker)
{
    std::atomic<bool> ended = false;
    {
        TestOperation operation([&ended](Operation& progress, Findings&) -> int {
            while (!progress.IsCancelled())
                std::this_thread::sleep_for(1ms);
            ended = true;
            return kAborted;
        });
        ASSERT_TRUE(operation.Start());
        operation.Cancel();
    }
    EXPECT_TRUE(ended);
}

TEST(ConversionOperation, ConvertsAndStandsAtTheEnd)
{
    const TempFolder folder;
    std::ostringstream output;
    ConversionOperation operation({folder.Write("a.xml", kSmallXML)}, output);
    ASSERT_TRUE(operation.Start());
    ASSERT_TRUE(operation.WaitFor(60s));
    EXPECT_EQ(operation.GetResult(), kSuccess);
    EXPECT_DOUBLE_EQ(operation.GetProgress(), 1);
    EXPECT_FALSE(operation.HasIssues());
    EXPECT_NE(output.str().find("<VelaData"), std::string::npos);
}

TEST(ConversionOperation, NamesTheFailure)
{
    const TempFolder folder;
    const struct {
        const char* text;
        int result;
    } rows[] = {
        {"<xmeml version=\"4\"></xmeml>", kNoFCPDataFound},
        {"<plist></plist>", kNoXMELM},
        {"", kNoXMELM},
        {"<xmeml version=\"4\"><bin><<name>", kUnexpectedError},
    };
    for (const auto& [text, result] : rows) {
        std::ostringstream output;
        ConversionOperation operation({folder.Write("a.xml", text)}, output);
        operation.Start();
        ASSERT_TRUE(operation.WaitFor(60s));
        EXPECT_EQ(operation.GetResult(), result) << text;
        EXPECT_EQ(output.str(), "") << text;
    }
    std::ostringstream output;
    ConversionOperation missing({folder / "none.xml"}, output);
    missing.Start();
    ASSERT_TRUE(missing.WaitFor(60s));
    EXPECT_EQ(missing.GetResult(), kInputCouldNotBeOpened);
}

TEST(ConversionOperation, ASyntaxErrorHasAPlace)
{
    const TempFolder folder;
    std::ostringstream output;
    const std::string path =
        folder.Write("a.xml", "<xmeml version=\"4\">\n<project>\n  <name><<\n");
    ConversionOperation operation({path}, output);
    operation.Start();
    ASSERT_TRUE(operation.WaitFor(60s));
    const ReadStop stop = operation.GetReadStop();
    EXPECT_FALSE(stop.reason.empty());
    EXPECT_EQ(stop.line, 3u);
}

TEST(ConversionOperation, CancelStopsARunningConversion)
{
    const TempFolder folder;
    std::string text = "<xmeml version=\"4\"><project><name>P</name><children>";
    for (int i = 0; i < 200000; ++i)
        text += "<bin><name>B</name><children></children></bin>";
    text += "</children></project></xmeml>";
    std::ostringstream output;
    ConversionOperation operation({folder.Write("a.xml", text)}, output);
    ASSERT_TRUE(operation.Start());
    EXPECT_FALSE(operation.WaitFor(1ms));
    operation.Cancel();
    ASSERT_TRUE(operation.WaitFor(60s));
    EXPECT_EQ(operation.GetResult(), kAborted);
}

TEST(VelaToFCPXOperation, NamesTheFailure)
{
    const struct {
        const char* text;
        int result;
    } rows[] = {
        {"<VelaData Version=\"3\"></VelaData>", kNoFCPDataFound},
        {"", kNoXMELM},
        {"<VelaData Version=\"3\"><<", kUnexpectedError},
    };
    for (const auto& [text, result] : rows) {
        std::istringstream input(text);
        std::ostringstream output;
        VelaToFCPXOperation operation(input, {"Title", "/nowhere/a.xml"}, output);
        operation.Start();
        ASSERT_TRUE(operation.WaitFor(60s));
        EXPECT_EQ(operation.GetResult(), result) << text;
        EXPECT_EQ(output.str(), "") << text;
    }
    std::istringstream bad("x");
    bad.setstate(std::ios::badbit);
    std::ostringstream output;
    VelaToFCPXOperation operation(bad, {"Title", "/nowhere/a.xml"}, output);
    operation.Start();
    ASSERT_TRUE(operation.WaitFor(60s));
    EXPECT_EQ(operation.GetResult(), kInputCouldNotBeOpened);
}

} // namespace
} // namespace XPJ
