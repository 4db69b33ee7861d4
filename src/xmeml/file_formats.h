// What `file`s state of their video and audio. Looked up once a file: many items may show it, and
// its metadata may be long.
#pragma once

#include "core/channel_types.h"
#include "tree/object.h"
#include "xmeml/files.h"

#include <cstdint>
#include <optional>

#include <tsl/robin_map.h>

namespace XPJ {

struct FileFormat {
    ConstHandle video; // `samplecharacteristics`; null without
    ConstHandle audio;
    // Size of the frame over that which a camera recorded.
    double decodedWidthRatio = 1.0;
    double decodedHeightRatio = 1.0;
};

class FileFormats {
public:
    FileFormat Of(FileElement file);
    // What AudioKindOfFile gives.
    AudioKind AudioOf(FileElement file);

private:
    struct Entry {
        std::optional<FileFormat> format;
        std::optional<AudioKind> audio;
    };
    Entry& EntryOf(FileElement file) { return entries_[file.UniqueId()]; }

    tsl::robin_pg_map<std::uint64_t, Entry> entries_; // by `uniqueId` of the `file`
};

} // namespace XPJ
