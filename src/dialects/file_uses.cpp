#include "dialects/file_uses.h"

#include "core/numbers.h"

#include <algorithm>
#include <functional>
#include <unordered_map>
#include <utility>

namespace XPJ {

namespace {

class Finder {
public:
    std::vector<FileUses> Run(const TreeParts& parts)
    {
        Find(parts);
        for (FileUses& uses : uses_)
            KeepWholeDefinitions(uses.definitions);
        return std::move(uses_);
    }

private:
    // A use that states a name and a path defines nothing where another one says more.
    static void KeepWholeDefinitions(std::vector<ObjectHandle>& definitions)
    {
        const auto isWhole = [](ObjectHandle file) { return file.HasChildren(); };
        if (std::ranges::any_of(definitions, isWhole))
            std::erase_if(definitions, std::not_fn(isWhole));
    }

    void Find(const TreeParts& parts)
    {
        for (const ObjectHandle& file : parts.files)
            if (HasContent(file))
                Of(file).definitions.push_back(file);
        for (const ItemPart& part : parts.items)
            AddItem(part);
        for (const ObjectHandle& clip : parts.clips)
            if (const ConstHandle file = clip.GetChild("file"))
                AddElement(file, clip, {}).inBin = true;
    }

    // Files without an id are known by themselves alone.
    FileUses& Of(ConstHandle file)
    {
        const std::string_view id = file.GetProperty("id");
        std::size_t index = uses_.size();
        if (id.empty())
            index = byNode_.try_emplace(file.UniqueId(), index).first->second;
        else
            index = byId_.try_emplace(id, index).first->second;
        if (index == uses_.size())
            uses_.emplace_back();
        return uses_[index];
    }

    FileUses& AddElement(ConstHandle file, ObjectHandle element, ObjectHandle sequence)
    {
        FileUses& uses = Of(file);
        if (!uses.element) {
            uses.element = element;
            uses.sequence = sequence;
        }
        uses.lastFrame = std::max(uses.lastFrame, Int64Property(element, "out"));
        return uses;
    }

    void AddItem(const ItemPart& part)
    {
        const ConstHandle file = part.file;
        if (!file)
            return;
        const bool isInSequence = part.owner.GetName() == "sequence";
        FileUses& uses = AddElement(file, part.item, isInSequence ? part.owner : ObjectHandle());
        (part.type == MediaType::Video ? uses.onVideo : uses.onAudio) = true;
        if (part.type == MediaType::Audio)
            uses.channels =
                std::max({uses.channels, Int64Property(part.item, "channelcount"),
                          Int64Property(part.item.GetChild("sourcetrack"), "trackindex")});
    }

    std::vector<FileUses> uses_;
    std::unordered_map<std::string_view, std::size_t> byId_;
    std::unordered_map<std::uint64_t, std::size_t> byNode_;
};

} // namespace

ObjectHandle FileUses::Child(XPJ::Name name) const
{
    for (const ObjectHandle& file : definitions)
        if (const ObjectHandle found = file.GetChild(name))
            return found;
    return {};
}

std::string_view FileUses::Name() const
{
    return definitions.empty() ? std::string_view() : definitions.front().GetProperty("name");
}

bool HasContent(ConstHandle file)
{
    if (file.HasChildren())
        return true;
    for (const Property* property = file.FirstProperty(); property; property = property->next)
        if (property->NameView() != "id")
            return true;
    return false;
}

std::vector<FileUses> FindFileUses(const TreeParts& parts)
{
    return Finder().Run(parts);
}

} // namespace XPJ
