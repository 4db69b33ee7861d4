// A slug is a gap in the cut that is a clip of its own. The import shows it as a sequence of black
// video, four hours long, and adds the clip of that video to the bin; the export writes both as
// they are, so that each pass would add a sequence and a clip.
//
//   document                      project                           written as it is
//   clip "Gap" (a slug)      ->   clip "Black Video"           ->   clip "Black Video" (a slug)
//                                 sequence "Gap"                    sequence "Gap"
//                                   item "Black Video"                item "Black Video" (a slug)
#include "dialects/writing_slugs.h"

#include "core/numbers.h"
#include "core/text_hash.h"
#include "xmeml/files.h"
#include "xmeml/rates.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace XPJ {

namespace {

// A sequence that was made of a slug.
struct SlugSequence {
    ObjectHandle sequence;
    ObjectHandle item; // the one in it
    ObjectHandle file; // of the slug
    bool isInBin = false;
};

class SlugPass {
public:
    explicit SlugPass(DialectPass& pass) : pass_(pass)
    {
        TextSet<> files;
        for (const ObjectHandle& file : pass.Parts().files)
            if (FileElement(file).IsSlug())
                files.insert(file.GetProperty("id"));
        std::unordered_map<std::uint64_t, int> counts; // items by sequence
        for (const ItemPart& part : pass.Parts().items)
            ++counts[part.owner.UniqueId()];
        for (const ItemPart& part : pass.Parts().items)
            if (counts[part.owner.UniqueId()] == 1 && IsMadeOfSlug(part) &&
                (files.contains(FileIdOf(part.item)) || IsSlugGenerator(part.item)))
                slugs_.emplace(part.owner.GetProperty("id"),
                               SlugSequence{part.owner, part.item, MakeFile(part.owner)});
    }

    void Run()
    {
        if (slugs_.empty())
            return;
        for (const ObjectHandle& bin : pass_.Parts().bins)
            ReplaceInBin(bin.GetChild("children"));
        for (const ItemPart& part : pass_.Parts().items)
            ReplaceInItem(part.item);
        pass_.PartsChanged();
        RemoveBlackClips();
        RestoreFiles();
    }

private:
    static std::string_view FileIdOf(ConstHandle item)
    {
        const ConstHandle own = item.GetChild("file");
        return own ? own.GetProperty("id") : item.GetProperty("fileid");
    }

    static bool IsSlugGenerator(ConstHandle item)
    {
        return item.GetName() == "generatoritem" &&
               item.GetChild("effect").GetProperty("effectid") == "Slug";
    }

    static bool IsMadeOfSlug(const ItemPart& part)
    {
        if (!part.isInSequence || part.type != MediaType::Video ||
            part.item.GetProperty("name") != kSlugSequenceName)
            return false;
        const Ticks frameTicks = TicksOfRate(part.owner.GetChild("rate"));
        const std::int64_t frames = Int64Property(part.owner, "duration");
        return frameTicks > 0 && frames == kSlugSequenceDuration / frameTicks &&
               Int64Property(part.item, "start") == 0;
    }

    // As large as the sequence.
    ObjectHandle MakeFile(ObjectHandle sequence)
    {
        Document& document = pass_.Nodes();
        const ObjectHandle file = document.NewObject("file");
        file.SetProperty("id", "slug-" + IntToString(++fileCount_));
        file.SetPropertyShared("name", sequence.GetProperty("name"));
        file.SetPropertyShared("mediaSource", "Slug");
        file.AddChild(sequence.GetChild("rate"));
        const ConstHandle format =
            FindPath(sequence, {"media", "video", "format", "samplecharacteristics"});
        const ObjectHandle video = AddNew(document, AddNew(document, file, "media"), "video");
        const ObjectHandle characteristics = AddNew(document, video, "samplecharacteristics");
        for (const Name leaf :
             {Name("width"), Name("height"), Name("anamorphic"), Name("pixelaspectratio"),
              Name("velaOriginalPAR"), Name("fielddominance")})
            if (HasValue(format, leaf))
                characteristics.SetPropertyShared(leaf, format.GetProperty(leaf));
        return file;
    }

