#include "frame/loss_markers.h"

#include "core/numbers.h"
#include "core/text.h"
#include "core/text_hash.h"
#include "project/accessors.h"
#include "report/remark_groups.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace XPJ {

namespace {

// How a document family states sequences and their markers.
struct MarkerFormat {
    Name sequence; // the node
    Name name;     // its name
    void (*add)(Document& document, ObjectHandle sequence, const Remark& remark);
};

std::string NameOf(const Remark& remark)
{
    std::string name(OutcomeText(RowOf(remark.kind).outcome));
    if (!remark.clip.empty())
        name.append(": ").append(UnescapeXML(remark.clip));
    return EscapeXML(name);
}

void AddXmemlMarker(Document& document, ObjectHandle sequence, const Remark& remark)
{
    const ObjectHandle marker = document.NewObject("marker");
    marker.SetProperty("in", IntToString(remark.span.start));
    marker.SetProperty("name", NameOf(remark));
    marker.SetPropertyShared("out", "-1");
    marker.SetProperty("comment", EscapeXML(ReasonText(remark)));
    sequence.AddChild(marker);
}

void AddProjectMarker(Document& document, ObjectHandle sequence, const Remark& remark)
{
    const Ticks frameTicks = Int64Property(GroupOfKind(sequence, MediaType::Video), "FrameRate");
    const ObjectHandle marker = document.NewObject("Marker");
    marker.SetProperty("Name", NameOf(remark));
    marker.SetPropertyShared("Type", "Comment");
    marker.SetProperty("Comment", EscapeXML(ReasonText(remark)));
    marker.SetProperty("StartTime", TickText(MultiplyTicks(remark.span.start, frameTicks)));
    marker.SetPropertyShared("Duration", "0");
    sequence.GetChild("Markers").AddChild("Marker", marker);
}

const MarkerFormat& MarkersOf(TreeKind kind)
{
    static constexpr MarkerFormat kXmeml{"sequence", "name", AddXmemlMarker};
    static constexpr MarkerFormat kProject{"Sequence", "Name", AddProjectMarker};
    return kind == TreeKind::Xmeml ? kXmeml : kProject;
}

// The sequences of a translated tree, each once.
class SequenceIndex {
public:
    SequenceIndex(const MarkerFormat& format, const Account& account, ObjectHandle tree)
    {
        for (const TranslatedSequence& sequence : account.sequences)
            results_[sequence.source].push_back(sequence.result);
        NodeSet visited;
        std::vector<ObjectHandle> open = {tree};
        while (!open.empty()) {
            const ObjectHandle node = open.back();
            open.pop_back();
            if (!node || !visited.Insert(node))
                continue;
            if (node.GetName() == format.sequence) {
                byNode_[node.UniqueId()] = node;
                byName_[node.GetProperty(format.name)].push_back(node);
            }
            for (const ObjectHandle& child : node.GetChildren())
                open.push_back(child);
        }
    }

    // Those that the remark's sequence became; where that isn't known, those of its name.
    std::vector<ObjectHandle> Of(const Remark& remark) const
    {
        std::vector<ObjectHandle> sequences;
        if (const auto known = results_.find(remark.span.sequence); known != results_.end())
            for (const std::uint64_t result : known->second)
                if (const auto found = byNode_.find(result); found != byNode_.end())
                    sequences.push_back(found->second);
        if (const auto named = byName_.find(remark.sequence);
            sequences.empty() && named != byName_.end())
            sequences = named->second;
        return sequences;
    }

private:
    std::unordered_map<std::uint64_t, std::vector<std::uint64_t>> results_; // by source
    std::unordered_map<std::uint64_t, ObjectHandle> byNode_;
    TextMap<std::vector<ObjectHandle>> byName_;
};

bool IsMarked(const Remark& remark)
{
    return remark.span.IsKnown() && RowOf(remark.kind).outcome != RemarkOutcome::Assumed;
}

} // namespace

void MarkLosses(const Account& account, TreeKind kind, Document& document, ObjectHandle tree)
{
    const MarkerFormat& format = MarkersOf(kind);
    const SequenceIndex sequences(format, account, tree);
    for (const Remark& remark : account.remarks)
        if (IsMarked(remark))
            for (const ObjectHandle& sequence : sequences.Of(remark))
                format.add(document, sequence, remark);
}

} // namespace XPJ
