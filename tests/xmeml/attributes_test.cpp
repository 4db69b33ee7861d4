#include "xmeml/attributes.h"

#include <gtest/gtest.h>

namespace XPJ {
namespace {

TEST(UnknownAttributes, AreThoseThatNoRowHasAndThatStateSomething)
{
    const struct {
        const char* tag;
        const char* attributes;
        const char* unknown;
    } cases[] = {
        {"clipitem", "id=\"a\" rating=\"5\"", "p/clipitem@rating "},
        {"clipitem", "rating = '5' b='\"' c=\"'\"", "p/clipitem@b p/clipitem@c p/clipitem@rating "},
        {"clipitem", "scaleToFrameSize=\"TRUE\" velaGain=\"2\" PannerName=\"Pan\"", ""},
        {"track", "MZ.TrackTargeted=\"1\" totalExplodedTrackCount=\"2\"", ""},
        {"sequence", "frameBlend=\"FALSE\" empty=\"\" off='false' on=\"TRUE\"", "p/sequence@on "},
        {"name", "rating=\"5\"", "p/name@rating "}, // a leaf has no row
        {"clipitem", "rating=\"5", ""},
        {"clipitem", "rating", ""},
        {"clipitem", "=", ""},
    };
    for (const auto& row : cases) {
        UnknownAttributes attributes;
        attributes.Take({row.tag, row.attributes, FindXmemlElement(row.tag)},
                        [&row] { return std::string("p/") + row.tag; });
        std::string unknown;
        for (const IgnoredElements& entry : attributes.List())
            unknown.append(entry.path).append(" ");
        EXPECT_EQ(unknown, row.unknown) << row.tag << " " << row.attributes;
    }
}

} // namespace
} // namespace XPJ
