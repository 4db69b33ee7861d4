// The export writes a file whole where it uses it first, and by its id from then on. Who takes one
// sequence out of a document then finds ids that lead nowhere.
//
//   sequence 1:  file-1 whole, file-1            ->  the same
//   sequence 2:  file-1, file-2 whole, file-1    ->  file-1 whole, file-2 whole, file-1
//
// Some readers look no further than an item, so its file always states its name and its path.
#include "dialects/writing_files.h"

#include "core/text_hash.h"

#include <cstdint>
#include <string_view>
#include <unordered_set>

namespace XPJ {

namespace {

class Files {
public:
    explicit Files(DialectPass& pass) : document_(pass.Nodes())
    {
        for (const ObjectHandle& file : pass.Parts().files)
            files_.try_emplace(file.GetProperty("id"), File{file});
    }

    void WriteFor(const ItemPart& part)
    {
        const ObjectHandle item = part.item;
        const auto found = files_.find(part.file ? part.fileId : item.GetProperty("fileid"));
        if (found == files_.end())
            return;
        if (part.file)
            item.RemoveChild(part.file);
        else
            item.RemoveProperty("fileid");
        File& file = found->second;
        const std::uint64_t sequence = part.isInSequence ? part.owner.UniqueId() : kNoSequence;
        item.AddChild(file.sequences.insert(sequence).second ? Whole(file) : Brief(file));
    }

private:
    // Where all clips of bins are.
    static constexpr std::uint64_t kNoSequence = 0;

    struct File {
        ObjectHandle original;
        ObjectHandle repeated = {};
        ObjectHandle brief = {};
        std::unordered_set<std::uint64_t> sequences = {}; // where it is written whole
    };

    ObjectHandle Whole(File& file)
    {
        if (file.sequences.size() == 1)
            return file.original;
        if (!file.repeated)
            file.repeated = WithoutFilters(file.original);
        return file.repeated;
    }

    ObjectHandle Brief(File& file)
    {
        if (!file.brief) {
            file.brief = document_.NewObject("file");
            for (const Name name : {Name("id"), Name("name"), Name("pathurl")})
                CopyProperty(file.original, name, file.brief, name);
        }
        return file.brief;
    }

    // Readers take the filters of the first definition, and filters may be long.
    ObjectHandle WithoutFilters(ObjectHandle original)
    {
        const ObjectHandle copy = document_.NewObject("file");
        for (const Property& property : original.Properties())
            copy.SetPropertyShared(property.name.AsName(), property.Value());
        for (const ObjectHandle& child : original.GetChildren())
            if (child.GetName() != "filter")
                copy.AddChild(child);
        return copy;
    }

    Document& document_;
    TextMap<File> files_; // by id
};

} // namespace

// The parts stay as they are: a repeated file shares what rules change in the original, and a brief
// one has nothing to change.
void WriteFilesWhole(DialectPass& pass)
{
    Files files(pass);
    for (const ItemPart& part : pass.Parts().items)
        files.WriteFor(part);
}

} // namespace XPJ
