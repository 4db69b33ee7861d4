#include "frame/verification.h"

#include <algorithm>
#include <cstddef>
#include <string>

#include <gtest/gtest.h>

namespace XPJ {
namespace {

DocumentTimelines CutOf(const std::string& enabled, const std::string& mode)
{
    const std::string rate = "<rate><timebase>25</timebase></rate>";
    return ReadTimelines("<xmeml version=\"5\"><sequence><name>Cut</name>" + rate +
                         "<media><video><track><clipitem><name>A</name><enabled>" + enabled +
                         "</enabled><compositemode>" + mode +
                         "</compositemode><start>10</start><end>20</end><in>0</in><out>10</out>"
                         "</clipitem></track></video></media></sequence></xmeml>");
}

// A remark explains differences of its own kind, where it is.
TEST(Verification, EntersWhatNoRemarkExplains)
{
    const ItemLocation item{
        .sequence = "Cut", .clip = "A", .trackKind = 1, .span = {.start = 10, .end = 20}};
    const ItemLocation other{.sequence = "Cut", .trackKind = 2, .span = {.start = 10, .end = 20}};
    const struct {
        const char* name;
        DocumentTimelines output;
        RemarkKind kind;
        ItemLocation location;
        std::size_t unexplained;
    } cases[] = {
        {"the same", CutOf("TRUE", "add"), RemarkKind::ClipRenamed, other, 0},
        {"a mode with its remark", CutOf("TRUE", "normal"), RemarkKind::CompositeModeUnknown, item,
         0},
        {"a mode elsewhere", CutOf("TRUE", "normal"), RemarkKind::CompositeModeUnknown, other, 1},
        {"a switch with the remark of a mode", CutOf("FALSE", "add"),
         RemarkKind::CompositeModeUnknown, item, 1},
        {"both", CutOf("FALSE", "normal"), RemarkKind::CompositeModeUnknown, item, 1},
        {"nothing that can be read", ReadTimelines("<xmeml>< <"), RemarkKind::ClipRenamed, item, 1},
    };
    for (const auto& row : cases) {
        Account account;
        AddRemark(account, row.kind, row.location);
        AddUnexplained({CutOf("TRUE", "add"), row.output}, false, account);
        EXPECT_EQ(std::ranges::count(account.remarks, RemarkKind::Unexplained, &Remark::kind),
                  static_cast<std::ptrdiff_t>(row.unexplained))
            << row.name;
    }
}

// Bins with clips, and a cut of an item at frame 10; each may have a marker.
DocumentTimelines BinsOf(const std::string& first, const std::string& second,
                         const std::string& ofItem)
{
    const auto markerOf = [](const std::string& name) {
        return name.empty() ? "" : "<marker><name>" + name + "</name><in>3</in></marker>";
    };
    const auto clipOf = [&](const std::string& name, const std::string& marker) {
        return "<clip><name>" + name + "</name>" + markerOf(marker) + "</clip>";
    };
    return ReadTimelines("<xmeml version=\"5\"><project><children><bin><name>Day 1</name>"
                         "<children>" +
                         clipOf("A", first) + clipOf("B", second) +
                         "</children></bin><sequence><name>Cut</name><rate><timebase>25</timebase>"
                         "</rate><media><video><track><clipitem><name>A</name><start>10</start>"
                         "<end>20</end><in>0</in><out>10</out>" +
                         markerOf(ofItem) +
                         "</clipitem></track></video></media></sequence></children></project>"
                         "</xmeml>");
}

// A marker counts by what it is on: an item by its place, a clip of a bin by its name.
TEST(Verification, MarkersAreWhereTheirOwnersAre)
{
    const ItemLocation item{
        .sequence = "Cut", .clip = "A", .trackKind = 1, .span = {.start = 10, .end = 20}};
    const ItemLocation before{
        .sequence = "Cut", .clip = "A", .trackKind = 1, .span = {.start = 3, .end = 9}};
    const struct {
        const char* name;
        DocumentTimelines output;
        ItemLocation location;
        std::size_t unexplained;
    } cases[] = {
        {"of the item", BinsOf("M", "M", ""), item, 0},
        {"of the item, and a remark on another", BinsOf("M", "M", ""), before, 1},
        {"of the clip", BinsOf("", "M", "M"), {.clip = "A", .bin = "Day 1"}, 0},
        {"of a clip, and a remark on another", BinsOf("M", "", "M"), {.clip = "A"}, 1},
        {"of a clip, and a remark on nothing", BinsOf("M", "", "M"), {}, 1},
    };
    for (const auto& row : cases) {
        Account account;
        AddRemark(account, RemarkKind::ElementUnread, row.location, {.detail = "marker"});
        AddUnexplained({BinsOf("M", "M", "M"), row.output}, false, account);
        EXPECT_EQ(std::ranges::count(account.remarks, RemarkKind::Unexplained, &Remark::kind),
                  static_cast<std::ptrdiff_t>(row.unexplained))
            << row.name;
    }
}

} // namespace
} // namespace XPJ
