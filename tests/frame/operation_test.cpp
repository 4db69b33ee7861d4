#include "frame/operation.h"
#include "frame_test_support.h"

#include <gtest/gtest.h>

#include <new>
#include <sstream>
#include <stdexcept>

namespace XPJ {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

int ResultOf(const Operation::Work& work)
{
    Operation operation(work);
    EXPECT_EQ(operation.TakeOutcome().result, kUnexpectedError);
    EXPECT_TRUE(operation.Start());
    EXPECT_TRUE(operation.WaitFor(10s));
    return operation.TakeOutcome().result;
}

TEST(Operation, MapsExceptionsToResults)
{
    EXPECT_EQ(ResultOf([](Progress&, ConversionOutcome&) -> int { return kNoXMELM; }), kNoXMELM);
    EXPECT_EQ(ResultOf([](Progress&, ConversionOutcome&) -> int { throw std::bad_alloc(); }),
              kOutOfMemory);
    EXPECT_EQ(
        ResultOf([](Progress&, ConversionOutcome&) -> int { throw std::logic_error("link"); }),
        kUnexpectedError);
    EXPECT_EQ(ResultOf([](Progress&, ConversionOutcome&) -> int { throw 3; }), kUnexpectedError);
}

TEST(Operation, AnExceptionEndsTheStagesAndKeepsTheIssues)
{
    Operation operation([](Progress& progress, ConversionOutcome& outcome) -> int {
        const StageScope all(progress, 1, 8);
        const StageScope step(progress, 2, 4);
        outcome.account.issues.insert(TranslationIssue());
        outcome.stop.line = 12;
        throw std::runtime_error("end");
    });
    operation.Start();
    ASSERT_TRUE(operation.WaitFor(10s));
    EXPECT_DOUBLE_EQ(operation.GetProgress(), 1);
    const ConversionOutcome outcome = operation.TakeOutcome();
    EXPECT_EQ(outcome.account.issues.size(), 1u);
    EXPECT_EQ(outcome.stop.line, 12u);
}

TEST(Operation, WaitingWakesAtOnceAndTimesOut)
{
    std::atomic<bool> goOn = false;
    Operation operation([&goOn](Progress&, ConversionOutcome&) -> int {
        while (!goOn)
            std::this_thread::sleep_for(1ms);
        return kSuccess;
    });
    ASSERT_TRUE(operation.Start());
    EXPECT_FALSE(operation.Start()); // once
    EXPECT_FALSE(operation.WaitFor(5ms));
    EXPECT_FALSE(operation.IsDone());
    const Clock::time_point start = Clock::now();
    goOn = true;
    EXPECT_TRUE(operation.WaitFor(60s));
    EXPECT_LT(Clock::now() - start, 30s);
    EXPECT_TRUE(operation.IsDone());
}

TEST(Operation, TheDestructorWaitsForTheWorker)
{
    std::atomic<bool> ended = false;
    {
        Operation operation([&ended](Progress& progress, ConversionOutcome&) -> int {
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

TEST(ImportOperation, ConvertsAndEndsItsProgress)
{
    const TempFolder folder;
    std::ostringstream output;
    Operation operation({.inputPath = folder.Write("a.xml", kSmallXML)}, {nullptr, output});
    ASSERT_TRUE(operation.Start());
    ASSERT_TRUE(operation.WaitFor(60s));
    const ConversionOutcome outcome = operation.TakeOutcome();
    EXPECT_EQ(outcome.result, kSuccess);
    EXPECT_DOUBLE_EQ(operation.GetProgress(), 1);
    EXPECT_TRUE(outcome.account.issues.empty());
    EXPECT_NE(output.str().find("<VelaData"), std::string::npos);
}

TEST(ImportOperation, NamesTheFailure)
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
        Operation operation({.inputPath = folder.Write("a.xml", text)}, {nullptr, output});
        operation.Start();
        ASSERT_TRUE(operation.WaitFor(60s));
        EXPECT_EQ(operation.TakeOutcome().result, result) << text;
        EXPECT_EQ(output.str(), "") << text;
    }
    std::ostringstream output;
    Operation missing({.inputPath = folder / "none.xml"}, {nullptr, output});
    missing.Start();
    ASSERT_TRUE(missing.WaitFor(60s));
    EXPECT_EQ(missing.TakeOutcome().result, kInputCouldNotBeOpened);
}

TEST(ImportOperation, ASyntaxErrorHasALocation)
{
    const TempFolder folder;
    std::ostringstream output;
    const std::string path =
        folder.Write("a.xml", "<xmeml version=\"4\">\n<project>\n  <name><<\n");
    Operation operation({.inputPath = path}, {nullptr, output});
    operation.Start();
    ASSERT_TRUE(operation.WaitFor(60s));
    const ReadStop stop = operation.TakeOutcome().stop;
    EXPECT_FALSE(stop.reason.empty());
    EXPECT_EQ(stop.line, 3u);
}

TEST(ImportOperation, CancelStopsARunningConversion)
{
    const TempFolder folder;
    std::string text = "<xmeml version=\"4\"><project><name>P</name><children>";
    for (int i = 0; i < 200000; ++i)
        text += "<bin><name>B</name><children></children></bin>";
    text += "</children></project></xmeml>";
    std::ostringstream output;
    Operation operation({.inputPath = folder.Write("a.xml", text)}, {nullptr, output});
    ASSERT_TRUE(operation.Start());
    EXPECT_FALSE(operation.WaitFor(1ms));
    operation.Cancel();
    ASSERT_TRUE(operation.WaitFor(60s));
    EXPECT_EQ(operation.TakeOutcome().result, kAborted);
}

ConversionRequest ExportRequest()
{
    return {.from = &FormatOf(TreeKind::Project),
            .to = &FormatOf(TreeKind::Xmeml),
            .outputPath = "/nowhere/a.xml"};
}

TEST(ExportOperation, NamesTheFailure)
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
        Operation operation(ExportRequest(), {&input, output});
        operation.Start();
        ASSERT_TRUE(operation.WaitFor(60s));
        EXPECT_EQ(operation.TakeOutcome().result, result) << text;
        EXPECT_EQ(output.str(), "") << text;
    }
    std::istringstream bad("x");
    bad.setstate(std::ios::badbit);
    std::ostringstream output;
    Operation operation(ExportRequest(), {&bad, output});
    operation.Start();
    ASSERT_TRUE(operation.WaitFor(60s));
    EXPECT_EQ(operation.TakeOutcome().result, kInputCouldNotBeOpened);
}

} // namespace
} // namespace XPJ
