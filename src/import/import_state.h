// What the passes of one import share. Made by the driver, passed by reference, gone at the end.
//
// Ids and other texts used as keys point into the two documents, which outlive the state.
#pragma once

#include "core/media_type.h"
#include "core/progress.h"
#include "core/translation_issue.h"
#include "effects/look_files.h"
#include "project/frame_format.h"
#include "import/master_catalog.h"
#include "platform/settings.h"
#include "tree/object.h"

#include <compare>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace XPJ {

// What tells a `clip` that asks for a master from other clips of the same media; the last five are
// the clip's own values.
struct ClipSignature {
    std::string_view fileId;
    std::string_view masterClipId;
    std::string_view name;
    std::string_view duration;
    std::string_view in;
    std::string_view out;

    friend auto operator<=>(const ClipSignature&, const ClipSignature&) = default;
};

// Place of a track item as `link` elements name it. Track and position count from 1.
struct LinkKey {
    int sequenceNumber = 0;
    MediaType type = MediaType::Video;
    int track = 0;
    int position = 0;

    friend auto operator<=>(const LinkKey&, const LinkKey&) = default;
};

// An angle of a multiclip: its number, from 1, and its `clip`.
struct AngleNote {
    int number = 1;
    ObjectHandle clip;
};

// A bin clip whose project item waits for the merge pass to say whether its master is merged.
struct HeldBackItem {
    ObjectHandle clip;
    ObjectHandle master;
    ObjectHandle parentItem;
    std::string_view fileId;
};

// What a `file` states of its formats. Looked up once a file: many items may show it, and its
// metadata may be long.
struct FileNote {
    ObjectHandle picture; // `samplecharacteristics`; null without
    ObjectHandle sound;
    // Size of the frame over that which a camera recorded.
    double decodedWidthRatio = 1.0;
    double decodedHeightRatio = 1.0;
};

// Ids in the order of first sight, each once.
class IdList {
public:
    void Add(std::string_view id);
    bool Contains(std::string_view id) const { return known_.contains(id); }
    const std::vector<std::string_view>& InOrder() const { return ids_; }

private:
    std::vector<std::string_view> ids_;
    std::unordered_set<std::string_view> known_;
};

struct ImportState {
    ImportState(Document& projectDocument, Progress& jobProgress, IssueSet& issueSet)
        : document(projectDocument), progress(jobProgress), issues(issueSet)
    {
    }

    Document& document; // owns the nodes that the import makes
    Progress& progress;
    IssueSet& issues;
    SkippedList skipped;

    bool sn2vlMode = false;  // audio hand-off
    bool aafSupport = false; // the host came in through the AAF-aware entry
    Settings settings;
    std::string documentDirectory;      // with its last separator; base of relative `pathurl`s
    std::optional<LookFiles> lookFiles; // of the look effects; none outside an import

    // By `id`. A `file` is here when it has an id and a content.
    using ById = std::unordered_map<std::string_view, ObjectHandle>;
    ObjectHandle project; // the `project` element
    ById files;
    ById sequences;  // id to the MasterClip that shows the sequence
    ById multiclips; // id to the MasterClip of an uncollapsed multiclip
    // MasterClip of multiclips that are equal, by what they have in common.
    std::unordered_map<std::string, ObjectHandle> equalMulticlips;

    // By `uniqueId` of a `multiclip`, which many items may show.
    std::unordered_map<std::uint64_t, AngleNote> activeAngles;

    std::unordered_map<std::uint64_t, FileNote> fileNotes; // by `uniqueId` of a `file`

    MasterRegistry masterClips;
    std::map<ClipSignature, ObjectHandle> clipSignatures; // to the MasterClip
    IdList mergedClipIds; // merge ids of clips with more than one file
    std::unordered_map<std::string_view, std::vector<HeldBackItem>> heldBackItems; // by merge id
    std::unordered_map<std::uint64_t, ObjectHandle> componentClips; // `uniqueId` of a part's master
                                                                    // to the `clip` it is from

    int nextSequenceId = 1;
    std::unordered_map<int, ObjectHandle> sequencesByNumber; // to the project's Sequence
    // The `sequence` or `multiclip` behind a Sequence, by the latter's `uniqueId`.
    std::unordered_map<std::uint64_t, ObjectHandle> sequenceElements;
    std::vector<ObjectHandle> shownSequences; // not filled yet when an item showed them
    // By `masterclipid` and file id: layered images that a track item was the first to use.
    std::set<std::pair<std::string_view, std::string_view>> layeredImages;
    NodeSet begunSequences; // `sequence` elements whose translation has begun or is over

    // A master's `ChildClipID`s are hung on it at the end, so that no search in it passes over
    // those of all its items.
    struct ClipId {
        ObjectHandle master;
        ObjectHandle id;
    };
    std::vector<ClipId> clipIds;

    std::map<LinkKey, ObjectHandle> linkItems; // to the track item of the project
    std::vector<std::vector<LinkKey>> linkGroups;
    std::set<LinkKey> linkKeysSeen;

    // What generators are drawn in, by `uniqueId` of the `sequence` or `clip` around them: finding
    // it passes over all items of a track.
    std::unordered_map<std::uint64_t, FrameFormat> generatorFrames;
    std::unordered_set<std::uint64_t> reportedGenerators; // `uniqueId` of `generatoritem`s
    std::unordered_map<std::uint64_t, ObjectHandle> translatedGenerators; // to the MasterClip
    ById titles; // first generator that states the words of a clip, by `masterclipid`, else `id`
    NodeSet titledMasters;   // MasterClips that have the effect of a title themselves
    ObjectHandle blackVideo; // MasterClip of the black clip behind slugs, once made
};

// Gives a project object the GUID by which others refer to it.
void AddUid(ObjectHandle node);

// The next `ID` of a `Sequence`.
int NewSequenceNumber(ImportState& state);

} // namespace XPJ
