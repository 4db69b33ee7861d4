// Generated media as `generatoritem`s that other programs know. To the letter only a color matte is
// one, and other generated media is a file that a slug replaces.
#pragma once

#include "export/export_context.h"
#include "project/media_kinds.h"

#include <cstdint>
#include <unordered_map>

namespace XPJ::RVX {

// False for media with audio: bars and tone are a file to other programs too.
bool IsWrittenAsGenerator(const ExportContext& context, Media media);

// True for a generator that fills the frame of any sequence, as other programs have black and
// transparent video, whatever size its media states.
bool FitsAnyFrame(const ExportContext& context, Media media);

// Reports that a slug replaces media, or that a generator states it in part.
void ReportReplaced(ExportContext& context, Media media);

// What is written as a generator: media, and the item or the clip of a bin that shows it.
struct GeneratorSource {
    Media media;
    MasterClip masterClip;
    // Of the item: the text of a graphic may belong to the item or to its master. Null for the clip
    // of a bin.
    ConstHandle chain;
    const ItemLocation* location; // for remarks
};

// The `effect`s of generators. Items of one Media share the element.
class GeneratorCatalog {
public:
    ObjectHandle EffectOf(ExportContext& context, const GeneratorSource& source);

private:
    std::unordered_map<std::uint64_t, ObjectHandle> effects_; // by the Media's `uniqueId`
};

} // namespace XPJ::RVX
