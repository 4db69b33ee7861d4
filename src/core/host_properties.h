// Properties of the host that both vocabularies carry unchanged: browser columns, label colors, and
// the UI state of sequences, tracks and panners.
#pragma once

#include "core/name.h"

#include <span>
#include <string>
#include <string_view>

namespace XPJ {

std::span<const Name> ColumnPropertyList();
std::span<const Name> SequenceUIPropertyList();
std::span<const Name> TrackUIPropertyList();
std::span<const Name> PannerPropertyList();

// "Mango" -> "BE.Prefs.LabelColors.7"; empty for an unknown color.
std::string_view LabelKeyOf(std::string_view colorName);
// The same for any case, and for the labels of Final Cut, whose list the colors follow; hyphens are
// blanks there.
//   "b-roll" -> "BE.Prefs.LabelColors.4"
std::string_view LabelKeyOfAny(std::string_view label);
// True for a label of Final Cut's own list.
bool IsFinalCutLabel(std::string_view label);
// "BE.Prefs.LabelColors.7" -> "Mango"; empty for an unknown key.
std::string_view LabelNameOf(std::string_view key);

// "Master_95_Comment_95_1" -> "Master Comment 1"
std::string PropertyLabel(std::string_view property);
// "Master_95_Comment_95_1" -> "Master_Comment_1"
std::string XMPPropertyName(std::string_view property);
// Localisable key of a custom property of a schema, with its label as the default text.
std::string CustomPropertyKey(std::string_view schema, std::string_view property);

} // namespace XPJ
