// What one export has read of masters and written of files and sequences, by the identity of the
// project's nodes. What is in a catalog has been written, or its writing has begun, and is referred
// to from then on.
#pragma once

#include "export/export_context.h"
#include "export/generators.h"
#include "export/links.h"
#include "export/media.h"
#include "export/multiclips.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace XPJ::RVX {

// What the clips of a master show: of each the first that there is.
struct MasterSource {
    Media media;
    ClipBoundaries boundaries; // of `media`
    ConstHandle sequence;
};

// How items name the channels of a master.
struct MasterAudio {
    int clips = 0;           // AudioClips
    bool hasStreams = false; // they show several media
    std::int64_t firstStream = 0;
};

// A ClipProjectItem, and the path of the bins around it.
struct BrowserClip {
    ConstHandle item;
    std::string_view bin = {};
};

// A master may have many clips, and many items show it: everything is read once.
class MasterCatalog {
public:
    // Only the first item of the browser that shows a master counts.
    void AddBrowserItem(MasterClip masterClip, const BrowserClip& clip);
    // Null for a master that the browser doesn't show.
    ConstHandle BrowserItemOf(MasterClip masterClip) const;
    // For remarks about what belongs to the master, wherever it is met.
    ItemLocation LocationOf(MasterClip masterClip) const;

    const MasterSource& SourceOf(MasterClip masterClip);
    const MasterAudio& AudioOf(MasterClip masterClip);

    // The id under which `clip` and track items name the master, made on first demand. Empty for a
    // master that no `clip` is written for: one of a sequence, and to the letter of a color matte
    // or a graphic.
    std::string_view IdOf(ExportContext& context, MasterClip masterClip);

private:
    struct Record {
        BrowserClip browserClip;
        std::optional<MasterSource> source;
        std::optional<MasterAudio> audio;
        std::string_view id;
    };
    std::unordered_map<std::uint64_t, Record> records_;
};

// The `timecode` of a `file`, which the logging of each master that shows it may complete.
struct FileTimecode {
    ObjectHandle element;
    Ticks frameTicks = 0;
    bool hasReel = false;
};

// A `file` that is written in full.
struct FileRecord {
    std::string_view id;
    ObjectHandle element;
    ObjectHandle rate = {};    // elements that show the file share it
    std::int64_t duration = 0; // as it is written; 0: it is not
    FileTimecode timecode = {};
    MasterClip masterClip = {}; // whose effects it has
};

class FileCatalog {
public:
    // Null for a Media without a `file`.
    FileRecord* Find(Media media);
    FileRecord& Add(Media media, const FileRecord& file);

private:
    std::unordered_map<std::uint64_t, FileRecord> files_;
};

class SequenceCatalog {
public:
    // Empty for a sequence that nothing has referred to.
    std::string_view FindId(ConstHandle sequence) const;
    // Made on first demand.
    std::string_view IdOf(ExportContext& context, ConstHandle sequence);
    // While a sequence is being written, what shows it is in it.
    void Open(ConstHandle sequence) { open_.insert(sequence.UniqueId()); }
    void Close(ConstHandle sequence) { open_.erase(sequence.UniqueId()); }
    bool IsOpen(ConstHandle sequence) const { return open_.contains(sequence.UniqueId()); }
    // The frame of the sequence's video, read once.
    FrameSize FrameOf(ConstHandle sequence);

private:
    std::unordered_map<std::uint64_t, std::string_view> ids_;
    std::unordered_map<std::uint64_t, FrameSize> frames_;
    std::unordered_set<std::uint64_t> open_;
};

struct Catalogs {
    MasterCatalog masters;
    FileCatalog files;
    SequenceCatalog sequences;
    AngleCatalog angles;
    GeneratorCatalog generators;
    LinkGroups links;
};

} // namespace XPJ::RVX
