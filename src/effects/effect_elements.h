// The elements of one effect: `filter` and `effect` of `xmeml`, the component of a project.
#pragma once

#include "tree/object.h"

#include <string>
#include <string_view>

namespace XPJ {

// ---- `xmeml`, read

// The name under which issues list an effect: its `name`, else its id.
std::string_view EffectName(ConstHandle effect);
// The same with the name that the id states, where a user gave the effect another one.
//   "Dream Look (Gaussian Blur)"
std::string FullEffectName(ConstHandle effect);

// The `effect` of a `filter`; null if the filter is off without being kept as a bypassed one, or if
// its effect states neither its name nor its id, as that of a clip with a plain gain.
ConstHandle ActiveEffect(ConstHandle filter);

// Calls `use(effect)` for each active effect, in document order.
template <typename Use>
void ForEachEffect(ConstHandle owner, const Use& use)
{
    for (const ConstHandle filter : owner.GetChildren("filter"))
        if (const ConstHandle effect = ActiveEffect(filter))
            use(effect);
}

// ---- `xmeml`, written

// What an `effect` states of itself.
struct XmemlEffect {
    std::string_view id = {};
    std::string_view name = {};
    std::string_view category = {}; // empty: none
    std::string_view type = "filter";
    std::string_view mediaType = "video";
};

// The texts must live as long as the document.
void WriteEffectHead(const XmemlEffect& head, ObjectHandle effect);
// Bypass and the unfolded state of a component.
void WriteSwitches(ConstHandle component, ObjectHandle effect);
// Puts a `filter` on an item and gives its new `effect`, which is still empty.
ObjectHandle AddEmptyFilter(Document& document, ObjectHandle item);
// The same with what the effect states of itself.
ObjectHandle AddFilter(Document& document, const XmemlEffect& head, ObjectHandle item);
// The `effect` of an item that has the id; null without one.
ObjectHandle FindEffect(ObjectHandle item, std::string_view effectId);

// ---- A project

struct ComponentNames {
    std::string_view match = {};
    std::string_view display = {};
};

// A filter without parameters, with the switches that its `effect` states.
ObjectHandle MakeFilterComponent(Document& document, const ComponentNames& names,
                                 ConstHandle effect);
// Opacity or Motion, which every item has, switched on.
ObjectHandle MakeIntrinsicComponent(Document& document, const ComponentNames& names);

// `Bypass` of a component from `velaBypass` of its effect, "false" without one.
void CopyBypass(ConstHandle effect, ObjectHandle component);
// The unfolded state of a component in the host's panel, if the effect carries it.
void CopyExpanded(ConstHandle effect, ObjectHandle component);

} // namespace XPJ
