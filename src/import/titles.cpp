#include "import/titles.h"

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

bool IsTitle(ObjectHandle generator)
{
    return IsShape(generator) || IsTextTitle(generator);
}

// Whether it leaves open what it shows: without an effect, or with that of a title without words.
bool IsBare(ObjectHandle generator)
{
    const ObjectHandle effect = generator.GetChild("effect");
    if (!effect)
        return true;
    if (!IsTextTitle(generator))
        return IsShape(generator) && !effect.HasChild("parameter");
    const auto isStated = [](const TitleText& text) {
        return std::ranges::any_of(text.lines, [](std::string_view line) { return !line.empty(); });
    };
    return std::ranges::none_of(ReadTitle(generator, {}).texts, isStated);
}

// The generator that states what an item shows: another one of its clip if it is bare itself.
ObjectHandle SourceOfTitle(const ImportState& state, ObjectHandle item)
{
    const auto known = state.titles.find(KeyOf(item));
    return known != state.titles.end() && IsBare(item) ? known->second : item;
}

} // namespace

bool IsGraphicTitle(const ImportState& state, ObjectHandle generator)
{
    const ObjectHandle source = SourceOfTitle(state, generator);
    return IsShape(source) || (state.settings.convertTitles && IsTextTitle(source));
}

void RegisterTitle(ImportState& state, ObjectHandle generator)
{
    const std::string_view key = KeyOf(generator);
    if (!key.empty() && !state.titles.contains(key) && IsTitle(generator) && !IsBare(generator))
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
    if (item.GetName() != "generatoritem" || HasTitle(state, master) ||
        !IsGraphicTitle(state, item))
        return {};
    return MakeGraphicEffect(state.document, SourceOfTitle(state, item), frame);
}

} // namespace XPJ
