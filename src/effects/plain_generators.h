// Generators without parameters that `generatoritem`s show: one row for both directions.
#pragma once

#include "effects/effect_elements.h"
#include "project/media_kinds.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace XPJ {

struct PlainGenerator {
    XmemlEffect xmeml;
    MediaKind kind;
};

// Other programs know the first one; they step over the others.
inline constexpr PlainGenerator kPlainGenerators[] = {
    {{.id = "Slug", .name = "Slug", .category = "Generators", .type = "generator"},
     MediaKind::BlackVideo},
    {{.id = "Transparent Video",
      .name = "Transparent Video",
      .category = "Generators",
      .type = "generator"},
     MediaKind::TransparentVideo},
    {{.id = "Graphic", .name = "Graphic", .category = "Generators", .type = "generator"},
     MediaKind::Graphic},
};

inline constexpr const PlainGenerator& kSlugGenerator = kPlainGenerators[0];

// Null for another effect.
inline const PlainGenerator* FindPlainGenerator(std::string_view effectId)
{
    const auto* const found = std::ranges::find(
        kPlainGenerators, effectId, [](const PlainGenerator& row) { return row.xmeml.id; });
    return found == std::end(kPlainGenerators) ? nullptr : found;
}

// A slug for media of a kind without a row.
inline const PlainGenerator& PlainGeneratorOf(MediaKind kind)
{
    const auto* const found = std::ranges::find(kPlainGenerators, kind, &PlainGenerator::kind);
    return found == std::end(kPlainGenerators) ? kSlugGenerator : *found;
}

} // namespace XPJ
