#include "roundtrip/losses.h"

namespace XPJ {

namespace {

constexpr Loss kProjectLosses[] = {
    // clang-format off
    // ---- Synthetic pictures: a document knows a slug, which comes back within a sequence
    {"*", "*clip *: source generator Transparent Video -> sequence Black Video",
     "a generator that isn't translated leaves as a slug"},
    {"*", "*clip *: source generator Text -> sequence Black Video",
     "a title document leaves as a slug, with an issue that has its words"},
    {"titles", "*clip *: source generator * -> sequence Black Video", "the same"},
    {"*", "*lost * clip *: title *", "the words of that title"},
    {"cuts", "*clip \"nowhere\": source medium lost.mov -> sequence Black Video",
     "a medium without a path counts as made by its editor, and leaves as a slug"},
    {"*", "*\"Black Video\": added * sequence \"Black Video\"", "the sequence of such a slug"},
    {"pictures_without_files", "*clip \"Slug\": source sequence Black Video -> sequence Slug",
     "a slug's sequence takes the name of its clip"},
    {"angles_of_any_kind", "*clip \"black\": source sequence Black Video -> sequence black",
     "a slug's sequence takes the name of its clip"},
    {"pictures_without_files", "sequence \"Slug\": added * sequence \"Slug\"", "that sequence"},
    {"angles_of_any_kind", "sequence \"black\": added * sequence \"black\"", "that sequence"},
    {"generators_in_bins", "sequence \"Hole\": added * sequence \"Hole\"", "that sequence"},
    {"*", "*sequence \"Black Video\": frame length 10160640000 -> 8475667200",
     "black video has no rate of its own and leaves with the default"},
    {"*", "*sequence \"Black Video\": drop frame off -> on", "the same"},
    {"*", "*sequence \"Black Video\": frame size 1280x720 -> 720x480", "the same for its size"},

    // ---- Effects
    {"effects", "*lost * effect \"Flop\"", "not exported, with a finding"},
    {"effects", "*lost * effect \"Basic 3D\"", "not exported, with a finding"},
    {"effects", "*Luma Key: Threshold 40 -> 0.594674",
     "the two directions have curves of their own, which meet at 100"},
    {"effects", "*Luma Key: Threshold keyframes *", "the same"},
    {"*", "*Three-Way Color Corrector: * Balance Gain *",
     "approximate both ways, with curves that don't undo each other"},
    {"*", "*Three-Way Color Corrector: * Balance Angle *", "the same, a third of a turn each time"},
    {"effects", "*transition \"Exponential Fade\": name Exponential Fade -> Cross Fade (0dB)",
     "only the audio editor's form has exponential fades"},
    {"cuts", "*Scale Width keyframes *80 at * -> *79.9999 at *", "numbers have six digits"},
    {"angles_of_any_kind", "*: added * clip \"sequence\": effect \"Motion\"",
     "pixels of a form that isn't told count as the sequence's, but as square once exported"},
    {"nested_sequences", "*: added * clip \"deep\": effect \"Motion\"", "the same"},

    // ---- Times
    {"frame_rates", "*clip \"ok\": in *", "points are cut down to frames of the medium"},
    {"frame_rates", "*clip \"ok\": out *", "points are cut down to frames of the medium"},
    {"speed", "*clip \"ntsc\": in *", "points are cut down to frames of the medium"},
    {"speed", "*clip \"ntsc\": out *", "points are cut down to frames of the medium"},
    {"dissolves", "*clip \"point*", "a project takes a cut point in frames for ticks"},
    {"damaged_timeline", "*clip \"lost\": *", "lies in a transition that ends before it starts"},
    {"damaged_timeline", "*clip \"huge\": *", "lies at the end of time"},

    // ---- Structure
    {"multiclip", "*: lost * clip \"Multi*\"", "multiclips aren't exported, with a finding"},
    {"merged_clip", "sequence \"Synced\": added * sequence \"Synced\"",
     "a merged clip leaves as a sequence, with a finding"},
    {"handoff", "*marker \"Cue\": duration *",
     "the audio editor counts lengths in samples, but is sent ticks"},
    {"handoff", "*track: name nothing -> Audio 1", "the audio editor's tracks have names"},
    {"handoff", "*: added * effect \"Volume\"",
     "the audio editor gets each clip's volume as a gain filter"},
    // clang-format on
};

constexpr Loss kSecondPassLosses[] = {
    // clang-format off
    // ---- Synthetic pictures: each pass wraps a slug in one more sequence
    {"*", "*clip *: source medium Transparent Video -> sequence *", "a slug in its sequence"},
    {"*", "*clip *: source medium Black Video -> sequence *", "a slug in its sequence"},
    {"*", "*clip *: source medium Text -> sequence Text", "a title's slug in its sequence"},
    {"titles", "*clip *: source medium * -> sequence *", "the same"},
    {"titles", "sequence *: added * sequence *", "that sequence"},
    {"cuts", "*clip \"nowhere\": source medium lost.mov -> sequence nowhere",
     "a slug in its sequence"},
    {"*", "sequence \"Text\": added * sequence \"Text\"", "that sequence"},
    {"*", "sequence \"Slug\": added * sequence \"Slug\"", "that sequence"},
    {"*", "sequence \"Black Video\": added * sequence \"Black Video\"", "that sequence"},
    {"cuts", "sequence \"nowhere\": added * sequence \"nowhere\"", "that sequence"},
    {"generators_in_bins", "sequence \"Clouds\": added * sequence \"Clouds\"", "that sequence"},

    // ---- Effects
    {"effects", "*Luma Key: threshold *", "its two curves are applied on each pass"},
    {"*", "*Color Corrector 3-way: blacklevel *", "the same, up to the highest level"},
    {"*", "*Color Corrector 3-way: mids *", "the same"},
    {"*", "*Color Corrector 3-way: highlights *", "the same"},
    {"*", "*Color Corrector 3-way: *_hue *", "turned on each pass"},
    {"angles_of_any_kind", "*: added * clip \"sequence\": Motion: *",
     "written in full once the project has it"},
    {"nested_sequences", "*: added * clip \"deep\": Motion: *", "the same"},

    // ---- Structure
    {"damaged_timeline", "*clip \"itself\": *", "beside a transition that ends before it starts"},
    {"multiclip", "*: lost * clip \"Multi*\"", "an item without a source doesn't come back"},
    {"handoff", "*marker \"Cue\": duration *", "counted as samples on each pass"},
    {"handoff", "*: added * effect \"Volume\"", "one more gain filter on each pass"},
    // clang-format on
};

// "*" stands for any text, also none.
bool Matches(std::string_view text, std::string_view pattern)
{
    std::size_t star = pattern.npos; // the last one met
    std::size_t resume = 0;          // where the text behind it is tried next
    std::size_t at = 0;
    std::size_t i = 0;
    while (i < text.size()) {
        if (at < pattern.size() && pattern[at] == '*') {
            star = at++;
            resume = i;
        } else if (at < pattern.size() && pattern[at] == text[i]) {
            ++at;
            ++i;
        } else if (star != pattern.npos) {
            at = star + 1;
            i = ++resume;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', at) == pattern.npos;
}

} // namespace

std::span<const Loss> LossesOfProjects()
{
    return kProjectLosses;
}

std::span<const Loss> LossesOfSecondPass()
{
    return kSecondPassLosses;
}

const Loss* FindLoss(std::span<const Loss> losses, std::string_view document,
                     std::string_view difference)
{
    for (const Loss& loss : losses)
        if ((loss.document == "*" || loss.document == document) &&
            Matches(difference, loss.difference))
            return &loss;
    return nullptr;
}

} // namespace XPJ
