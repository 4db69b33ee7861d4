#include "inspect/compare_browser.h"

#include "core/text_hash.h"
#include "inspect/compare_parts.h"

#include <map>
#include <string_view>
#include <tuple>
#include <utility>

namespace XPJ::Inspection {

namespace {

// A slug of a bin is a clip in a document and a sequence in a project.
bool IsSequence(const Project& project, const Entry& entry)
{
    return entry.kind == EntryKind::Sequence &&
           !(entry.sequence != kNothing && project.sequences[entry.sequence].isSlug);
}

bool IsClip(const Project& project, const Entry& entry)
{
    return entry.kind != EntryKind::Bin && !IsSequence(project, entry);
}

std::string_view NameOf(const Entry& entry)
{
    return entry.name;
}

std::string_view PathOfMedia(const Project& project, const Entry& entry)
{
    return entry.mediaFile == kNothing ? std::string_view()
                                       : std::string_view(project.mediaFiles[entry.mediaFile].path);
}

// What the items of a document show.
class ShownByItems {
public:
    explicit ShownByItems(const Project& project) : media_(project.mediaFiles.size())
    {
        for (const Sequence& sequence : project.sequences)
            for (const Track& track : sequence.tracks)
                for (const Item& item : track.items) {
                    if (item.mediaFile != kNothing)
                        media_[item.mediaFile] = true;
                    names_.insert(item.name);
                }
    }

