#include "dialects/reading_formats.h"

#include "core/numbers.h"
#include "xmeml/files.h"
#include "xmeml/rates.h"

#include <algorithm>
#include <unordered_map>
#include <vector>

namespace XPJ {

namespace {

constexpr Name kFormatLeaves[] = {"width", "height", "pixelaspectratio", "anamorphic",
                                  "fielddominance"};

bool HasSize(ConstHandle characteristics)
{
    return IntProperty(characteristics, "width") > 0 && IntProperty(characteristics, "height") > 0;
}

// Copies what `to` doesn't state itself.
void CopyFormat(ConstHandle from, ObjectHandle to)
{
    for (const Name leaf : kFormatLeaves)
        if (!HasValue(to, leaf) && HasValue(from, leaf))
            to.SetPropertyShared(leaf, from.GetProperty(leaf));
}

bool StatesPixels(ConstHandle characteristics)
{
    return HasValue(characteristics, "pixelaspectratio") || HasValue(characteristics, "anamorphic");
}

// The size of most that is cut today.
void AssumeSize(ObjectHandle characteristics)
{
    characteristics.SetPropertyShared("width", "1920");
    characteristics.SetPropertyShared("height", "1080");
}

// What a file states of its frame, in its `samplecharacteristics` or directly.
ConstHandle FormatOfFile(FileElement file)
{
    const ConstHandle characteristics = file.VideoCharacteristics();
    return HasSize(characteristics) || !HasSize(file) ? characteristics : file;
}

class Completion {
public:
    explicit Completion(DialectPass& pass) : pass_(pass)
    {
        for (const ObjectHandle& file : pass.Parts().files)
            files_.Add(FileElement(file));
    }

    void Complete(ObjectHandle sequence)
    {
        const bool hasRate = CompleteRate(sequence);
        const bool hasSize = CompleteFormat(sequence);
        if (!hasRate || !hasSize)
            pass_.Assume(sequence.GetProperty("name"));
    }

private:
    // Most documents state all, so the items are listed when some are needed.
    const std::vector<ObjectHandle>& ItemsOf(ConstHandle sequence)
    {
        if (items_.empty())
            for (const ItemPart& part : pass_.Parts().items)
                if (part.isInSequence && part.kind == ItemKind::Clip)
                    items_[part.owner.UniqueId()].push_back(part.item);
        return items_[sequence.UniqueId()];
    }

    // False where the document states no rate.
    bool CompleteRate(ObjectHandle sequence)
    {
        if (TicksOfRate(sequence.GetChild("rate")) > 0)
            return true;
        std::vector<ObjectHandle> owners = {
            sequence.GetChild("timecode"),
            FindPath(sequence, {"media", "video", "format", "samplecharacteristics"})};
        for (const ObjectHandle& item : ItemsOf(sequence)) {
            owners.push_back(item);
            owners.push_back(item.GetChild("file"));
        }
        for (const ObjectHandle& owner : owners)
            if (const ObjectHandle rate = owner.GetChild("rate"); TicksOfRate(rate) > 0) {
                SetRate(sequence, rate);
                return true;
            }
        const ObjectHandle rate = pass_.Nodes().NewObject("rate");
        rate.SetPropertyShared("timebase", "30");
        rate.SetPropertyShared("ntsc", "TRUE");
        SetRate(sequence, rate);
        return false;
    }

    // False where the size is a guess.
    bool CompleteFormat(ObjectHandle sequence)
    {
        const ObjectHandle media = GetOrAddChild(pass_.Nodes(), sequence, "media");
        const ObjectHandle video = GetOrAddChild(pass_.Nodes(), media, "video");
        const ObjectHandle format = GetOrAddChild(pass_.Nodes(), video, "format");
        const ObjectHandle characteristics =
            GetOrAddChild(pass_.Nodes(), format, "samplecharacteristics");
        CopyFormat(video.GetChild("samplecharacteristics"), characteristics);
        CopyFormat(FindPath(media, {"format", "samplecharacteristics"}), characteristics);
        CopyFormat(sequence, characteristics);
        const bool isStated = HasSize(characteristics);
        const bool isFound = isStated || TakeSizeOfItems(sequence, characteristics);
        if (!isFound)
            AssumeSize(characteristics);
        AssumeSquarePixels(characteristics);
        return isStated || isFound;
    }

