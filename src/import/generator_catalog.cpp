#include "import/generator_catalog.h"

#include "xmeml/formats.h"

namespace XPJ {

const FrameFormat& GeneratorCatalog::FrameOf(ConstHandle owner)
{
    const auto [entry, isNew] = frames_.try_emplace(owner.UniqueId());
    if (isNew)
        entry->second = FrameOfOwner(owner);
    return entry->second;
}

BuiltMaster GeneratorCatalog::MasterOf(ConstHandle generator) const
{
    const auto known = masters_.find(generator.UniqueId());
    return known == masters_.end() ? BuiltMaster() : known->second;
}

void GeneratorCatalog::Add(ConstHandle generator, BuiltMaster master)
{
    masters_.emplace(generator.UniqueId(), master);
}

} // namespace XPJ
