#include "grading/macros.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace XPJ {
namespace {

MacroContext Context()
{
    MacroContext context;
    context.editNumber = 12;
    context.frameIndex = 30;
    context.frameNumber = 1800;
    context.position = -5;
    context.sourceTimeCode = TimeCode(1, 2, 3, 4, 29.97, true);
    context.timelineTimeCode = TimeCode(0, 0, 0, 1, 25, false, true);
    context.timelineRate = 23.976;
    context.renderStart.tm_year = 109;
    context.renderStart.tm_mon = 1;
    context.renderStart.tm_mday = 3;
    context.renderStart.tm_hour = 13;
    context.renderStart.tm_min = 4;
    context.renderStart.tm_sec = 5;
    return context;
}

TEST(Macros, Values)
{
    const CZvPropertyList properties{
        {{"Reel", "A001", false}, {"reel", "B", true}, {"a b", "{x}"}}};
    const struct {
        std::string_view text;
        std::string_view expanded;
    } kCases[] = {
        {"", ""},
        {"no } macro", "no } macro"},
        {"{General.EditNumber}", "12"},
        {"<{general.editnumber}>", "<12>"},
        {"{General.EditNumberPadded.4}", "0012"},
        {"{General.EditNumberPadded.1}", "12"},
        {"{General.EditNumberPadded.}", "12"},
        {"{General.EditNumberPadded.0}", "12"},
        {"{General.EditNumberPadded.99}", "00000000000000000000000000000012"},
        {"{General.RenderStartDate}", "2009-02-03"},
        {"{General.RenderStartDateYear}/{General.RenderStartDateMonth}", "2009/02"},
        {"{General.RenderStartDateDay}", "03"},
        {"{General.RenderStartTime12hrs}", "01:04:05 PM"},
        {"{General.RenderStartTime24hrs}", "13:04:05"},
        {"{Src.FrameIndex} {Src.FrameIndexPadded.3}", "30 030"},
        {"{Src.FrameNumber} {Src.FrameNumberPadded.6}", "1800 001800"},
        {"{Src.TimeCode}", "01:02:03:04"},
        {"{Src.TimeCodeFrames}", "111582"}, // 3723 s x 30 + 4 - 2 x (62 - 6)
        {"{Src.TimeCodeFromFrameIndex}", "00:00:01:00"},
        {"{Src.TimeCodeFromFrameNo}", "00:01:00:02"},
        {"{TimeLine.FrameRate}", "23.976"},
        {"{TimeLine.Position} {TimeLine.PositionPadded.4}", "-5 -005"},
        {"{TimeLine.TimeCode}", "-00:00:00:01"},
        {"{Reel}{REEL}", "A001A001"},
        {"{a b}", "{x}"},
        {"{unknown}{}", ""},
        {"{ General.EditNumber}", ""},
        {"a{b{General.EditNumber}", "a"},
        {"a {General.EditNumber", "a !! Missing } !!"},
        {"{Reel} {", "A001 !! Missing } !!"},
    };
    for (const auto& row : kCases)
        EXPECT_EQ(Expand(row.text, Context(), properties), row.expanded) << row.text;

    MacroContext context;
    EXPECT_EQ(Expand("{General.RenderStartTime12hrs}", context, {}), "12:00:00 AM");
    context.renderStart.tm_hour = 12;
    EXPECT_EQ(Expand("{General.RenderStartTime12hrs}", context, {}), "12:00:00 PM");
}

TEST(Macros, All)
{
    const CZvPropertyList properties{{{"Reel", "A001", false}}};
    const std::string all = Expand("{__ALL}", Context(), properties);
    EXPECT_EQ(std::ranges::count(all, '\n'), 21);
    for (const std::string_view line :
         {"General.EditNumber = 12\n", "Src.TimeCode = 01:02:03:04\n", "Reel = A001\n"})
        EXPECT_NE(all.find(line), all.npos) << line;
}

} // namespace
} // namespace XPJ
