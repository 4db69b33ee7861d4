// The account of a conversion as a file: text for people, JSON and CSV for programs.
#pragma once

#include "core/account.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace XPJ {

enum class ReportFormat { Text, Json, Csv, Page };
// By the extension of a path, in any case; nothing for another one.
std::optional<ReportFormat> FormatOfReport(std::string_view path);

// What a report says of the conversion itself.
struct ReportHeader {
    std::string tool = {};   // "xpjconvert 1.0"
    std::string date = {};   // "2026-11-22T13:00:00Z"
    std::string input = {};  // paths
    std::string output = {}; // empty: nothing was written
    std::string result = {}; // "success", "aborted" ...
};

// How often each outcome is in an account, by RemarkOutcome.
using OutcomeCounts = std::array<std::size_t, 4>;
OutcomeCounts CountOutcomes(const Account& account);
// "3 lost, 1 changed"; empty for none.
std::string CountsText(const OutcomeCounts& counts);

// The header, the groups, then each remark; lines end with a line feed.
std::string AccountText(const ReportHeader& header, const Account& account);
// An object as docs/report.schema.json has it; ill-formed UTF-8 is replaced.
std::string AccountJson(const ReportHeader& header, const Account& account);
// A line of names, then a line for each remark; the columns are the fields of the JSON's items.
std::string AccountCsv(const Account& account);

// A text as a field of CSV (RFC 4180).
std::string CsvText(std::string_view text);

} // namespace XPJ
