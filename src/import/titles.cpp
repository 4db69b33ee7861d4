#include "import/titles.h"

#include "effects/graphic_title.h"
#include "effects/title_reader.h"
#include "effects/video_chain.h"

#include <algorithm>

namespace XPJ {

namespace {

// The generator clip that an item is of, else the item itself.
std::string_view KeyOf(ConstHandle generator)
{
    const std::string_view masterClipId = generator.GetProperty("masterclipid");
    return masterClipId.empty() ? generator.GetProperty("id") : masterClipId;
}

bool IsText(ConstHandle generator)
{
    return IsTextTitle(generator);
}

bool IsShapeOf(ConstHandle generator)
{
    return IsShape(generator);
}

// True for a generator without an effect, or with that of a title without text.
bool StatesNothing(ConstHandle generator)
{
    const ConstHandle effect = generator.GetChild("effect");
    if (!effect)
        return true;
    if (!IsText(generator))
        return IsShapeOf(generator) && !effect.HasChild("parameter");
    const auto isStated = [](const TitleText& text) {
        return std::ranges::any_of(text.lines, [](std::string_view line) { return !line.empty(); });
    };
    return std::ranges::none_of(ReadTitle(generator, {}).texts, isStated);
}

} // namespace

bool TitleCatalog::IsGraphic(ConstHandle generator) const
{
    const ConstHandle source = SourceOf(generator);
    return IsShapeOf(source) || (convertTitles_ && IsText(source));
}

void TitleCatalog::Add(ConstHandle generator)
{
    const std::string_view key = KeyOf(generator);
    const bool isTitle = IsShapeOf(generator) || IsText(generator);
    if (!key.empty() && !titles_.contains(key) && isTitle && !StatesNothing(generator))
        titles_.emplace(key, generator);
}

ConstHandle TitleCatalog::SourceOf(ConstHandle item) const
{
    const auto known = titles_.find(KeyOf(item));
    return known != titles_.end() && StatesNothing(item) ? known->second : item;
}

void AddTitleToMaster(const ImportState& state, TitleCatalog& titles, ConstHandle generator,
                      const FrameSize& frame, BuiltMaster master)
{
    if (!titles.AddTitledMaster(master))
        return;
    const EffectContext context{.document = state.document, .issues = state.issues};
    const ObjectHandle effect =
        MakeGraphicEffect(state.document, titles.SourceOf(generator), frame);
    AddMasterChainEffect(context, effect, master.GetChild("VideoComponentChain"));
}

ObjectHandle TitleOfItem(Document& document, const TitleCatalog& titles, ConstHandle item,
                         const FrameSize& frame, ConstHandle master)
{
    if (item.GetName() != "generatoritem" || titles.IsTitled(master) || !titles.IsGraphic(item))
        return {};
    return MakeGraphicEffect(document, titles.SourceOf(item), frame);
}

} // namespace XPJ
