// The `filter`s of an `xmeml` document that is being written, and their `effect`s.
#pragma once

#include "tree/object.h"

#include <string_view>

namespace XPJ {

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

} // namespace XPJ
