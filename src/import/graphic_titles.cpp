#include "import/graphic_titles.h"

#include "effects/graphic_title.h"
#include "effects/title_reader.h"
#include "effects/video_chain.h"

#include <algorithm>

namespace XPJ {

namespace {

// The generator clip that an item is of, else the item itself.
std::string_view KeyOf(ObjectHandle generator)
{
    const std::string_view masterClipId = generator.GetProperty("masterclipid");
    return masterClipId.empty() ? generator.GetProperty("id") : masterClipId;
}

bool HasContent(ObjectHandle generator)
{
    if (IsShape(generator))
        return generator.GetChild("effect").HasChild("parameter");
    const auto isStated = [](const TitleText& text) {
        return std::ranges::any_of(text.lines, [](std::string_view line) { return !line.empty(); });
    };
    return IsTextTitle(generator) && std::ranges::any_of(ReadTitle(generator, {}).texts, isStated);
}

// The generator that states what an item shows: another one of its clip if it is bare itself.
ObjectHandle SourceOfTitle(const ImportState& state, ObjectHandle item)
{
    const auto known = state.titles.find(KeyOf(item));
    if (known == state.titles.end() || known->second == item || HasContent(item))
        return item;
    return known->second;
}

} // namespace

bool IsGraphicTitle(const Settings& settings, ObjectHandle generator)
{
    return IsShape(generator) || (settings.convertTitles && IsTextTitle(generator));
}

void RegisterTitle(ImportState& state, ObjectHandle generator)
{
    const std::string_view key = KeyOf(generator);
    if (!key.empty() && !state.titles.contains(key) && HasContent(generator))
        state.titles.emplace(key, generator);
}

void AddTitleToMaster(ImportState& state, ObjectHandle generator, const FrameSize& frame,
                      ObjectHandle master)
{
    if (!state.titledMasters.Insert(master))
        return;
    const EffectContext context{.document = state.document, .issues = state.issues};
    AddMasterChainEffect(context,
                         MakeGraphicEffect(state.document, SourceOfTitle(state, generator), frame),
                         master.GetChild("VideoComponentChain"));
}

bool HasTitle(const ImportState& state, ObjectHandle master)
{
    return state.titledMasters.Contains(master);
}

ObjectHandle TitleOfItem(const ImportState& state, ObjectHandle item, const FrameSize& frame,
                         ObjectHandle master)
{
    if (item.GetName() != "generatoritem" || HasTitle(state, master))
        return {};
    const ObjectHandle source = SourceOfTitle(state, item);
    if (!IsGraphicTitle(state.settings, source))
        return {};
    return MakeGraphicEffect(state.document, source, frame);
}

} // namespace XPJ
