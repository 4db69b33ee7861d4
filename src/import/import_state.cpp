#include "import/import_state.h"

namespace XPJ {

void AddItemIssue(const ImportState& state, const ItemLocation& location, ImportIssue kind,
                  std::string_view subject)
{
    EffectContext{.document = state.document, .account = state.account, .location = location}
        .AddIssue(kind, subject);
}

void AddSkipped(ImportState& state, const ItemLocation& location)
{
    AddRemark(state.account,
              location.clip.empty() ? RemarkKind::SequenceWithoutFormat
                                    : RemarkKind::ClipWithoutMedia,
              location);
}

} // namespace XPJ
