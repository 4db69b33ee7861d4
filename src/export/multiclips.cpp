#include "export/multiclips.h"

#include "core/numbers.h"

#include <algorithm>
#include <iterator>

namespace XPJ::RVX {

const std::vector<AngleCatalog::Angle>& AngleCatalog::AnglesOf(ConstHandle group)
{
    const auto [found, isNew] = angles_.try_emplace(group.UniqueId());
    if (!isNew)
        return found->second;
    for (const ConstHandle track : TracksOf(group)) {
        Angle& angle = found->second.emplace_back();
        for (const ConstHandle node : TrackItemsOf(track)) {
            const TrackItem item(node);
            angle.push_back({Int64Property(item, "Start"), Int64Property(item, "End"), item});
        }
    }
    return found->second;
}

//   angle          |   item 1   |   item 2   |
//   clip                 |== shown ===|              item 1
ShownAngle AngleCatalog::Find(ConstHandle clip, ConstHandle sequence, MediaType type)
{
    if (!IsTrue(clip, "IsMulticam"))
        return {};
    const std::vector<Angle>& angles = AnglesOf(GroupOfKind(sequence, type));
    const std::int64_t number = Int64Property(clip, "SelectedTrackIndex");
    if (number < 0 || static_cast<std::uint64_t>(number) >= angles.size())
        return {};
    const Angle& angle = angles[static_cast<std::size_t>(number)];
    const Ticks in = Int64Property(clip, "InPoint");
    const auto next = std::ranges::upper_bound(angle, in, {}, &AngleItem::start);
    if (next == angle.begin() || std::prev(next)->end <= in)
        return {};
    const AngleItem& shown = *std::prev(next);
    const ConstHandle shownClip = ClipOfSubClip(SubClipOf(shown.item));
    return {shown.item, SubtractTicks(Int64Property(shownClip, "InPoint"), shown.start),
            shown.end < Int64Property(clip, "OutPoint")};
}

} // namespace XPJ::RVX
