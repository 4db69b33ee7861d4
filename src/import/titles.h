// Titles and shapes that become graphics: media that the host draws an effect on, which belongs to
// the track item or to the master clip.
#pragma once

#include "effects/effect_context.h"
#include "import/import_state.h"
#include "project/master_clip.h"
#include "tree/object.h"

#include <string_view>
#include <unordered_map>

namespace XPJ {

class TitleCatalog {
public:
    explicit TitleCatalog(const Settings& settings) : convertTitles_(settings.convertTitles) {}

    // Shapes always become graphics, text generators by the setting. A generator without an effect
    // is what another one of its clip was added as.
    bool IsGraphic(ConstHandle generator) const;
    // Keeps a generator for other items of its clip that state no text of their own.
    void Add(ConstHandle generator);
    // The generator that states what an item shows: another one of its clip if it states nothing
    // itself.
    ConstHandle SourceOf(ConstHandle item) const;

    // The masters that have the effect of a title themselves; their track items have none.
    bool AddTitledMaster(ConstHandle master) { return titledMasters_.Insert(master); }
    bool IsTitled(ConstHandle master) const { return titledMasters_.Contains(master); }

private:
    bool convertTitles_;
    // The first generator that states the text of a clip, by `masterclipid`, else `id`.
    std::unordered_map<std::string_view, ConstHandle> titles_;
    NodeSet titledMasters_;
};

// Gives a master the effect of a generator. `frame` is that of the sequence or clip around the
// generator.
void AddTitleToMaster(const ImportState& state, TitleCatalog& titles, ConstHandle generator,
                      const FrameSize& frame, BuiltMaster master);

// The effect that a track item of `master` has for its title, new in the project's document; null
// for what is no graphic title.
ObjectHandle TitleOfItem(Document& document, const TitleCatalog& titles, ConstHandle item,
                         const FrameSize& frame, ConstHandle master);

} // namespace XPJ
