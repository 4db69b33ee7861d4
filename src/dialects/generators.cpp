// A slug is a gap in the cut that is an item of its own: a generator, or an item with a file whose
// source is "Slug".
//
//   <clipitem><file><mediaSource>Slug</mediaSource>  ->  <generatoritem><effect> "Slug"
#include "dialects/generators.h"

#include "core/numbers.h"
#include "core/ticks.h"
#include "xmeml/files.h"
#include "xmeml/parameter_values.h"

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <vector>

namespace XPJ {

namespace {

// ---- Slugs

// The files that are gaps, by name. A slug of another name replaces media that its writer could not
// state, and stays what it is.
struct SlugName {
    std::string_view file;
    std::string_view effect;
};

constexpr SlugName kSlugNames[] = {
    {"Slug", "Slug"},
    {"Black Video", "Slug"},
    {"Transparent Video", "Transparent Video"},
};

class SlugFiles {
public:
    explicit SlugFiles(const TreeParts& parts)
    {
        for (const ObjectHandle& file : parts.files)
            files_.Add(FileElement(file));
    }
    // The effect of the generator that an item is; empty for an item that is no gap.
    std::string_view EffectOf(ConstHandle item) const
    {
        const ConstHandle own = item.GetChild("file");
        const FileElement file = own ? files_.Resolve(own) : FileElement();
        if (item.GetName() == "clipitem" && file.IsSlug())
            for (const SlugName& row : kSlugNames)
                if (file.GetProperty("name") == row.file)
                    return row.effect;
        return {};
    }

private:
    FileCatalog files_;
};

// The clips of all angles: an angle needs its file.
NodeSet AnglesOf(const TreeParts& parts)
{
    NodeSet angles;
    for (const ItemPart& part : parts.items)
        for (const ConstHandle angle : part.item.GetChild("multiclip").GetChildren("angle"))
            angles.Insert(angle.GetChild("clip"));
    return angles;
}

ObjectHandle MakeEffect(Document& document, std::string_view id)
{
    const ObjectHandle effect = document.NewObject("effect");
    effect.SetPropertyShared("name", id);
    effect.SetPropertyShared("effectid", id);
    effect.SetPropertyShared("effectcategory", "Generators");
    effect.SetPropertyShared("effecttype", "generator");
    effect.SetPropertyShared("mediatype", "video");
    return effect;
}

// The length of a generator is at most its `duration`, which other programs state of the file.
void SetDuration(ObjectHandle generator)
{
    const std::int64_t length =
        SubtractTicks(Int64Property(generator, "out"), Int64Property(generator, "in"));
    const bool hasEdges = HasValue(generator, "start") && HasValue(generator, "end") &&
                          Int64Property(generator, "start") >= 0 &&
                          Int64Property(generator, "end") >= 0;
    if (hasEdges)
        generator.RemoveProperty("duration");
    else if (length > 0)
        generator.SetProperty("duration", IntToString(length));
}

ObjectHandle MakeGenerator(Document& document, ObjectHandle item, std::string_view effect)
{
    const ObjectHandle generator = document.NewObject("generatoritem");
    for (const Property& property : item.Properties())
        generator.SetPropertyShared(property.name.AsName(), property.Value());
    SetDuration(generator);
    for (const ObjectHandle& child : item.GetChildren())
        if (child.GetName() != "file" && child.GetName() != "sourcetrack")
            generator.AddChild(child);
    generator.AddChild(MakeEffect(document, effect));
    return generator;
}

void ReplaceSlugs(Document& document, const SlugFiles& files, ObjectHandle track, MediaType type)
{
    std::vector<ObjectHandle> children;
    for (const ObjectHandle& child : track.GetChildren()) {
        const std::string_view effect = files.EffectOf(child);
        if (effect.empty())
            children.push_back(child);
        else if (type == MediaType::Video)
            children.push_back(MakeGenerator(document, child, effect));
    }
    track.ClearChildren();
    for (const ObjectHandle& child : children)
        track.AddChild(child);
}

// ---- Styles of titles

constexpr std::string_view kStyleParameters[] = {"fontstyle", "style"};

struct StyleNumber {
    std::string_view others;
    std::string_view own;
};

constexpr StyleNumber kStyleNumbers[] = {
    {"1", "0"}, // plain
    {"2", "2"}, // bold
    {"3", "1"}, // italic
    {"4", "3"}, // both
};

using StyleColumn = std::string_view StyleNumber::*;

void ReplaceNumber(StyleColumn from, StyleColumn to, ObjectHandle holder)
{
    const std::string_view text = PlainValue(holder);
    for (const StyleNumber& row : kStyleNumbers)
        if (row.*from == text) {
            const ObjectHandle value = holder.GetChild("value");
            (HasValue(value, "value") ? value : holder).SetPropertyShared("value", row.*to);
            return;
        }
}

// Items may share an effect.
void ReplaceStyles(DialectPass& pass, StyleColumn from, StyleColumn to)
{
    NodeSet done;
    for (const ItemPart& part : pass.Parts().items) {
        if (part.kind != ItemKind::Generator)
            continue;
        const ObjectHandle effect = part.item.GetChild("effect");
        if (!done.Insert(effect))
            continue;
        for (const ObjectHandle& parameter : effect.GetChildren("parameter"))
            for (const std::string_view id : kStyleParameters)
                if (parameter.GetProperty("parameterid") == id) {
                    if (from == &StyleNumber::own)
                        parameter.SetProperty("velaStyle", PlainValue(parameter));
                    ReplaceNumber(from, to, parameter);
                    for (const ObjectHandle& keyframe : parameter.GetChildren("keyframe"))
                        ReplaceNumber(from, to, keyframe);
                }
    }
}

} // namespace

void ReadSlugsAsGenerators(DialectPass& pass)
{
    const auto isSlug = [](ConstHandle file) { return FileElement(file).IsSlug(); };
    if (std::ranges::none_of(pass.Parts().files, isSlug))
        return;
    const SlugFiles files(pass.Parts());
    const NodeSet angles = AnglesOf(pass.Parts());
    NodeSet done;
    bool hasChanged = false;
    for (const ItemPart& part : pass.Parts().items)
        if (part.file && !files.EffectOf(part.item).empty() && !angles.Contains(part.owner) &&
            done.Insert(part.track)) {
            ReplaceSlugs(pass.Nodes(), files, part.track, part.type);
            hasChanged = true;
        }
    if (hasChanged)
        pass.PartsChanged();
}

void ReadTitleStyles(DialectPass& pass)
{
    ReplaceStyles(pass, &StyleNumber::others, &StyleNumber::own);
}

void WriteTitleStyles(DialectPass& pass)
{
    ReplaceStyles(pass, &StyleNumber::own, &StyleNumber::others);
}

} // namespace XPJ
