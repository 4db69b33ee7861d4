// What the passes of one export share. Made by the driver, passed by reference, gone at the end.
//
// Nodes of the project are known by their identity: the project tree itself is never changed.
#pragma once

#include "core/guid.h"
#include "core/progress.h"
#include "core/translation_issue.h"
#include "effects/effect_context.h"
#include "tree/object.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace XPJ::RVX {

// The next numbers of ids. The exports of a process go on counting, so that two documents made by
// one host never share an id.
struct IdCounters {
    std::int64_t sequence = 1;   // "sequence-1"
    std::int64_t masterClip = 1; // "masterclip-1"
    std::int64_t file = 1;       // "file-1"
    std::int64_t clipItem = 1;   // "clipitem-1", also of a `generatoritem`
};
IdCounters& ProcessIdCounters();

// Track items that the project links, in the order in which they were written, with the `link`
// element that names each.
struct LinkGroup {
    std::vector<ObjectHandle> items;
    std::vector<ObjectHandle> links;
};

// A sequence that an item refers to and that is still to be written.
struct PostponedSequence {
    ConstHandle sequence;
    ConstHandle masterClip;
};

// Ticks; -1 where the project states nothing.
struct ClipBoundaries {
    Ticks start = -1;
    Ticks end = -1;
    Ticks duration = -1; // of the whole medium
    Ticks ticksPerFrame = -1;
    bool hard = true;
};

// What the clips of a master show: of each the first that there is. `ticksPerFrame` is left to
// those whose frames they are.
struct MasterMedia {
    ConstHandle medium; // a Media
    ClipBoundaries boundaries;
    ConstHandle sequence;
};

// How items name the channels of a master.
struct MasterSound {
    int clips = 0;           // AudioClips
    bool hasStreams = false; // they show several media
    std::int64_t firstStream = 0;
};

struct ExportContext {
    ExportContext(Document& result, Progress& jobProgress, IssueSet& issueSet, IdCounters& counters)
        : document(result), progress(jobProgress), issues(issueSet), ids(counters)
    {
    }

    Document& document; // owns the nodes that the export makes
    Progress& progress;
    IssueSet& issues;
    SkippedList skipped;
    NodeSet skippedItems; // track items in it: one may be written on several tracks
    IdCounters& ids;

    bool vl2snMode = false; // audio hand-off: the form of the whole document
    bool inTicks = false;   // the form of the times at hand; see TimeFormScope
    bool exportTransformEffect = false;

    // By `uniqueId` of project nodes. What stands here has been written, or its writing has begun,
    // and is referred to from then on.
    template <class Value>
    using ByNode = std::unordered_map<std::uint64_t, Value>;
    ByNode<std::string_view> sequenceIds;   // Sequence: `id` of its `sequence`
    ByNode<ObjectHandle> files;             // Media: its `file`
    ByNode<std::string_view> masterClipIds; // MasterClip; by MasterClipId
    ByNode<ConstHandle> projectItems;       // MasterClip: the first item of the browser showing it
    ByNode<MasterMedia> masterMedia;        // MasterClip; by MediaOfMaster
    ByNode<MasterSound> masterSounds;       // MasterClip; read on first demand
    ByNode<FrameSize> sequenceFrames;       // Sequence; by FrameOfSequence
    int sequenceDepth = 0;                  // how many sequences are being translated, one in
                                            // another
    std::vector<PostponedSequence> postponedSequences; // see TranslatePostponedSequences

    std::vector<LinkGroup> linkGroups;
    ByNode<std::size_t> linkGroupOfItem; // ItemCore: index in `linkGroups`
};

// "clipitem-7", stored in the context's document; takes the number.
//   NewId(context, "clipitem-", context.ids.clipItem)
std::string_view NewId(ExportContext& context, std::string_view prefix, std::int64_t& counter);

// The value noted for a node; empty if there is none.
template <class Value>
Value FindNote(const std::unordered_map<std::uint64_t, Value>& notes, ConstHandle node)
{
    const auto found = notes.find(node.UniqueId());
    return found == notes.end() ? Value() : found->second;
}

// Enters a finding at a place.
void AddIssue(ExportContext& context, ExportIssue kind, const ItemPlace& place,
              std::string_view subject = {});

// Notes an item that shows nothing which the project still has.
void AddSkipped(ExportContext& context, const ItemPlace& place);

// Picture items count in frames even in the hand-off form; sequences and their sound in that of the
// document. Puts the old form back on every way out of its block.
class TimeFormScope {
public:
    TimeFormScope(ExportContext& context, bool inTicks) : context_(context), old_(context.inTicks)
    {
        context.inTicks = inTicks;
    }
    ~TimeFormScope() { context_.inTicks = old_; }
    TimeFormScope(const TimeFormScope&) = delete;
    TimeFormScope& operator=(const TimeFormScope&) = delete;

private:
    ExportContext& context_;
    bool old_;
};

} // namespace XPJ::RVX
