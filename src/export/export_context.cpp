#include "export/export_context.h"

#include "core/numbers.h"

#include <string>

namespace XPJ::RVX {

IdCounters& ProcessIdCounters()
{
    static IdCounters counters;
    return counters;
}

std::string_view NewId(ExportContext& context, std::string_view prefix, std::int64_t& counter)
{
    return context.document.Store(std::string(prefix) + IntToString(counter++));
}

void AddSkipped(ExportContext& context, const ItemPlace& place)
{
    context.skipped.push_back(IssueAt(place));
}

void AddIssue(ExportContext& context, ExportIssue kind, const ItemPlace& place,
              std::string_view subject)
{
    EffectContext{.document = context.document, .issues = context.issues, .place = place}.AddIssue(
        kind, subject);
}

} // namespace XPJ::RVX
