#include "xpjconvert/batch_summary.h"

#include "core/csv.h"
#include "core/json.h"

#include <array>
#include <cmath>
#include <string_view>
#include <utility>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace XPJ {
namespace {

using Json = nlohmann::ordered_json;

// A column of the CSV, a name of the JSON.
struct Column {
    std::string_view name;
    Json value;
};
using Columns = std::array<Column, 15>;

Columns ColumnsOf(const BatchRow& row)
{
    // To milliseconds; more digits would only be noise.
    const auto rounded = [](double seconds) {
        return static_cast<double>(std::llround(seconds * 1000)) / 1000;
    };
    return {{
        {"input", row.input},
        {"output", row.output},
        {"result", std::string(ResultName(row.result))},
        {"status", row.status},
        {"message", row.message},
        {"seconds", rounded(row.seconds)},
        {"cpu_seconds", rounded(row.cpuSeconds)},
        {"peak_memory", row.peakMemory},
        {"bytes_in", row.bytesIn},
        {"bytes_out", row.bytesOut},
        {"lost", row.counts[0]},
        {"changed", row.counts[1]},
        {"assumed", row.counts[2]},
        {"skipped", row.counts[3]},
        {"report", row.report},
    }};
}

// In one line. Names that are no UTF-8 get replacement characters.
std::string LineOf(const Json& json)
{
    return JsonText(json);
}

std::string JsonOf(const BatchRow& row)
{
    Json object = Json::object();
    for (const auto& [name, value] : ColumnsOf(row))
        object[std::string(name)] = value;
    return LineOf(object);
}

std::string JsonOf(const BatchTotals& totals)
{
    return LineOf({{"documents", totals.documents},
                   {"converted", totals.converted},
                   {"skipped", totals.skipped},
                   {"failed", totals.failed},
                   {"aborted", totals.aborted}});
}

std::string CsvHeader()
{
    std::string line;
    for (const auto& [name, value] : ColumnsOf({}))
        line.append(line.empty() ? "" : ",").append(name);
    return line + "\n";
}

std::string CsvOf(const BatchRow& row)
{
    std::string line;
    bool isFirst = true;
    for (const auto& [name, value] : ColumnsOf(row)) {
        line.append(isFirst ? "" : ",")
            .append(value.is_string() ? CsvField(value.get_ref<const std::string&>())
                                      : LineOf(value));
        isFirst = false;
    }
    return line + "\n";
}

} // namespace

BatchSummary::BatchSummary(const std::string& path)
{
    if (path.empty())
        return;
    file_ = std::make_unique<AtomicFile>(path);
    isJson_ = FormatOfReport(path) == ReportFormat::Json;
    Write(isJson_ ? "{\"rows\": [" : CsvHeader());
}

void BatchSummary::Write(const std::string& text)
{
    std::size_t written = 0;
    if (file_)
        static_cast<void>(file_->File().Write(text.data(), text.size(), written));
}

void BatchSummary::Add(const BatchRow& row)
{
    Write(isJson_ ? (hasRow_ ? ",\n" : "\n") + JsonOf(row) : CsvOf(row));
    hasRow_ = true;
}

bool BatchSummary::Finish(const BatchTotals& totals)
{
    if (isJson_)
        Write("\n],\n\"totals\": " + JsonOf(totals) + "}\n");
    return !file_ || file_->Commit();
}

} // namespace XPJ
