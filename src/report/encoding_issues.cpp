#include "report/encoding_issues.h"

#include <fmt/format.h>

namespace XPJ {

namespace {

constexpr int kOfDocument = 3; // on no track

void AddIssue(IssueSet& issues, int kind, const std::string& encoding, const std::string& location)
{
    TranslationIssue issue;
    issue.kind = kind;
    issue.subject = encoding;
    issue.trackKind = kOfDocument;
    issue.time = location;
    issues.insert(issue);
}

std::string LocationText(const EncodingFaults& faults)
{
    const std::string first =
        fmt::format("line {}, column {}", faults.firstLine, faults.firstColumn);
    const std::size_t more = faults.badRuns - 1;
    return more == 0 ? first
                     : fmt::format("{} and {} more place{}", first, more, more == 1 ? "" : "s");
}

template <class Kind>
void AddIssues(const EncodingFaults& faults, IssueSet& issues)
{
    if (!faults.unknown.empty())
        AddIssue(issues, static_cast<int>(Kind::UnknownEncoding), faults.unknown, {});
    if (faults.badRuns > 0)
        AddIssue(issues, static_cast<int>(Kind::InvalidBytes), faults.encoding,
                 LocationText(faults));
}

} // namespace

void AddEncodingIssues(const EncodingFaults& faults, Direction direction, IssueSet& issues)
{
    if (direction == Direction::Import)
        AddIssues<ImportIssue>(faults, issues);
    else
        AddIssues<ExportIssue>(faults, issues);
}

} // namespace XPJ