    // Of the first item whose file states a size.
    bool TakeSizeOfItems(ConstHandle sequence, ObjectHandle characteristics)
    {
        for (const ObjectHandle& item : ItemsOf(sequence)) {
            const ConstHandle format = FormatOfFile(FileOfItem(files_, item));
            if (!HasSize(format))
                continue;
            characteristics.SetPropertyShared("width", format.GetProperty("width"));
            characteristics.SetPropertyShared("height", format.GetProperty("height"));
            CopyFormat(format, characteristics);
            return true;
        }
        return false;
    }

    // The import guesses the pixels of standard definition by the rate; nothing larger has others
    // than square ones unless it states them.
    static void AssumeSquarePixels(ObjectHandle characteristics)
    {
        constexpr int kStandardWidth = 720;
        constexpr int kStandardHeights[] = {480, 486, 576};
        if (HasValue(characteristics, "pixelaspectratio"))
            return;
        const int height = IntProperty(characteristics, "height");
        const bool isStandard = IntProperty(characteristics, "width") == kStandardWidth &&
                                std::ranges::count(kStandardHeights, height) > 0;
        if (!isStandard)
            characteristics.SetPropertyShared("pixelaspectratio", "square");
    }

    DialectPass& pass_;
    FileCatalog files_;
    std::unordered_map<std::uint64_t, std::vector<ObjectHandle>> items_; // by sequence
};

bool IsStandardDefinition(ConstHandle characteristics)
{
    return IntProperty(characteristics, "width") < 1280 &&
           IntProperty(characteristics, "height") < 720;
}

bool HasSameSize(ConstHandle characteristics, ConstHandle frame)
{
    return IntProperty(characteristics, "width") == IntProperty(frame, "width") &&
           IntProperty(characteristics, "height") == IntProperty(frame, "height");
}

// Video of unknown size fills the frame of the sequence that shows it: nothing states that it
// should be scaled. Nor does it, where it can have the sequence's pixels, state any others.
void CompleteFile(DialectPass& pass, const FileUses& uses)
{
    const ConstHandle frame =
        FindPath(uses.sequence, {"media", "video", "format", "samplecharacteristics"});
    for (const ObjectHandle& file : uses.definitions) {
        const ObjectHandle video = FindPath(file, {"media", "video"});
        if (!video)
            continue;
        const ObjectHandle characteristics =
            GetOrAddChild(pass.Nodes(), video, "samplecharacteristics");
        CopyFormat(file, characteristics);
        const bool mayHaveFrames =
            IsStandardDefinition(characteristics) || HasSameSize(characteristics, frame);
        if (!HasSize(characteristics) || (mayHaveFrames && !StatesPixels(characteristics)))
            CopyFormat(frame, characteristics);
        else if (!StatesPixels(characteristics))
            characteristics.SetPropertyShared("pixelaspectratio", "square");
        if (!HasSize(characteristics))
            AssumeSize(characteristics);
    }
}

// Media without a rate, on an item without one, counts in that of the sequence.
void CompleteRate(const FileUses& uses)
{
    const ObjectHandle rate = uses.sequence.GetChild("rate");
    if (!rate || TicksOfRate(uses.element.GetChild("rate")) > 0)
        return;
    for (const ObjectHandle& file : uses.definitions)
        if (TicksOfRate(file.GetChild("rate")) == 0) {
            SetRate(file, rate);
        }
}

} // namespace

void GatherFormats(DialectPass& pass)
{
    const TreeParts& parts = pass.Parts();
    const auto gather = [&pass](ConstHandle from, ObjectHandle file) {
        if (const ObjectHandle video = FindPath(file, {"media", "video"}))
            CopyFormat(from, GetOrAddChild(pass.Nodes(), video, "samplecharacteristics"));
    };
    for (const ObjectHandle& file : parts.files)
        if (parts.framed.Contains(file))
            gather(file, file);
    for (const ItemPart& part : parts.items) {
        if (part.statesFormat)
            gather(part.item, part.file);
        if (!part.isInSequence && parts.framed.Contains(part.owner))
            gather(part.owner, part.file);
    }
    for (const ObjectHandle& clip : parts.clips)
        if (parts.framed.Contains(clip))
            gather(clip, clip.GetChild("file"));
}

void CompleteFormats(DialectPass& pass)
{
    Completion completion(pass);
    const NodeSet stills = StillSequences(pass.Parts()); // nobody looks at their frame
    for (const ObjectHandle& sequence : pass.Parts().sequences)
        if (!stills.Contains(sequence))
            completion.Complete(sequence);
    for (const FileUses& uses : pass.Files().files) {
        CompleteFile(pass, uses);
        CompleteRate(uses);
    }
}

} // namespace XPJ
