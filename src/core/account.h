// The account of a conversion: everything that did not arrive as it was.
//
// What the host's report lists are issues; everything else that was lost, changed, assumed or
// skipped is a remark. Each issue is a remark as well, so that the remarks are the whole account.
#pragma once

#include "core/remark_kinds.h"
#include "core/text_hash.h"
#include "core/text_store.h"
#include "core/translation_issue.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace XPJ {

// Where an item is in its sequence, in frames; negative where that isn't known.
struct FrameSpan {
    std::int64_t start = -1;
    std::int64_t end = -1;
    // How the sequence numbers its frames.
    std::int64_t first = 0; // the number of frame 0
    std::int64_t base = 30; // numbers a second
    bool drop = false;
    std::uint64_t sequence = 0; // its node in the source document; 0: not known

    bool IsKnown() const { return start >= 0; }
    // "01:00:04:00"
    std::string Timecode(std::int64_t frame) const;
};

// The location of an item. The names live as long as the documents do.
struct ItemLocation {
    std::string_view sequence = {};
    std::string_view clip = {};
    int trackKind = kNoTrack; // 1 video, 2 audio
    int trackIndex = 0;
    std::string time = "00:00"; // timecode of the item's start; "00:00" for a master clip
    FrameSpan span = {};
    std::string_view bin = {}; // path of the bins around a clip: "Day 1/Sound"
};

// An issue at a location, of no kind yet.
TranslationIssue IssueAt(const ItemLocation& location);

// What a remark is about, beside its clip.
struct RemarkSubject {
    std::string_view name = {}; // of the effect, generator, label or media file, as users named it
    std::string_view id = {};   // how the document identifies that: an effect id, a match name
    std::string_view detail = {}; // the value or the property concerned; $2 of the kind's texts
    std::string_view path = {};   // of the element in the source document: "xmeml/sequence/media"
    std::size_t count = 1;        // the same thing that often, here and elsewhere
};

// Names are as in the tree, with entities. The texts live as long as the account.
struct Remark {
    RemarkKind kind{};
    std::string_view sequence = {};
    std::string_view clip = {};
    std::string_view bin = {};
    int trackKind = kNoTrack;
    int trackIndex = 0;
    FrameSpan span = {};
    std::string_view subject = {};
    std::string_view subjectId = {};
    std::string_view detail = {};
    std::string_view path = {};
    std::size_t count = 1;
    bool isIssue = false; // the host's report lists it
};

// A document of a feature film may have as many remarks as items, so none is moved for the next.
using RemarkList = std::deque<Remark>;

// The identities of the nodes of a sequence in both documents.
struct TranslatedSequence {
    std::uint64_t source = 0;
    std::uint64_t result = 0;
};

struct Account {
    IssueSet issues;
    RemarkList remarks;
    TextSet<std::string> issuePlaces = {}; // of the issues that have a remark
    std::vector<TranslatedSequence> sequences = {};
    TextStore texts = {}; // of the remarks
};

// Enters a copy, with copies of the texts, and returns it.
Remark& AddRemark(Account& account, const Remark& remark);

//   AddRemark(account, RemarkKind::FilterRange, location, {.name = "Blur"})
void AddRemark(Account& account, RemarkKind kind, const ItemLocation& location,
               const RemarkSubject& subject = {});

// Where an issue is, beyond the names that it states: the host's report lists issues of equal names
// once, the account each of them.
struct IssuePlace {
    FrameSpan span = {};
    std::string_view bin = {};
    std::uint64_t node = 0; // what it is about, in the source document; 0: not known
};

// Enters an issue and, unless there is one for the same thing, its remark.
void AddIssue(Account& account, Direction direction, const TranslationIssue& issue,
              const IssuePlace& place = {});

} // namespace XPJ
