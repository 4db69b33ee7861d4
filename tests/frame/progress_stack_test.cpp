#include "frame/progress_stack.h"

#include <gtest/gtest.h>

#include <limits>

namespace XPJ {
namespace {

TEST(ProgressStack, NestedStagesShareTheirParentsSteps)
{
    ProgressStack stack;
    EXPECT_EQ(stack.Begin(1, 8), 1u);
    EXPECT_EQ(stack.Begin(2, 1), 2u);
    EXPECT_EQ(stack.Begin(1, 4), 3u);
    stack.Advance(1);
    EXPECT_DOUBLE_EQ(stack.Position(), 1.0 / 16); // a quarter of 2 of 8
    stack.End();
    EXPECT_DOUBLE_EQ(stack.Position(), 1.0 / 16); // an end moves nothing
    stack.End();
    stack.Advance(2);
    EXPECT_DOUBLE_EQ(stack.Position(), 0.25);
    stack.Begin(2, 2);
    EXPECT_DOUBLE_EQ(stack.Position(), 0.25);
    stack.Advance(2);
    EXPECT_DOUBLE_EQ(stack.Position(), 0.5);
    stack.End();
    stack.End();
    EXPECT_DOUBLE_EQ(stack.Position(), 1); // the end of the last stage is the end of the run
}

TEST(ProgressStack, AdvanceStopsAtTheTotal)
{
    constexpr unsigned kMost = std::numeric_limits<unsigned>::max();
    ProgressStack stack;
    stack.Begin(1, 4);
    stack.Begin(1, 3);
    for (const unsigned count : {2u, 5u, kMost, kMost})
        stack.Advance(count);
    EXPECT_DOUBLE_EQ(stack.Position(), 0.25);
    stack.End();
    stack.Advance(kMost);
    EXPECT_DOUBLE_EQ(stack.Position(), 1);

    ProgressStack large;
    large.Begin(1, kMost);
    large.Advance(kMost / 2);
    EXPECT_NEAR(large.Position(), 0.5, 1e-9);
}

TEST(ProgressStack, ATotalOfNothingIsOneStep)
{
    ProgressStack stack;
    stack.Begin(1, 0);
    stack.Begin(1, 0);
    EXPECT_DOUBLE_EQ(stack.Position(), 0);
    stack.Advance(1);
    EXPECT_DOUBLE_EQ(stack.Position(), 1);
}

TEST(ProgressStack, AnEmptyStackStaysWhereItIs)
{
    ProgressStack stack;
    stack.End();
    stack.Advance(3);
    EXPECT_DOUBLE_EQ(stack.Position(), 0);
    stack.Begin(1, 2);
    stack.End();
    stack.End();
    stack.Advance(1);
    EXPECT_DOUBLE_EQ(stack.Position(), 1);
    EXPECT_EQ(stack.Begin(1, 1), 2u); // an id is never used twice
}

} // namespace
} // namespace XPJ
