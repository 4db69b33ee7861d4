#include "import/import_state.h"

#include "platform/platform.h"

namespace XPJ {

void IdList::Add(std::string_view id)
{
    if (known_.insert(id).second)
        ids_.push_back(id);
}

void AddUid(ObjectHandle node)
{
    node.SetProperty("uid", NewGuidText());
}

int NewSequenceNumber(ImportState& state)
{
    return state.nextSequenceId++;
}

} // namespace XPJ
