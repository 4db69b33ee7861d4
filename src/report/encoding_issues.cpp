#include "report/encoding_issues.h"

#include <fmt/format.h>

namespace XPJ {

namespace {

std::string LocationText(const EncodingFaults& faults)
{
    const std::string first =
        fmt::format("line {}, column {}", faults.firstLine, faults.firstColumn);
    const std::size_t more = faults.badRuns - 1;
    return more == 0 ? first
                     : fmt::format("{} and {} more place{}", first, more, more == 1 ? "" : "s");
}

// The kinds of one direction.
struct EncodingKinds {
    Direction direction;
    int unknownEncoding;
    int invalidBytes;
};

template <class Issue>
constexpr EncodingKinds KindsOf(Direction direction)
{
    return {direction, static_cast<int>(Issue::UnknownEncoding),
            static_cast<int>(Issue::InvalidBytes)};
}

constexpr EncodingKinds kImportKinds = KindsOf<ImportIssue>(Direction::Import);
constexpr EncodingKinds kExportKinds = KindsOf<ExportIssue>(Direction::Export);

} // namespace

void AddEncodingIssues(const EncodingFaults& faults, Direction direction, Account& account)
{
    const EncodingKinds& kinds = direction == Direction::Import ? kImportKinds : kExportKinds;
    const auto add = [&](int kind, const std::string& encoding, const std::string& location) {
        TranslationIssue issue;
        issue.kind = kind;
        issue.subject = encoding;
        issue.trackKind = kNoTrack;
        issue.time = location;
        AddIssue(account, direction, issue);
    };
    if (!faults.unknown.empty())
        add(kinds.unknownEncoding, faults.unknown, {});
    if (faults.badRuns > 0)
        add(kinds.invalidBytes, faults.encoding, LocationText(faults));
}

} // namespace XPJ
