// The master clip of an element: its clips, channels, points, markers and logging fields.
#pragma once

#include "core/channel_types.h"
#include "import/import_state.h"
#include "project/master_clip.h"
#include "project/media.h"
#include "xmeml/files.h"
#include "xmeml/item_times.h"

#include <string_view>

namespace XPJ {

struct MasterFields {
    const MediaSources& sources;
    AudioKind audio = {};       // of kUnknownChannels: no audio
    std::string_view name = {}; // empty: the `name` of the element
    // All channels that an adaptive clip may have, whatever their number is.
    bool isWide = false;
};

// A new MasterClip of an element, which is null for black video.
BuiltMaster BuildMasterClip(const ImportState& state, const FileCatalog& files,
                            const ClipItem& element, const MasterFields& fields);

// Stereo is held as two mono elements, unless the element's tracks are exploded or the document is
// an audio hand-off.
AudioKind SplitStereo(const ImportOptions& options, AudioKind audio, bool exploded);

} // namespace XPJ
