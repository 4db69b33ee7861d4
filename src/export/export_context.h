// What every translator of one export is given: where it writes, what it reports, what it counts.
#pragma once

#include "core/account.h"
#include "core/guid.h"
#include "effects/effect_context.h"
#include "platform/settings.h"
#include "project/accessors.h"

#include <cstdint>
#include <string>
#include <string_view>

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

struct ExportOptions {
    std::string projectTitle;
    bool vl2snMode = false;        // the audio hand-off document
    Guid sequenceGuid = kZeroGuid; // zero: the whole project
    IdCounters* ids = nullptr;     // null: those of the process
    // Write Transform effects too, which only this system could read again.
    bool exportTransformEffect = false;
    Settings settings{};
};

// The unit in which the times of an element are written.
enum class TimeUnit { Frames, Ticks };

struct ExportContext {
    Document& document; // owns the nodes that the export makes
    Account& account;
    const ExportOptions& options;
    IdCounters& ids;

    // Items, transitions and masters whose remarks are entered: an item may be written on several
    // tracks, and a master reached through many items.
    NodeSet remarkedNodes = {};

    bool IsHandOff() const { return options.vl2snMode; }
    // The unit of the document: of clips, sequences and audio. Items of video tracks always count
    // in frames.
    TimeUnit DocumentUnit() const { return IsHandOff() ? TimeUnit::Ticks : TimeUnit::Frames; }
};

// "clipitem-7", stored in the document; takes the number.
//   NewId(context.document, "clipitem-", context.ids.clipItem)
std::string_view NewId(Document& document, std::string_view prefix, std::int64_t& counter);

void AddIssue(ExportContext& context, ExportIssue kind, const ItemLocation& location,
              std::string_view subject = {});

} // namespace XPJ::RVX
