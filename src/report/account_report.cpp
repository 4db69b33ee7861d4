#include "report/account_report.h"

#include "core/csv.h"
#include "core/json.h"
#include "core/paths.h"
#include "core/text.h"
#include "report/remark_groups.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <utility>
#include <variant>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace XPJ {

namespace {

using Json = nlohmann::ordered_json;

// A field of a remark by its name; empty texts and numbers that are not known are absent.
struct Field {
    std::string_view name;
    std::variant<std::string, std::int64_t> value;
};

using Fields = std::array<Field, 14>;

constexpr std::int64_t kAbsent = -1;

std::string TimeOf(const FrameSpan& span, std::int64_t frame)
{
    return frame < 0 ? std::string() : span.Timecode(frame);
}

Fields FieldsOf(const Remark& remark, RemarkTexts& texts)
{
    const RemarkRow& row = RowOf(remark.kind);
    std::string clip = UnescapeXML(remark.clip);
    if (!remark.bin.empty() && remark.sequence.empty() && !clip.empty())
        clip = UnescapeXML(remark.bin) + "/" + clip;
    return {{
        {"kind", std::string(row.id)},
        {"outcome", std::string(OutcomeText(row.outcome))},
        {"severity", std::string(SeverityText(row.severity))},
        {"count", static_cast<std::int64_t>(remark.count)},
        {"path", std::string(remark.path)},
        {"sequence", UnescapeXML(remark.sequence)},
        {"track", TrackText(remark)},
        {"start", TimeOf(remark.span, remark.span.start)},
        {"end", TimeOf(remark.span, remark.span.end)},
        {"frame", remark.span.start < 0 ? kAbsent : remark.span.start},
        {"clip", std::move(clip)},
        {"subject", UnescapeXML(remark.subject)},
        {"reason", texts.Reason(remark)},
        {"remedy", texts.Remedy(remark)},
    }};
}

bool IsPresent(const Field& field)
{
    const auto* const text = std::get_if<std::string>(&field.value);
    return text ? !text->empty() : std::get<std::int64_t>(field.value) != kAbsent;
}

Json JsonOf(const Fields& fields)
{
    Json item = Json::object();
    for (const Field& field : fields)
        if (IsPresent(field))
            std::visit([&](const auto& value) { item[std::string(field.name)] = value; },
                       field.value);
    return item;
}

Json JsonOf(const OutcomeCounts& counts)
{
    Json totals = Json::object();
    for (std::size_t i = 0; i < counts.size(); ++i)
        totals[std::string(OutcomeText(static_cast<RemarkOutcome>(i)))] = counts[i];
    return totals;
}

std::string CsvTextOf(const Field& field)
{
    if (!IsPresent(field))
        return {};
    const auto* const text = std::get_if<std::string>(&field.value);
    return text ? CsvField(*text) : fmt::to_string(std::get<std::int64_t>(field.value));
}

std::string HeaderText(const ReportHeader& header, const Account& account)
{
    std::string counts = CountsText(CountOutcomes(account));
    if (counts.empty() && !header.output.empty())
        counts = "nothing was lost";
    return fmt::format("{}\n{}\n\nInput   {}\nOutput  {}\nResult  {}{}{}\n", header.tool,
                       header.date, header.input, header.output, header.result,
                       counts.empty() ? "" : ", ", counts);
}

} // namespace

std::optional<ReportFormat> FormatOfReport(std::string_view path)
{
    constexpr std::pair<std::string_view, ReportFormat> kExtensions[] = {
        {"txt", ReportFormat::Text},
        {"json", ReportFormat::Json},
        {"csv", ReportFormat::Csv},
        {"html", ReportFormat::Page},
    };
    for (const auto& [extension, format] : kExtensions)
        if (EqualsIgnoreCase(ExtensionOf(path), extension))
            return format;
    return std::nullopt;
}

OutcomeCounts CountOutcomes(const Account& account)
{
    OutcomeCounts counts{};
    for (const Remark& remark : account.remarks)
        counts[static_cast<std::size_t>(RowOf(remark.kind).outcome)] += remark.count;
    return counts;
}

std::string CountsText(const OutcomeCounts& counts)
{
    std::string text;
    for (std::size_t i = 0; i < counts.size(); ++i)
        if (counts[i] > 0)
            text += fmt::format("{}{} {}", text.empty() ? "" : ", ", counts[i],
                                OutcomeText(static_cast<RemarkOutcome>(i)));
    return text;
}

std::string AccountText(const ReportHeader& header, const Account& account)
{
    std::string text = HeaderText(header, account);
    const std::vector<RemarkGroup> groups = GroupRemarks(account.remarks);
    if (groups.empty())
        return text;
    text += "\nSummary\n\n" + GroupText(groups, groups.size()) + "\nEach of them\n";
    for (const RemarkGroup& group : groups) {
        text += fmt::format("\n{}: {}\n", OutcomeText(group.row->outcome), group.reason);
        for (const Remark* const remark : group.remarks) {
            text.append("    ");
            const std::size_t before = text.size();
            AppendPlaceText(*remark, text);
            if (text.size() == before)
                text.append("the document");
            if (remark->count > 1)
                text.append(", ").append(fmt::to_string(remark->count)).append(" times");
            text += '\n';
        }
    }
    return text;
}

// A line for each item: a report may have a hundred thousand, and no tree of them is made.
std::string AccountJson(const ReportHeader& header, const Account& account)
{
    const Json head = {{"tool", header.tool},     {"date", header.date},
                       {"input", header.input},   {"output", header.output},
                       {"result", header.result}, {"totals", JsonOf(CountOutcomes(account))}};
    std::string text = JsonText(head, 1);
    text.resize(text.size() - std::string_view("\n}").size());
    text += ",\n \"items\": [";
    RemarkTexts texts;
    for (std::size_t i = 0; i < account.remarks.size(); ++i)
        text.append(i > 0 ? ",\n  " : "\n  ")
            .append(JsonText(JsonOf(FieldsOf(account.remarks[i], texts))));
    return text += "\n ]\n}\n";
}

std::string AccountCsv(const Account& account)
{
    std::string text;
    const auto appendLine = [&text](const Fields& fields, auto textOf) {
        for (std::size_t i = 0; i < fields.size(); ++i)
            text.append(i > 0 ? "," : "").append(textOf(fields[i]));
        text += "\r\n";
    };
    RemarkTexts texts;
    appendLine(FieldsOf(Remark(), texts),
               [](const Field& field) { return std::string(field.name); });
    for (const Remark& remark : account.remarks)
        appendLine(FieldsOf(remark, texts), [](const Field& field) { return CsvTextOf(field); });
    return text;
}

} // namespace XPJ
