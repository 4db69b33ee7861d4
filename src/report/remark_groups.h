// Remarks in words, and grouped by what happened, so that a thousand of them fit on a screen.
#pragma once

#include "core/account.h"

#include <cstddef>
#include <string>
#include <vector>

namespace XPJ {

// The texts of the kinds in the running locale, each looked up once.
class RemarkTexts {
public:
    // What happened, with its names filled in and without entities.
    //   "The effect <Sepia> has no counterpart."
    std::string Reason(const Remark& remark);
    // What the user can do about it; empty where there is nothing.
    const std::string& Remedy(const Remark& remark) { return Of(remark.kind).remedy; }

private:
    struct KindTexts {
        std::string reason;
        std::string remedy;
        bool isKnown = false;
    };
    const KindTexts& Of(RemarkKind kind);

    std::vector<KindTexts> kinds_;
};
std::string ReasonText(const Remark& remark);

// "V1", "A2"; empty for what is on no track.
std::string TrackText(const Remark& remark);
// "Cut 1, V1, 01:00:00:00, A001", or "Day 1/Sound/A001" for a clip of a bin, or a path of elements.
std::string PlaceText(const Remark& remark);
void AppendPlaceText(const Remark& remark, std::string& text);

// Remarks of one kind with the same reason.
struct RemarkGroup {
    const RemarkRow* row = nullptr;
    std::string reason;
    std::string remedy;
    std::vector<const Remark*> remarks; // in their order; never empty
    std::size_t count = 0;              // of the remarks, each as often as it counts
};

// Worst first: by severity, by outcome, then the largest.
std::vector<RemarkGroup> GroupRemarks(const RemarkList& remarks);

// Three lines a group: outcome, count and reason; the first places; the remedy. What exceeds
// `groups` is summed up in a last line.
//   Lost, 12 times: The effect <Sepia> has no counterpart.
//       Cut 1, V1, 01:00:00:00, A001; Cut 1, V1, 01:00:10:00, A002; and 10 more
//       Render the clip with its effect, or find a similar effect and set it anew.
std::string GroupText(const std::vector<RemarkGroup>& all, std::size_t groups);

} // namespace XPJ
