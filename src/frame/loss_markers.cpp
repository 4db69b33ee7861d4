#include "frame/loss_markers.h"

#include "core/numbers.h"
#include "core/text.h"
#include "project/accessors.h"
#include "report/remark_groups.h"

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

using SequencesByName = std::unordered_map<std::string_view, std::vector<ObjectHandle>>;

// Those of the tree, each once.
SequencesByName FindSequences(const MarkerFormat& format, ObjectHandle tree)
{
    SequencesByName sequences;
    NodeSet visited;
    std::vector<ObjectHandle> open = {tree};
    while (!open.empty()) {
        const ObjectHandle node = open.back();
        open.pop_back();
        if (!node || !visited.Insert(node))
            continue;
        if (node.GetName() == format.sequence)
            sequences[node.GetProperty(format.name)].push_back(node);
        for (const ObjectHandle& child : node.GetChildren())
            open.push_back(child);
    }
    return sequences;
}

bool IsMarked(const Remark& remark)
{
    return remark.span.IsKnown() && RowOf(remark.kind).outcome != RemarkOutcome::Assumed;
}

} // namespace

void MarkLosses(const Account& account, TreeKind kind, Document& document, ObjectHandle tree)
{
    const MarkerFormat& format = MarkersOf(kind);
    const SequencesByName sequences = FindSequences(format, tree);
    for (const Remark& remark : account.remarks)
        if (const auto found = sequences.find(remark.sequence);
            IsMarked(remark) && found != sequences.end())
            for (const ObjectHandle& sequence : found->second)
                format.add(document, sequence, remark);
}

} // namespace XPJ
