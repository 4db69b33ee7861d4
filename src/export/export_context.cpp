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

void AddIssue(ExportContext& context, ExportIssue kind, const ItemLocation& location,
              std::string_view subject)
{
    EffectContext{.document = context.document, .account = context.account, .location = location}
        .AddIssue(kind, subject);
}

} // namespace XPJ::RVX
