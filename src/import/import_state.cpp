#include "import/import_state.h"

namespace XPJ {

void AddItemIssue(const ImportState& state, const ItemLocation& location, ImportIssue kind,
                  std::string_view subject)
{
    EffectContext{.document = state.document, .issues = state.issues, .location = location}
        .AddIssue(kind, subject);
}

void AddSkipped(ImportState& state, const ItemLocation& location)
{
    state.skipped.push_back(IssueAt(location));
}

} // namespace XPJ
