#include "export/export_context.h"

#include "core/numbers.h"

namespace XPJ::RVX {

IdCounters& ProcessIdCounters()
{
    static IdCounters counters;
    return counters;
}

std::string_view NewId(Document& document, std::string_view prefix, std::int64_t& counter)
{
    return document.Store(std::string(prefix) + IntToString(counter++));
}

void AddIssue(ExportContext& context, ExportIssue kind, const ItemPlace& place,
              std::string_view subject)
{
    EffectContext{.document = context.document, .issues = context.issues, .place = place}.AddIssue(
        kind, subject);
}

void AddSkipped(ExportContext& context, TrackItem item, const ItemPlace& place)
{
    if (context.skippedItems.Insert(item))
        context.skipped.push_back(IssueAt(place));
}

} // namespace XPJ::RVX