    // Generated clips have the names of their items.
    bool Has(const Entry& clip) const
    {
        return (clip.mediaFile != kNothing && media_[clip.mediaFile]) || names_.contains(clip.name);
    }

private:
    std::vector<bool> media_;
    TextSet<> names_;
};

ComparedSubject SubjectOf(const Entry& entry, std::string path)
{
    return {.subject = entry.kind == EntryKind::Bin ? Subject::Bin : Subject::BinClip,
            .name = entry.name,
            .bin = std::move(path)};
}

} // namespace

BrowserComparison::Side::Side(const Project& read)
    : project(&read), parents(read.entries.size(), kNothing), counts(read.entries.size()),
      ofSequence(read.sequences.size(), kNothing), partners(read.entries.size(), kNothing)
{
    std::vector<std::size_t> open; // the bins around the entry at hand
    for (std::size_t i = 0; i < read.entries.size(); ++i) {
        const Entry& entry = read.entries[i];
        open.resize(static_cast<std::size_t>(entry.depth));
        if (!open.empty()) {
            parents[i] = open.back();
            ++counts[open.back()];
        }
        if (entry.kind == EntryKind::Bin)
            bins.push_back(i);
        if (IsClip(read, entry))
            clips.push_back(i);
        if (entry.sequence != kNothing)
            ofSequence[entry.sequence] = i;
        open.push_back(i);
    }
}

std::string BrowserComparison::Side::PathOf(std::size_t entry) const
{
    std::vector<std::string_view> names;
    for (std::size_t bin = parents[entry]; bin != kNothing; bin = parents[bin])
        names.push_back(At(bin).name);
    std::string path;
    for (auto name = names.rbegin(); name != names.rend(); ++name)
        path.append(path.empty() ? "" : kStep).append(*name);
    return path;
}

BrowserComparison::BrowserComparison(const Project& left, const Project& right)
    : left_(left), right_(right)
{
    MatchBins();
    MatchClips();
}

void BrowserComparison::KeepPairs(const Matching& matching, const std::vector<std::size_t>& left,
                                  const std::vector<std::size_t>& right)
{
    for (std::size_t i = 0; i < left.size(); ++i)
        if (const std::size_t partner = matching.PartnerInB(i); partner != kNothing) {
            left_.partners[left[i]] = right[partner];
            right_.partners[right[partner]] = left[i];
        }
}

void BrowserComparison::MatchBins()
{
    // Bins of one path have one number on both sides.
    std::map<std::pair<std::size_t, std::string_view>, std::size_t> paths;
    const auto numbersOf = [&paths](const Side& side) {
        std::vector<std::size_t> numbers(side.parents.size(), kNothing);
        for (const std::size_t bin : side.bins) {
            const std::size_t parent = side.parents[bin];
            const std::pair key(parent == kNothing ? kNothing : numbers[parent],
                                NameOf(side.At(bin)));
            numbers[bin] = paths.try_emplace(key, paths.size()).first->second;
        }
        return numbers;
    };
    const std::vector<std::size_t> leftPaths = numbersOf(left_);
    const std::vector<std::size_t> rightPaths = numbersOf(right_);
    Matching matching(left_.bins.size(), right_.bins.size());
    matching.By([&](std::size_t i) { return leftPaths[left_.bins[i]]; },
                [&](std::size_t i) { return rightPaths[right_.bins[i]]; });
    // Moved
    matching.By([&](std::size_t i) { return NameOf(left_.At(left_.bins[i])); },
                [&](std::size_t i) { return NameOf(right_.At(right_.bins[i])); });
    KeepPairs(matching, left_.bins, right_.bins);
    // Renamed
    matching.By(
        [&](std::size_t i) {
            return std::pair(left_.parents[left_.bins[i]], left_.counts[left_.bins[i]]);
        },
        [&](std::size_t i) {
            return std::pair(BinOfRight(right_.bins[i]), right_.counts[right_.bins[i]]);
        });
    KeepPairs(matching, left_.bins, right_.bins);
}

void BrowserComparison::MatchClips()
{
    const auto leftAt = [this](std::size_t i) -> const Entry& { return left_.At(left_.clips[i]); };
    const auto rightAt = [this](std::size_t i) -> const Entry& {
        return right_.At(right_.clips[i]);
    };
    Matching matching(left_.clips.size(), right_.clips.size());
    matching.By(
        [&](std::size_t i) { return std::pair(left_.parents[left_.clips[i]], NameOf(leftAt(i))); },
        [&](std::size_t i) { return std::pair(BinOfRight(right_.clips[i]), NameOf(rightAt(i))); });
    // Moved
    matching.By([&](std::size_t i) { return NameOf(leftAt(i)); },
                [&](std::size_t i) { return NameOf(rightAt(i)); });
    // Renamed
    matching.By(
        [&](std::size_t i) {
            return std::pair(left_.parents[left_.clips[i]], PathOfMedia(*left_.project, leftAt(i)));
        },
        [&](std::size_t i) {
            return std::pair(BinOfRight(right_.clips[i]), PathOfMedia(*right_.project, rightAt(i)));
        });
    KeepPairs(matching, left_.clips, right_.clips);
}

// The bin that an entry on the right is in, as the left side has it. A bin that the left doesn't
// have has a number beyond those of the left.
std::size_t BrowserComparison::BinOfRight(std::size_t entry) const
{
    const std::size_t bin = right_.parents[entry];
    if (bin == kNothing)
        return kNothing;
    const std::size_t partner = right_.partners[bin];
    return partner == kNothing ? left_.parents.size() + bin : partner;
}

void BrowserComparison::CompareEntries(DifferenceList& differences) const
{
    const bool isFromProject =
        left_.project->family == Family::Project && right_.project->family == Family::Xmeml;
    const ShownByItems shownLeft(*left_.project);
    const ShownByItems shownRight(*right_.project);
    for (std::size_t i = 0; i < left_.parents.size(); ++i) {
        const Entry& entry = left_.At(i);
        if (IsSequence(*left_.project, entry))
            continue;
        const std::size_t partner = left_.partners[i];
        if (partner != kNothing && AreSame(i, partner))
            continue;
        const ComparedSubject subject = SubjectOf(entry, left_.PathOf(i));
        if (partner != kNothing) {
            CompareEntry(i, partner, subject, differences);
            if (IsClip(*left_.project, entry))
                CompareClips(i, partner, subject, differences);
        } else if (entry.kind == EntryKind::Bin || !isFromProject || !shownLeft.Has(entry)) {
            differences.Add(subject, Change::Lost);
        }
    }
    for (std::size_t i = 0; i < right_.parents.size(); ++i) {
        const Entry& entry = right_.At(i);
        if (IsSequence(*right_.project, entry) || right_.partners[i] != kNothing)
            continue;
        if (entry.kind == EntryKind::Bin || !shownRight.Has(entry))
            differences.Add(SubjectOf(entry, right_.PathOf(i)), Change::Added);
    }
}

// Most are: of these nothing is put into words.
bool BrowserComparison::AreSame(std::size_t left, std::size_t right) const
{
    const Entry& a = left_.At(left);
    const Entry& b = right_.At(right);
    return left_.parents[left] == BinOfRight(right) && a.name == b.name && a.label == b.label &&
           a.markers == b.markers &&
           PathOfMedia(*left_.project, a) == PathOfMedia(*right_.project, b);
}

void BrowserComparison::CompareSequenceEntries(std::size_t left, std::size_t right,
                                               const ComparedSubject& subject,
                                               DifferenceList& differences) const
{
    const std::size_t a = left_.ofSequence[left];
    const std::size_t b = right_.ofSequence[right];
    if (a != kNothing && b != kNothing)
        CompareEntry(a, b, subject, differences);
}

// The name of a sequence is compared with its other settings.
void BrowserComparison::CompareEntry(std::size_t left, std::size_t right,
                                     const ComparedSubject& subject,
                                     DifferenceList& differences) const
{
    const Entry& a = left_.At(left);
    const Entry& b = right_.At(right);
    if (left_.parents[left] != BinOfRight(right))
        differences.Add(subject, Change::Moved, Property::Bin, left_.PathOf(left),
                        right_.PathOf(right));
    if (subject.subject != Subject::Sequence)
        differences.CompareTexts(subject, Property::Name, a.name, b.name);
    differences.CompareTexts(subject, Property::Label, a.label, b.label);
}

void BrowserComparison::CompareClips(std::size_t left, std::size_t right,
                                     const ComparedSubject& subject,
                                     DifferenceList& differences) const
{
    const Entry& a = left_.At(left);
    const Entry& b = right_.At(right);
    differences.CompareTexts(subject, Property::Path, std::string(PathOfMedia(*left_.project, a)),
                             std::string(PathOfMedia(*right_.project, b)));
    if (a.markers.empty() && b.markers.empty())
        return;
    const TimecodeFormat format =
        a.mediaFile == kNothing ? TimecodeFormat() : left_.project->mediaFiles[a.mediaFile].format;
    ComparedSubject owner = subject;
    owner.source = &format;
    owner.bin.append(owner.bin.empty() ? "" : kStep).append(a.name);
    const bool areOfOneFamily = left_.project->family == right_.project->family;
    CompareMarkers(owner, {a.markers, b.markers, format, areOfOneFamily}, differences);
}

} // namespace XPJ::Inspection
