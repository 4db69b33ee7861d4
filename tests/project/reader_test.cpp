#include "support/reader_test_support.h"

namespace XPJ {
namespace {

TEST(ProjectReader, ReferencesAreEnteredUnderTheirTag)
{
    // Forward, in lists, by number and by GUID; a missing target leaves nothing.
    EXPECT_EQ(ProjectOutline("<Project ObjectRef=\"1\"/>"
                             "<Project ObjectID=\"1\" ClassID=\"c\" Version=\"26\">"
                             "<Node Version=\"1\"><Properties/></Node>"
                             "<RootProjectItem ObjectURef=\"g-root\"/></Project>"
                             "<RootProjectItem ObjectUID=\"g-root\"><ProjectItemContainer><Items>"
                             "<Item Index=\"0\" ObjectURef=\"g-clip\" />"
                             "<Item Index=\"1\" ObjectURef=\"g-none\" /></Items>"
                             "</ProjectItemContainer></RootProjectItem>"
                             "<ClipProjectItem ObjectUID=\"g-clip\"><MasterClip ObjectURef=\"m\"/>"
                             "<ProjectItem><Name>A</Name></ProjectItem></ClipProjectItem>"),
              "VelaData Version=\"3\" ProjectRef=\"1\"\n"
              "    Project\n"
              "        RootProjectItem uid=\"g-root\"\n"
              "            Item ->\n"
              "            ClipProjectItem Name=\"A\" uid=\"g-clip\"\n"
              "    RootProjectItem uid=\"g-root\"\n"
              "        Item ->\n"
              "        ClipProjectItem Name=\"A\" uid=\"g-clip\"\n"
              "    ClipProjectItem Name=\"A\" uid=\"g-clip\"\n");
}

TEST(ProjectReader, PartsOfBasesAreOneNode)
{
    EXPECT_EQ(ProjectOutline(
                  "<VideoClip ObjectID=\"2\"><Clip Version=\"18\"><Node><Properties>"
                  "<hfl.clip.label.name>L</hfl.clip.label.name></Properties></Node>"
                  "<MarkerOwner><Markers ObjectRef=\"3\"/></MarkerOwner><Source ObjectRef=\"4\"/>"
                  "<InPoint>0</InPoint><ClipID>g</ClipID></Clip>"
                  "<ScaleToFrameSize>false</ScaleToFrameSize></VideoClip>"
                  "<Markers ObjectID=\"3\"><Markers><Marker Index=\"0\"><First>5</First>"
                  "<Second ObjectRef=\"5\"/></Marker><ByGUID>byGUID</ByGUID></Markers></Markers>"
                  "<Marker ObjectID=\"5\"><HULMarker>{}</HULMarker></Marker>"),
              "VelaData Version=\"3\"\n"
              "    VideoClip hfl.clip.label.name=\"L\" InPoint=\"0\" ScaleToFrameSize=\"false\"\n"
              "        Markers\n"
              "            Marker HULMarker=\"{}\" StartTime=\"5\"\n"
              "    Markers\n"
              "        Marker HULMarker=\"{}\" StartTime=\"5\"\n"
              "    Marker HULMarker=\"{}\" StartTime=\"5\"\n");
}

TEST(ProjectReader, PartsOfDamagedDocuments)
{
    const struct {
        const char *text, *node;
    } kCases[] = {
        // The first part of a name counts; a second one adds nothing.
        {"<Clip><InPoint>1</InPoint></Clip><Clip><InPoint>2</InPoint><OutPoint>3</OutPoint></Clip>",
         "VideoClip InPoint=\"1\""},
        {"<Clip/><Clip><InPoint>2</InPoint></Clip>", "VideoClip"},
        // Fields count in their part only.
        {"<InPoint>1</InPoint><Clip><ScaleToFrameSize>true</ScaleToFrameSize></Clip>", "VideoClip"},
        // Ids belong to objects.
        {"<Clip ObjectID=\"8\" ObjectUID=\"g\"><InPoint>1</InPoint></Clip>",
         "VideoClip InPoint=\"1\""},
        // An entry of a list of pairs without an object is none.
        {"<Clip><MarkerOwner><Markers ObjectRef=\"3\"/></MarkerOwner></Clip></VideoClip>"
         "<Markers ObjectID=\"3\"><Markers><Marker><First>1</First><Second ObjectRef=\"8\"/>"
         "</Marker><Marker><First>2</First></Marker></Markers></Markers>",
         "VideoClip\n        Markers\n    Markers"},
    };
    for (const auto& row : kCases)
        EXPECT_EQ(
            ProjectOutline(std::string("<VideoClip ObjectID=\"2\">") + row.text + "</VideoClip>"),
            std::string("VelaData Version=\"3\"\n    ") + row.node + "\n")
            << row.text;
}

TEST(ProjectReader, AttributesOfObjects)
{
    // A number goes before a GUID; a block tag at the top is no object.
    EXPECT_EQ(ProjectOutline("<Media ObjectID=\"1\" ObjectUID=\"g\"/>"
                             "<Clip><MasterClip ObjectUID=\"m\"><Clips><Clip ObjectURef=\"g\"/>"
                             "<Clip ObjectRef=\"1\"/></Clips></MasterClip></Clip>"),
              "VelaData Version=\"3\"\n"
              "    Media\n"
              "    MasterClip uid=\"m\"\n"
              "        Clip ->\n"
              "        Media\n");
    EXPECT_EQ(
        ProjectOutline("<Project/><Sequence ObjectUID=\"s\"><Name>N</Name>"
                       "<BE.Sequence.IsMergedClip>true</BE.Sequence.IsMergedClip></Sequence>"),
        "VelaData Version=\"3\"\n    Project\n"
        "    Sequence Name=\"N\" BE.Sequence.IsMergedClip=\"true\" uid=\"s\"\n");
}

TEST(ProjectReader, BytesAreKeptWithoutBlanks)
{
    EXPECT_EQ(ProjectOutline("<ArbVideoComponentParam ObjectID=\"1\"><Name>P</Name>"
                             "<StartKeyframeValue Encoding=\"base64\" Checksum=\"7\">\n\tAAAA\n\t"
                             "BBB=\n</StartKeyframeValue></ArbVideoComponentParam>"
                             "<Media ObjectUID=\"g\"><ImporterPrefs Encoding=\"base64\">AA=="
                             "</ImporterPrefs></Media>"),
              "VelaData Version=\"3\"\n"
              "    ArbVideoComponentParam Name=\"P\" StartKeyframeValue=\"AAAABBB=\"\n"
              "    Media ImporterPrefs=\"AA==\" uid=\"g\"\n");
}

TEST(ProjectReader, BytesOfOneHashAreShared)
{
    const auto param = [](const char* blob) {
        return std::string("<ArbVideoComponentParam>") + blob + "</ArbVideoComponentParam>";
    };
    EXPECT_EQ(
        ProjectOutline(param("<StartKeyframeValue BinaryHash=\"h\"/>") +
                       param("<StartKeyframeValue BinaryHash=\"h\">AA==</StartKeyframeValue>") +
                       param("<StartKeyframeValue BinaryHash=\"k\"/>")),
        "VelaData Version=\"3\"\n"
        "    ArbVideoComponentParam BinaryHash=\"h\" StartKeyframeValue=\"AA==\"\n"
        "    ArbVideoComponentParam BinaryHash=\"h\" StartKeyframeValue=\"AA==\"\n"
        "    ArbVideoComponentParam BinaryHash=\"k\"\n");
}

} // namespace
} // namespace XPJ
