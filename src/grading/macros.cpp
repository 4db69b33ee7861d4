#include "grading/macros.h"

#include "core/numbers.h"
#include "core/text.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>

namespace XPJ {

namespace {

constexpr int kWidest = 32;

std::int64_t Year(const std::tm& time)
{
    return std::int64_t{1900} + time.tm_year;
}

std::int64_t Month(const std::tm& time)
{
    return std::int64_t{1} + time.tm_mon;
}

std::string Date(const MacroContext& context)
{
    const std::tm& time = context.renderStart;
    return fmt::format("{:04}-{:02}-{:02}", Year(time), Month(time), time.tm_mday);
}

// 0 and 12 o'clock are both 12.
std::string Time12(const MacroContext& context)
{
    const std::tm& time = context.renderStart;
    const int hour = time.tm_hour % 12;
    return fmt::format("{:02}:{:02}:{:02} {}", hour == 0 ? 12 : hour, time.tm_min, time.tm_sec,
                       time.tm_hour < 12 ? "AM" : "PM");
}

std::string Time24(const MacroContext& context)
{
    const std::tm& time = context.renderStart;
    return fmt::format("{:02}:{:02}:{:02}", time.tm_hour, time.tm_min, time.tm_sec);
}

std::string SourceTimeCodeOf(const MacroContext& context, std::int64_t frames)
{
    const TimeCode& source = context.sourceTimeCode;
    return TimeCode::FromFrames(frames, source.fps, source.dropFrame).Text();
}

// A macro of a number, with or without a width, or of a text.
struct Macro {
    std::string_view name;
    std::int64_t MacroContext::*number;
    std::string (*text)(const MacroContext& context);
};

constexpr std::string_view kPaddedEnd = "Padded.";

constexpr Macro kMacros[] = {
    {"General.EditNumber", &MacroContext::editNumber, nullptr},
    {"General.EditNumberPadded.", &MacroContext::editNumber, nullptr},
    {"General.RenderStartDate", nullptr, Date},
    {"General.RenderStartDateYear", nullptr,
     [](const MacroContext& c) { return fmt::format("{:04}", Year(c.renderStart)); }},
    {"General.RenderStartDateMonth", nullptr,
     [](const MacroContext& c) { return fmt::format("{:02}", Month(c.renderStart)); }},
    {"General.RenderStartDateDay", nullptr,
     [](const MacroContext& c) { return fmt::format("{:02}", c.renderStart.tm_mday); }},
    {"General.RenderStartTime12hrs", nullptr, Time12},
    {"General.RenderStartTime24hrs", nullptr, Time24},
    {"Src.FrameIndex", &MacroContext::frameIndex, nullptr},
    {"Src.FrameIndexPadded.", &MacroContext::frameIndex, nullptr},
    {"Src.FrameNumber", &MacroContext::frameNumber, nullptr},
    {"Src.FrameNumberPadded.", &MacroContext::frameNumber, nullptr},
    {"Src.TimeCode", nullptr, [](const MacroContext& c) { return c.sourceTimeCode.Text(); }},
    {"Src.TimeCodeFrames", nullptr,
     [](const MacroContext& c) { return IntToString(c.sourceTimeCode.Frames()); }},
    {"Src.TimeCodeFromFrameIndex", nullptr,
     [](const MacroContext& c) { return SourceTimeCodeOf(c, c.frameIndex); }},
    {"Src.TimeCodeFromFrameNo", nullptr,
     [](const MacroContext& c) { return SourceTimeCodeOf(c, c.frameNumber); }},
    {"TimeLine.FrameRate", nullptr,
     [](const MacroContext& c) { return DoubleToString(c.timelineRate); }},
    {"TimeLine.Position", &MacroContext::position, nullptr},
    {"TimeLine.PositionPadded.", &MacroContext::position, nullptr},
    {"TimeLine.TimeCode", nullptr, [](const MacroContext& c) { return c.timelineTimeCode.Text(); }},
};
constexpr std::string_view kAll = "__All";

// width: what follows the name of a padded macro; empty for others.
std::string Value(const Macro& macro, std::string_view width, const MacroContext& context)
{
    if (macro.text != nullptr)
        return macro.text(context);
    const int digits = std::clamp(ParseInt(width), 1, kWidest);
    return fmt::format("{:0{}}", context.*macro.number, digits);
}

struct IgnoresCase {
    bool operator()(std::string_view a, std::string_view b) const
    {
        const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : int{c}; };
        return std::ranges::lexicographical_compare(a, b, std::less<>(), lower, lower);
    }
};

class MacroExpander {
public:
    MacroExpander(const MacroContext& edit, const CZvPropertyList& list)
        : context(edit), properties(list)
    {
        for (const CZvProperty& property : list.properties)
            byName.emplace(property.name, property.value); // the first of each name wins
    }

    std::string Lookup(std::string_view name) const
    {
        if (EqualsIgnoreCase(name, kAll))
            return All();
        for (const Macro& macro : kMacros) {
            const bool padded = macro.name.ends_with(kPaddedEnd);
            const std::string_view start = padded ? name.substr(0, macro.name.size()) : name;
            if (EqualsIgnoreCase(start, macro.name))
                return Value(macro, name.substr(start.size()), context);
        }
        const auto property = byName.find(name);
        return property != byName.end() ? std::string(property->second) : std::string();
    }

private:
    std::string All() const
    {
        std::string lines;
        for (const Macro& macro : kMacros)
            lines += fmt::format("{} = {}\n", macro.name, Value(macro, "", context));
        for (const CZvProperty& property : properties.properties)
            lines += fmt::format("{} = {}\n", property.name, property.value);
        return lines;
    }

    const MacroContext& context;
    const CZvPropertyList& properties;
    std::map<std::string_view, std::string_view, IgnoresCase> byName;
};

} // namespace

std::string Expand(std::string_view text, const MacroContext& context,
                   const CZvPropertyList& properties)
{
    const MacroExpander macros(context, properties);
    std::string result;
    for (;;) {
        const std::size_t open = text.find('{');
        result += text.substr(0, open);
        if (open == text.npos)
            return result;
        const std::size_t close = text.find('}', open);
        if (close == text.npos)
            return result + "!! Missing } !!";
        result += macros.Lookup(text.substr(open + 1, close - open - 1));
        text.remove_prefix(close + 1);
    }
}

} // namespace XPJ
