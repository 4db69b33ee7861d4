#include "project/time_display.h"

namespace XPJ {

namespace {

struct TimeDisplayRow {
    Ticks frameTicks;
    std::string_view code;
    std::string_view nonDropCode;
};

constexpr std::string_view kDefaultTimeDisplay = "102";
constexpr TimeDisplayRow kTimeDisplays[] = {
    {kNtscFrameTicks, "102", "103"}, {kPalFrameTicks, "101", "101"},
    {10584000000, "100", "100"}, // 24
    {10594584000, "110", "110"}, // 23.976
    {8467200000, "104", "104"},  // 30
    {4233600000, "108", "108"},  // 60
    {4237833600, "106", "107"},  // 59.94
    {5080320000, "105", "105"},  // 50
    {5297407770, "102", "102"},  // 48 as documents count it
};

} // namespace

std::string_view TimeDisplayOf(bool nonDrop, Ticks frameTicks)
{
    for (const TimeDisplayRow& row : kTimeDisplays)
        if (row.frameTicks == frameTicks)
            return nonDrop ? row.nonDropCode : row.code;
    return kDefaultTimeDisplay;
}

} // namespace XPJ
