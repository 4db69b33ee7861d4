// The texts of titles in all formats that a document may hold them in: parameters of a generator, a
// title document, the text document of a graphic.
#pragma once

#include "effects/graphic_effects.h"
#include "inspect/timeline.h"
#include "project/accessors.h"
#include "tree/object.h"

#include <string>
#include <string_view>
#include <vector>

namespace XPJ::Inspection {

// The effect of a graphic text in XML documents, and its component in projects.
inline constexpr std::string_view kTextEffect = kGraphicText.xmeml.id;
inline constexpr std::string_view kTextComponent = kGraphicText.project.match;

// Of a `generatoritem` that is a title; empty for any other. `frame` is that of its sequence.
std::vector<TitleText> TextsOfGenerator(ConstHandle generator, const FrameSize& frame);

// Of the graphic texts among the `filter`s of a `clipitem` or `file`.
std::vector<TitleText> TextsOfFilters(ConstHandle owner);

// Of the graphic texts in the component chain of a track item or master clip.
std::vector<TitleText> TextsOfChain(ConstHandle chain);

// Of the title document that a project's Media holds; empty for a Media of another kind.
std::vector<TitleText> TextsOfMedia(Media media);

// The text on one line, cut to a length that is fit for a list.
//   PreviewOf({.text = "Anna Lee\nEditor"}) == "Anna Lee / Editor"
std::string PreviewOf(const TitleText& text);

} // namespace XPJ::Inspection
