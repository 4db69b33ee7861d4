#include "export/output_channels.h"

#include "core/text.h"

#include <algorithm>
#include <array>

#include <nlohmann/json.hpp>

namespace XPJ::RVX {

namespace {

using Json = nlohmann::json;

// Far above any interface; larger numbers are the project's ways to say that there is none.
constexpr std::int64_t kMaxOutput = 1024;

constexpr std::array<Name, 24> kAssignedChannels = {
    "AssignedChannel0",  "AssignedChannel1",  "AssignedChannel2",  "AssignedChannel3",
    "AssignedChannel4",  "AssignedChannel5",  "AssignedChannel6",  "AssignedChannel7",
    "AssignedChannel8",  "AssignedChannel9",  "AssignedChannel10", "AssignedChannel11",
    "AssignedChannel12", "AssignedChannel13", "AssignedChannel14", "AssignedChannel15",
    "AssignedChannel16", "AssignedChannel17", "AssignedChannel18", "AssignedChannel19",
    "AssignedChannel20", "AssignedChannel21", "AssignedChannel22", "AssignedChannel23",
};

int OutputOr(std::int64_t output, int missing)
{
    return output >= 0 && output < kMaxOutput ? static_cast<int>(output) : missing;
}

// Rows [input,[output,...]], bare or in {"SerializerWrappedObject":rows}.
Json MatrixRows(std::string_view text)
{
    Json json = Json::parse(text, nullptr, false);
    if (json.is_discarded())
        json = Json::parse(UnescapeXML(text), nullptr, false);
    if (json.is_object())
        json = json.value("SerializerWrappedObject", Json());
    return json.is_array() ? json : Json();
}

bool IsRow(const Json& row)
{
    return row.is_array() && row.size() >= 2 && row[0].is_number_unsigned() && row[1].is_array() &&
           !row[1].empty() && row[1][0].is_number_unsigned();
}

void ReadMatrix(std::string_view text, std::vector<int>& channels)
{
    for (const Json& row : MatrixRows(text)) {
        if (!IsRow(row) || row[0].get<std::uint64_t>() >= channels.size())
            continue;
        const auto output = row[1][0].get<std::uint64_t>();
        channels[row[0].get<std::size_t>()] = OutputOr(
            static_cast<std::int64_t>(std::min<std::uint64_t>(output, kMaxOutput)), kUnassigned);
    }
}

void ReadAssignments(ConstHandle processor, std::vector<int>& channels)
{
    const std::size_t stated =
        static_cast<std::size_t>(std::max(IntProperty(processor, "NumInputChannels"), 0));
    const std::size_t count = std::min({stated, channels.size(), kAssignedChannels.size()});
    for (std::size_t i = 0; i < count; ++i)
        if (HasValue(processor, kAssignedChannels[i]))
            channels[i] = OutputOr(Int64Property(processor, kAssignedChannels[i]), kUnassigned);
}

} // namespace

std::vector<int> AssignedChannels(ConstHandle directPanProcessor, int count)
{
    std::vector<int> channels(static_cast<std::size_t>(count), kUnassigned);
    if (HasValue(directPanProcessor, "Matrix"))
        ReadMatrix(directPanProcessor.GetProperty("Matrix"), channels);
    else
        ReadAssignments(directPanProcessor, channels);
    return channels;
}

int OutputChannels::Assigned(int channel, bool movesOn)
{
    int output = channel + 1;
    if (output == running_ && running_ % 2 == 0)
        ++output;
    if (movesOn)
        running_ = output;
    return output;
}

int OutputChannels::Unassigned(int position, bool ofSeveral) const
{
    return position % (ofSeveral ? std::max(outputs_, 1) : 2) + 1;
}

} // namespace XPJ::RVX
