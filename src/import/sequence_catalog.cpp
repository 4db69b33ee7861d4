#include "import/sequence_catalog.h"

#include "core/numbers.h"
#include "project/media.h"
#include "project/objects.h"

namespace XPJ {

std::string_view SequenceCatalog::IdOf(ConstHandle sequence) const
{
    const std::string_view stated = sequence.GetProperty("id");
    if (!stated.empty() || generatedIds_.empty())
        return stated;
    const auto generated = generatedIds_.find(sequence.UniqueId());
    return generated == generatedIds_.end() ? stated : generated->second;
}

void SequenceCatalog::SetGeneratedId(ConstHandle sequence, std::string_view id)
{
    generatedIds_.emplace(sequence.UniqueId(), id);
}

BuiltMaster SequenceCatalog::MasterOf(std::string_view id) const
{
    const auto found = masters_.find(id);
    return found == masters_.end() ? BuiltMaster() : found->second;
}

void SequenceCatalog::AddMaster(std::string_view id, BuiltMaster master)
{
    masters_.emplace(id, master);
}

ConstHandle SequenceCatalog::ElementOf(ConstHandle projectSequence) const
{
    const auto element = elements_.find(projectSequence.UniqueId());
    return element == elements_.end() ? ConstHandle() : element->second;
}

void SequenceCatalog::SetElement(ConstHandle projectSequence, ConstHandle element)
{
    elements_.emplace(projectSequence.UniqueId(), element);
}

int SequenceCatalog::Begin(ObjectHandle projectSequence)
{
    if (!begun_.Insert(projectSequence))
        return 0;
    const int number = nextNumber_++;
    AddUid(projectSequence);
    projectSequence.SetProperty("ID", IntToString(number));
    byNumber_.emplace(number, projectSequence);
    return number;
}

ObjectHandle SequenceCatalog::OfNumber(int number) const
{
    const auto found = byNumber_.find(number);
    return found == byNumber_.end() ? ObjectHandle() : found->second;
}

ObjectHandle SourceForItem(Document& document, SequenceCatalog& sequences, MediaType type,
                           ObjectHandle source, Ticks rateTicks)
{
    const ObjectHandle sequence = source.GetChild("Sequence");
    if (!sequence)
        return source;
    if (!sequences.HasBegun(sequence))
        sequences.AddShown(sequence);
    return MakeSequenceSource(
        document, sequence,
        {.type = type, .rate = rateTicks, .duration = Int64Property(source, "OriginalDuration")});
}

} // namespace XPJ
