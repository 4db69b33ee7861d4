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

// The `effect`s of generators. Items of one Media share the element.
class GeneratorCatalog {
public:
    // `chain` is that of the item: the text of a graphic may belong to the item or to its master.
    // Null for the clip of a bin.
    ObjectHandle EffectOf(ExportContext& context, Media media, MasterClip masterClip,
                          ConstHandle chain);

private:
    std::unordered_map<std::uint64_t, ObjectHandle> effects_; // by the Media's `uniqueId`
};

} // namespace XPJ::RVX