    ObjectHandle MakeClip(SlugSequence& slug)
    {
        Document& document = pass_.Nodes();
        const ObjectHandle clip = document.NewObject("clip");
        const ObjectHandle item = document.NewObject("clipitem");
        for (const Name leaf : {Name("id"), Name("uuid"), Name("name"), Name("in"), Name("out")})
            if (HasValue(slug.sequence, leaf))
                clip.SetPropertyShared(leaf, slug.sequence.GetProperty(leaf));
        clip.SetPropertyShared("explodedTracks", slug.sequence.GetProperty("explodedTracks"));
        for (const ObjectHandle& child : slug.sequence.GetChildren())
            if (child.GetName() == "rate" || child.GetName() == "labels")
                clip.AddChild(child);
        item.SetPropertyShared("id", slug.item.GetProperty("id"));
        item.SetPropertyShared("masterclipid", clip.GetProperty("id"));
        item.SetPropertyShared("name", clip.GetProperty("name"));
        item.AddChild(slug.sequence.GetChild("rate"));
        item.AddChild(slug.file);
        const ObjectHandle video = AddNew(document, AddNew(document, clip, "media"), "video");
        AddNew(document, video, "track").AddChild(item);
        return clip;
    }

    // A second item of the browser that shows the same sequence is one more reference to it.
    void ReplaceInBin(ObjectHandle children)
    {
        std::vector<ObjectHandle> items;
        for (const ObjectHandle& item : children.GetChildren()) {
            const bool isSequence = item.GetName() == "sequence" || item.GetName() == "sequenceref";
            const auto slug = slugs_.find(item.GetProperty("id"));
            if (!isSequence || slug == slugs_.end()) {
                items.push_back(item);
                continue;
            }
            if (!slug->second.isInBin)
                items.push_back(MakeClip(slug->second));
            slug->second.isInBin = true;
        }
        SetChildren(children, items);
    }

    static void SetChildren(ObjectHandle parent, const std::vector<ObjectHandle>& children)
    {
        parent.ClearChildren();
        for (const ObjectHandle& child : children)
            parent.AddChild(child);
    }

    void ReplaceInItem(ObjectHandle item)
    {
        const ObjectHandle own = item.GetChild("sequence");
        const auto slug = slugs_.find(own ? own.GetProperty("id") : item.GetProperty("sequenceid"));
        if (slug == slugs_.end())
            return;
        item.RemoveChild(own);
        item.RemoveProperty("sequenceid");
        item.AddChild(slug->second.file);
        if (slug->second.isInBin)
            item.SetPropertyShared("masterclipid", slug->first);
    }

    // The clips of the black video in the sequences, unless something else shows them.
    void RemoveBlackClips()
    {
        TextMap<bool> isShown;
        for (const auto& [id, slug] : slugs_)
            if (HasValue(slug.item, "masterclipid"))
                isShown.emplace(slug.item.GetProperty("masterclipid"), false);
        for (const ItemPart& part : pass_.Parts().items)
            if (const auto clip = isShown.find(part.item.GetProperty("masterclipid"));
                clip != isShown.end() && part.isInSequence)
                clip->second = true;
        for (const ObjectHandle& bin : pass_.Parts().bins) {
            std::vector<ObjectHandle> kept;
            for (const ObjectHandle& item : bin.GetChild("children").GetChildren())
                if (const auto clip = isShown.find(item.GetProperty("id"));
                    clip == isShown.end() || clip->second)
                    kept.push_back(item);
            SetChildren(bin.GetChild("children"), kept);
        }
        pass_.PartsChanged();
    }

    // A file that was written whole in one of the sequences is now whole at its next use.
    void RestoreFiles()
    {
        TextMap<ObjectHandle> files;
        for (const auto& [id, slug] : slugs_)
            if (const ObjectHandle file = slug.item.GetChild("file"))
                files.emplace(file.GetProperty("id"), file);
        for (const ItemPart& part : pass_.Parts().items) {
            const auto found = files.find(part.item.GetProperty("fileid"));
            if (found == files.end())
                continue;
            part.item.RemoveProperty("fileid");
            part.item.AddChild(found->second);
            files.erase(found);
        }
        pass_.PartsChanged();
    }

    DialectPass& pass_;
    TextMap<SlugSequence> slugs_; // by id
    std::int64_t fileCount_ = 0;
};

} // namespace

void WriteSlugsAsSlugs(DialectPass& pass)
{
    SlugPass(pass).Run();
}

} // namespace XPJ
