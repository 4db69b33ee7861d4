#include "dialects/file_uses.h"

#include "core/numbers.h"
#include "core/text_hash.h"

#include <algorithm>
#include <functional>
#include <utility>

#include <tsl/robin_map.h>

namespace XPJ {

namespace {

class Finder {
public:
    FileUseTable Run(const TreeParts& parts)
    {
        for (const ObjectHandle& file : parts.files)
            table_.files[IndexOf(file, file.GetProperty("id"))].definitions.push_back(file);
        for (FileUses& uses : table_.files) {
            KeepWholeDefinitions(uses.definitions);
            const ConstHandle media = uses.Child("media");
            uses.hasMedia = media.HasChild("video") || media.HasChild("audio");
        }
        table_.ofItems.reserve(parts.items.size());
        for (const ItemPart& part : parts.items)
            table_.ofItems.push_back(part.file ? AddItem(part) : FileUseTable::kNoFile);
        for (const ObjectHandle& clip : parts.clips)
            if (const ObjectHandle file = clip.GetChild("file"))
                AddClip(clip, table_.files[IndexOf(file, file.GetProperty("id"))]);
        return std::move(table_);
    }

private:
    // A use that states a name and a path defines nothing where another one states more.
    static void KeepWholeDefinitions(std::vector<ObjectHandle>& definitions)
    {
        const auto isWhole = [](ObjectHandle file) { return file.HasChildren(); };
        if (std::ranges::any_of(definitions, isWhole))
            std::erase_if(definitions, std::not_fn(isWhole));
    }

    // Files without an id are known by themselves alone.
    std::size_t IndexOf(ConstHandle file, std::string_view id)
    {
        const std::size_t next = table_.files.size();
        const std::size_t index = id.empty()
                                      ? byNode_.try_emplace(file.UniqueId(), next).first->second
                                      : byId_.try_emplace(id, next).first->second;
        if (index == next)
            table_.files.emplace_back();
        return index;
    }

    std::size_t AddItem(const ItemPart& part)
    {
        const std::size_t index = IndexOf(part.file, part.fileId);
        FileUses& uses = table_.files[index];
        if (!uses.element) {
            uses.element = part.item;
            uses.sequence = part.isInSequence ? part.owner : ObjectHandle();
        }
        (part.type == MediaType::Video ? uses.onVideo : uses.onAudio) = true;
        if (!uses.hasMedia)
            uses.lastFrame = std::max(uses.lastFrame, Int64Property(part.item, "out"));
        if (part.type == MediaType::Audio)
            uses.channels =
                std::max<std::int64_t>({uses.channels, part.channelCount, part.sourceTrack});
        return index;
    }

    static void AddClip(ObjectHandle clip, FileUses& uses)
    {
        if (!uses.element)
            uses.element = clip;
        uses.inBin = true;
        uses.lastFrame = std::max(uses.lastFrame, Int64Property(clip, "out"));
    }

    FileUseTable table_;
    tsl::robin_map<std::string_view, std::size_t, TextHash> byId_;
    tsl::robin_map<std::uint64_t, std::size_t> byNode_;
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

FileUseTable FindFileUses(const TreeParts& parts)
{
    return Finder().Run(parts);
}

} // namespace XPJ
