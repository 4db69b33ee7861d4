#include "xmeml/file_formats.h"

#include "core/numbers.h"

namespace XPJ {

namespace {

FileFormat ReadFormat(FileElement file)
{
    FileFormat format{.video = file.VideoCharacteristics(),
                      .audio = FindPath(file, {"media", "audio", "samplecharacteristics"})};
    const int width = IntProperty(format.video, "width");
    const int height = IntProperty(format.video, "height");
    const int recordedWidth = ParseInt(file.Metadata("com.red.clip.imageWidth").value_or(""));
    const int recordedHeight = ParseInt(file.Metadata("com.red.clip.imageHeight").value_or(""));
    if (width > 0 && height > 0 && recordedWidth > 0 && recordedHeight > 0) {
        format.decodedWidthRatio = static_cast<double>(width) / recordedWidth;
        format.decodedHeightRatio = static_cast<double>(height) / recordedHeight;
    }
    return format;
}

} // namespace

const FileFormat& FileFormats::Of(FileElement file)
{
    const auto [entry, isNew] = formats_.try_emplace(file.UniqueId());
    if (isNew)
        entry->second = ReadFormat(file);
    return entry->second;
}

} // namespace XPJ
