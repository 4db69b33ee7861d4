#include "import/item_issues.h"

namespace XPJ {

ItemLocation LocationOfItem(const SequenceTimecode& timecode, std::string_view name,
                            const ItemPosition& position)
{
    return {.sequence = timecode.name,
            .clip = name,
            .trackKind = position.type == MediaType::Video ? 1 : 2,
            .trackIndex = position.trackIndex,
            .time = timecode.TextOf(position.start)};
}

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
