#include "xmeml/lost_additions.h"

#include "support/xmeml_fixture.h"

#include <gtest/gtest.h>

namespace XPJ {
namespace {

using LostAdditionsTest = XmemlTest;

TEST_F(LostAdditionsTest, FactsAndEffectsAreToldWhereTheyStand)
{
    const std::string rate = "<rate><timebase>25</timebase></rate>";
    const std::string filter = "<filter><effect><name>Glow</name></effect></filter>";
    const auto transition = [&](const std::string& times) {
        return "<transitionitem>" + rate + times + "</transitionitem>";
    };
    const ObjectHandle sequence = ParseSequence(
        "<name>Cut</name>" + rate + "<media><video><track></track><track><name>Titles</name>" +
        filter +
        "<clipitem><name>A</name><start>50</start><end>100</end>"
        "<velaSoftStartOffset>3</velaSoftStartOffset><file id=\"f\">" +
        filter +
        "</file><filter><effect><name>Text</name><parameter><Keyframes>0,1;</Keyframes>"
        "</parameter></effect></filter>" +
        filter + "<marker><name>m</name><velaColor>3</velaColor></marker></clipitem>" +
        // Cuts where the alignment has them, of even and odd length, and one beside it.
        transition("<start>100</start><end>120</end><alignment>center</alignment>"
                   "<cutPointTicks>101606400000</cutPointTicks>") +
        transition("<start>200</start><end>221</end><alignment>center</alignment>"
                   "<cutPointTicks>106686720000</cutPointTicks>") +
        transition("<start>300</start><end>320</end><alignment>end</alignment>"
                   "<cutPointTicks>203212800000</cutPointTicks>") +
        transition("<start>400</start><end>420</end><alignment>center</alignment>"
                   "<cutPointTicks>50803200000</cutPointTicks>") +
        "</track></video></media>");
    Account account;
    AddLostAdditions(sequence, account);
    std::string lines;
    for (const Remark& remark : account.remarks)
        lines.append(RowOf(remark.kind).id)
            .append(" ")
            .append(remark.subject.empty() ? remark.detail : remark.subject)
            .append(" [" + std::string(remark.clip) + " ")
            .append(std::to_string(remark.trackIndex) + " ")
            .append(std::to_string(remark.span.start) + "]\n");
    EXPECT_EQ(lines, "addition.lost name of the track [ 1 -1]\n"
                     "addition.effect Glow [ 1 -1]\n"
                     "addition.lost soft limits of the subclip [A 1 50]\n"
                     "addition.effect Glow [A 1 50]\n"
                     "addition.effect Text [A 1 50]\n"
                     "addition.lost color of the marker [A 1 50]\n"
                     "addition.lost cut in the transition [ 1 400]\n");
}

} // namespace
} // namespace XPJ
