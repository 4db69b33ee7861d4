#include "xmeml/file_formats.h"

#include "core/numbers.h"
#include "xmeml/file_audio.h"

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

FileFormat FileFormats::Of(FileElement file)
{
    Entry& entry = EntryOf(file);
    if (!entry.format)
        entry.format = ReadFormat(file);
    return *entry.format;
}

AudioKind FileFormats::AudioOf(FileElement file)
{
    Entry& entry = EntryOf(file);
    if (!entry.audio)
        entry.audio = AudioKindOfFile(file);
    return *entry.audio;
}

} // namespace XPJ
