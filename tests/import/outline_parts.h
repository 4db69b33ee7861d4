// What the outlines of an import share.
#pragma once

#include "support/document_text.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace XPJ {

// 0 for what is no number.
std::int64_t Count(std::string_view text);

// Ticks as frames, "20+7" with a rest.
std::string Frames(std::int64_t ticks, std::int64_t frameTicks);

// The tracks' groups of a sequence.
struct SequenceGroups {
    const Element& video;
    const Element& audio;
    std::int64_t frameTicks;
};
SequenceGroups GroupsOf(const ProjectText& project, const Element& sequence);

// The sequence that a master clip shows.
const Element& SequenceOfMaster(const ProjectText& project, const Element& master);

// `visit` gets every project item in the order of bins, with its bin, before the items of a bin.
using ItemVisitor = std::function<void(const Element& item, const Element& bin, std::size_t depth)>;
void VisitItems(const ProjectText& project, const ItemVisitor& visit);

// A blob as readable text.
std::string BlobText(std::string_view matchName, std::string_view name, std::string_view base64);

} // namespace XPJ
