// The masters of clips, items and files: which one an element means, and how a new one is built.
#pragma once

#include "core/channel_types.h"
#include "import/import_state.h"
#include "import/streams.h"
#include "project/master_clip.h"
#include "project/media.h"
#include "xmeml/files.h"
#include "xmeml/item_times.h"

#include <string_view>

namespace XPJ {

// How an element looks up the master of a media file. Layers are registered under their own index,
// everything else under 0: the lookup takes the item's source track, then its index in the
// sequence, then 0.
struct MediaQuery {
    std::string_view masterClipId;
    MediaType type = MediaType::Video;
    int sourceTrack = -1; // from 0; -1 without one
    int trackIndex = 0;   // from 0
};
MasterClipHandle FindMedia(const MasterRegistry& registry, const MediaQuery& query,
                           std::string_view mediaId);

// `trackindex` of a `sourcetrack`, from 0; -1 without one.
int SourceTrackOf(ConstHandle item);

// The master that a `clipitem`, `generatoritem` or `clip` shows on a track of a type; null if there
// is none. `trackIndex` counts from 0.
MasterClipHandle MasterForItem(const ImportState& state, ConstHandle item, MediaType type,
                               int trackIndex);
// The same, also if the master has no clip of the type.
MasterClipHandle FindMaster(const ImportState& state, ConstHandle item, MediaType type,
                            int trackIndex);

// ---- New masters

struct MasterFields {
    const MediaSources& sources;
    AudioKind audio = {};       // of kUnknownChannels: no audio
    std::string_view name = {}; // empty: the `name` of the element
    // All channels that an adaptive clip may have, whatever their number is.
    bool isWide = false;
};

// A new MasterClip of an element, which is null for black video.
MasterClipHandle BuildMasterClip(ImportState& state, const ClipItem& element,
                                 const MasterFields& fields);

// Stereo is held as two mono elements, unless the element's tracks are exploded or the document is
// an audio hand-off.
AudioKind SplitStereo(const ImportOptions& options, AudioKind audio, bool exploded);

// A newly built master and the one that the registry holds, which differ when the key was taken.
struct FileMaster {
    MasterClipHandle master; // null if the file has no streams
    MediaSources sources;
    bool isNew = false;
};

// Builds the master of a file and registers it. `exploded`: the tracks of the element are.
FileMaster BuildFileMaster(ImportState& state, const ClipItem& element, const FileUse& use,
                           bool exploded);

} // namespace XPJ
