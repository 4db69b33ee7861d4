// Issues: what a conversion could not carry over, with the location in the timeline.
#pragma once

#include "core/issue_kinds.h"

#include <set>
#include <string>

namespace XPJ {

// `trackKind` of what is on no track: within a sequence that is all of its audio, without one an
// effect of a media file, or what concerns the document.
constexpr int kNoTrack = 3;

// Names are as in the tree, with entities.
struct TranslationIssue {
    int kind = 0; // an `ImportIssue` or an `ExportIssue`
    std::string sequence;
    std::string clip;
    std::string subject; // effect, transition or generator
    int trackKind = 0;   // 1 video, anything else audio; 3 where there is no track
    int trackIndex = 0;
    // Timecode of the location; of issues about the document the version, or line and column.
    std::string time;
};

// The report's order. `kind` is no part of it: of two issues that differ in kind alone the first
// stays.
struct IssueOrder {
    bool operator()(const TranslationIssue& a, const TranslationIssue& b) const;
};

using IssueSet = std::set<TranslationIssue, IssueOrder>;

} // namespace XPJ
