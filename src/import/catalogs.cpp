#include "import/catalogs.h"

#include "core/numbers.h"
#include "effects/title_reader.h"
#include "project/objects.h"
#include "xmeml/formats.h"

#include <algorithm>

namespace XPJ {

namespace {

// The generator clip that an item is of, else the item itself.
std::string_view ClipKeyOf(ConstHandle generator)
{
    const std::string_view masterClipId = generator.GetProperty("masterclipid");
    return masterClipId.empty() ? generator.GetProperty("id") : masterClipId;
}

void AppendProperties(ConstHandle node, std::string& text)
{
    for (const Property& property : node.Properties())
        text.append(property.NameView()).append(1, '=').append(property.Value()).append(1, '\n');
}

// What distinguishes generators of one clip: the effect with the values of its parameters.
std::string ContentOf(ConstHandle generator)
{
    const ConstHandle effect = generator.GetChild("effect");
    std::string text(generator.GetProperty("masterclipid"));
    text.append(1, '\n').append(effect.GetProperty("effectid")).append(1, '\n');
    for (const ConstHandle parameter : effect.GetChildren("parameter")) {
        AppendProperties(parameter, text);
        for (const ConstHandle value : parameter.GetChildren()) {
            AppendProperties(value, text);
            AppendProperties(value.GetChild("value"), text); // of a keyframe
        }
    }
    return text;
}

// True for a generator without an effect, or with that of a title without text.
bool StatesNothing(ConstHandle generator)
{
    const ConstHandle effect = generator.GetChild("effect");
    if (!effect)
        return true;
    if (!IsTextTitle(generator))
        return IsShape(generator) && !effect.HasChild("parameter");
    const auto isStated = [](const TitleText& text) {
        return std::ranges::any_of(text.lines, [](std::string_view line) { return !line.empty(); });
    };
    return std::ranges::none_of(ReadTitle(generator, {}).texts, isStated);
}

} // namespace

// ---- Sequences

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

MasterClipHandle SequenceCatalog::MasterOf(std::string_view id) const
{
    const auto found = masters_.find(id);
    return found == masters_.end() ? MasterClipHandle() : found->second;
}

void SequenceCatalog::AddMaster(std::string_view id, MasterClipHandle master)
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

// ---- Generators

const FrameFormat& GeneratorCatalog::FrameOf(ConstHandle owner)
{
    const auto [entry, isNew] = frames_.try_emplace(owner.UniqueId());
    if (isNew)
        entry->second = FrameOfOwner(owner);
    return entry->second;
}

MasterClipHandle GeneratorCatalog::MasterOf(ConstHandle generator) const
{
    const auto known = masters_.find(generator.UniqueId());
    return known == masters_.end() ? MasterClipHandle() : known->second;
}

void GeneratorCatalog::Add(ConstHandle generator, MasterClipHandle master)
{
    masters_.emplace(generator.UniqueId(), master);
}

MasterClipHandle GeneratorCatalog::MasterOfEqual(ConstHandle generator) const
{
    const auto known = equals_.find(ContentOf(generator));
    return known == equals_.end() ? MasterClipHandle() : known->second;
}

void GeneratorCatalog::AddEqual(ConstHandle generator, MasterClipHandle master)
{
    if (HasValue(generator, "masterclipid"))
        equals_.emplace(ContentOf(generator), master);
}

// ---- Titles

bool TitleCatalog::IsGraphic(ConstHandle generator) const
{
    const ConstHandle source = SourceOf(generator);
    return IsShape(source) || (convertTitles_ && IsTextTitle(source));
}

void TitleCatalog::Add(ConstHandle generator)
{
    const std::string_view key = ClipKeyOf(generator);
    const bool isTitle = IsShape(generator) || IsTextTitle(generator);
    if (!key.empty() && !titles_.contains(key) && isTitle && !StatesNothing(generator))
        titles_.emplace(key, generator);
}

ConstHandle TitleCatalog::SourceOf(ConstHandle item) const
{
    const auto known = titles_.find(ClipKeyOf(item));
    return known != titles_.end() && StatesNothing(item) ? known->second : item;
}

} // namespace XPJ
