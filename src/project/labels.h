// The label of an item of the browser, or of a clip: the color that the host shows, and the text
// that the label had in the document it came from. Final Cut and its users name labels otherwise
// than the host does.
//
//   "Mango"     -> color 7
//   "Good Take" -> color 0, and the text: the first of Final Cut's list has the first color
//   "VFX"       -> the text alone
#pragma once

#include "tree/object.h"

#include <string_view>

namespace XPJ {

// The properties in which a project keeps a label.
struct LabelKeys {
    Name color;
    Name text;
};
inline constexpr LabelKeys kItemLabel = {"Column.PropertyText.Label",
                                         "Column.PropertyText.LabelText"};
inline constexpr LabelKeys kClipLabel = {"hfl.clip.label.name", "hfl.clip.label.text"};

// Keeps a label of any text.
void SetLabel(ObjectHandle properties, const LabelKeys& keys, std::string_view label);

// The text as long as the color is the one that it came with, else the name of the color. Empty
// without a label, and for an unknown color.
std::string_view LabelOf(ConstHandle properties, const LabelKeys& keys);

} // namespace XPJ
