#include "export/item_source.h"

#include "export/files.h"
#include "export/logging.h"

namespace XPJ::RVX {

namespace {

// The result is the id of the file.
std::string_view WriteMediaFile(ExportContext& context, Catalogs& catalogs,
                                const ItemRecord& record, ObjectHandle element)
{
    FileRecord& file =
        WriteFile(context, catalogs.files, {record.media, record.masterClip}, element);
    TranslateLoggingInfo(context.document, record.masterClip, &file, element);
    if (const ConstHandle browserItem = catalogs.masters.BrowserItemOf(record.masterClip)) {
        if (MediaKindOf(record.media) == MediaKind::Graphic)
            file.element.SetPropertyShared("mediaSource", "GraphicAndTypeMaster");
        WriteComments(context.document, browserItem, element);
    }
    return file.id;
}

ItemSource WriteSequence(ExportContext& context, SequenceCatalog& sequences,
                         const ItemRecord& record, ObjectHandle element)
{
    const bool isWritten = !sequences.FindId(record.sequence).empty();
    const std::string_view id = sequences.IdOf(context, record.sequence);
    if (isWritten) {
        element.SetPropertyShared("sequenceid", id);
        return {.linkKey = id};
    }
    return {.linkKey = id,
            .nested = {.shown = {record.sequence, record.masterClip}, .clipItem = element}};
}

} // namespace

ItemSource WriteItemSource(ExportContext& context, Catalogs& catalogs, const TrackContext& track,
                           const ItemRecord& record, ObjectHandle element)
{
    ItemSource source;
    if (record.media)
        source.linkKey = WriteMediaFile(context, catalogs, record, element);
    else if (IsTrue(record.clip, "IsMulticam"))
        AddIssue(context, ExportIssue::MulticamExportNotSupported,
                 LocationOfItem(track, record.Start(), record.name));
    else if (record.sequence)
        source = WriteSequence(context, catalogs.sequences, record, element);
    else
        AddSkipped(context, record.item, LocationOfItem(track, record.Start(), record.name));
    if (!record.masterClipId.empty())
        source.linkKey = record.masterClipId;
    return source;
}

} // namespace XPJ::RVX
