#include "import/import_state.h"

#include "effects/effect_elements.h"

#include <cstddef>

namespace XPJ {

void AddItemIssue(const ImportState& state, const ItemLocation& location, ImportIssue kind,
                  std::string_view subject)
{
    EffectContext{.document = state.document, .account = state.account, .location = location}
        .AddIssue(kind, subject);
}

void AddSkipped(ImportState& state, ConstHandle element, const ItemLocation& location)
{
    if (element.GetName() == "sequence")
        return AddRemark(state.account, RemarkKind::SequenceWithoutFormat, location);
    const ConstHandle multiclip = FindMulticlip(element);
    if (multiclip && !IsCollapsed(multiclip) && !HasValue(multiclip, "id"))
        return AddRemark(state.account, RemarkKind::MulticlipIncomplete, location,
                         {.name = multiclip.GetProperty("name"), .detail = "id"});
    if (const ConstHandle generator =
            FindPath(element, {"media", "video", "track", "generatoritem"}))
        return AddRemark(state.account, RemarkKind::GeneratorInBin, location,
                         {.name = EffectName(generator.GetChild("effect"))});
    const FileElement defined = FileOfItem(state.files, element);
    const FileElement file = defined ? defined : FileElement(element.GetChild("file"));
    if (HasValue(file, "pathurl") && !file.HasChild("media"))
        return AddRemark(state.account, RemarkKind::FileWithoutMedia, location,
                         {.name = file.GetProperty("name"), .id = state.files.IdOf(file)});
    AddRemark(state.account, RemarkKind::ClipWithoutMedia, location);
}

ItemLocation LocationOfClip(const ImportState& state, ConstHandle element)
{
    return {.clip = element.GetProperty("name"), .bin = state.bin};
}

std::string_view PathOfBin(Document& document, std::string_view outer, std::string_view bin)
{
    constexpr std::size_t kLongest = 1000;
    if (outer.size() > kLongest)
        return outer;
    std::string path(outer);
    if (!path.empty())
        path += '/';
    return document.Store(path.append(bin));
}

void RemarkOnAngles(ImportState& state, ConstHandle multiclip, const ItemLocation& location)
{
    const std::string_view id = multiclip.GetProperty("id");
    const bool isNew =
        id.empty() ? state.remarked.Insert(multiclip) : state.remarkedMulticlips.insert(id).second;
    std::size_t angles = 0;
    for ([[maybe_unused]] const ConstHandle& angle : multiclip.GetChildren("angle"))
        ++angles;
    if (isNew && angles > 1 && IsCollapsed(multiclip))
        AddRemark(state.account, RemarkKind::MulticlipAngles, location,
                  {.name = multiclip.GetProperty("name"), .id = id, .count = angles - 1});
}

} // namespace XPJ
