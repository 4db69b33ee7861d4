#include "export/catalogs.h"

#include <algorithm>

namespace XPJ::RVX {

namespace {

MasterSource ReadSource(MasterClip masterClip)
{
    MasterSource result;
    for (const ConstHandle clip : masterClip.Clips()) {
        const ConstHandle source = SourceOfClip(clip);
        if (const Media media = MediaOfSource(source); media && !result.media) {
            result.media = media;
            result.boundaries = ReadBoundaries(source);
        }
        if (!result.sequence)
            result.sequence = SequenceOfSource(source);
    }
    return result;
}

MasterAudio ReadAudio(MasterClip masterClip)
{
    MasterAudio audio;
    Media first;
    for (const ConstHandle clip : masterClip.Clips()) {
        if (!IsAudioClip(clip))
            continue;
        ++audio.clips;
        const Media media = MediaOfSource(SourceOfClip(clip));
        if (!media)
            continue;
        const std::int64_t stream = Int64Property(media, "StreamNumber");
        audio.firstStream = first ? std::min(audio.firstStream, stream) : stream;
        audio.hasStreams = audio.hasStreams || (first && first != media);
        if (!first)
            first = media;
    }
    return audio;
}

} // namespace

void MasterCatalog::AddBrowserItem(MasterClip masterClip, const BrowserClip& clip)
{
    Record& record = records_[masterClip.UniqueId()];
    if (!record.browserClip.item)
        record.browserClip = clip;
}

ConstHandle MasterCatalog::BrowserItemOf(MasterClip masterClip) const
{
    const auto found = records_.find(masterClip.UniqueId());
    return found == records_.end() ? ConstHandle() : found->second.browserClip.item;
}

ItemLocation MasterCatalog::LocationOf(MasterClip masterClip) const
{
    const auto found = records_.find(masterClip.UniqueId());
    return {.clip = masterClip.GetProperty("Name"),
            .bin = found == records_.end() ? std::string_view() : found->second.browserClip.bin};
}

const MasterSource& MasterCatalog::SourceOf(MasterClip masterClip)
{
    Record& record = records_[masterClip.UniqueId()];
    if (!record.source)
        record.source = ReadSource(masterClip);
    return *record.source;
}

const MasterAudio& MasterCatalog::AudioOf(MasterClip masterClip)
{
    Record& record = records_[masterClip.UniqueId()];
    if (!record.audio)
        record.audio = ReadAudio(masterClip);
    return *record.audio;
}

std::string_view MasterCatalog::IdOf(ExportContext& context, MasterClip masterClip)
{
    Record& record = records_[masterClip.UniqueId()];
    const Media media = SourceOf(masterClip).media;
    if (record.id.empty() && (IsWrittenAsClip(media) || IsWrittenAsGenerator(context, media)))
        record.id = NewId(context.document, "masterclip-", context.ids.masterClip);
    return record.id;
}

FileRecord* FileCatalog::Find(Media media)
{
    const auto found = files_.find(media.UniqueId());
    return found == files_.end() ? nullptr : &found->second;
}

FileRecord& FileCatalog::Add(Media media, const FileRecord& file)
{
    return files_.emplace(media.UniqueId(), file).first->second;
}

std::string_view SequenceCatalog::FindId(ConstHandle sequence) const
{
    const auto found = ids_.find(sequence.UniqueId());
    return found == ids_.end() ? std::string_view() : found->second;
}

std::string_view SequenceCatalog::IdOf(ExportContext& context, ConstHandle sequence)
{
    std::string_view& id = ids_[sequence.UniqueId()];
    if (id.empty())
        id = NewId(context.document, "sequence-", context.ids.sequence);
    return id;
}

FrameSize SequenceCatalog::FrameOf(ConstHandle sequence)
{
    const auto [entry, isNew] = frames_.try_emplace(sequence.UniqueId());
    if (isNew) {
        const ConstHandle group = GroupOfKind(sequence, MediaType::Video);
        entry->second =
            ParseFrameSize(group.GetProperty("FrameRect"), group.GetProperty("PixelAspectRatio"));
    }
    return entry->second;
}

} // namespace XPJ::RVX
