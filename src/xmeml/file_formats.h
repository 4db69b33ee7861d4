// What `file`s state of their video and audio. Looked up once a file: many items may show it, and
// its metadata may be long.
#pragma once

#include "tree/object.h"
#include "xmeml/files.h"

#include <cstdint>
#include <unordered_map>

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
    const FileFormat& Of(FileElement file);

private:
    std::unordered_map<std::uint64_t, FileFormat> formats_; // by `uniqueId` of the `file`
};

} // namespace XPJ
