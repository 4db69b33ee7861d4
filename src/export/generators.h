// Generated media as `generatoritem`s that other programs know. To the letter only a color matte is
// one, and other generated media is a file that a slug replaces.
#pragma once

#include "effects/effect_context.h"
#include "export/export_context.h"
#include "project/media_kinds.h"

#include <cstdint>
#include <map>
#include <tuple>

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
    FrameSize frame = {};         // in which the item shows it at its own size; of no size: its own
};

// The `effect`s of generators. Items of one Media in frames of one size share the element.
class GeneratorCatalog {
public:
    ObjectHandle EffectOf(ExportContext& context, const GeneratorSource& source);

private:
    // By the Media's `uniqueId` and the width and height of the frame.
    std::map<std::tuple<std::uint64_t, int, int>, ObjectHandle> effects_;
};

} // namespace XPJ::RVX
