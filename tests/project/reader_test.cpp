#include "support/reader_test_support.h"

namespace XPJ {
namespace {

TEST(ProjectReader, ReferencesHangUnderTheirTag)
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
              "        RootProjectItem UIDObject=\"g-root\"\n"
              "            ProjectItemContainer\n"
              "                Items\n"
              "                    Item ->\n"
              "                    ClipProjectItem UIDObject=\"g-clip\"\n"
              "                        ProjectItem Name=\"A\"\n"
              "    RootProjectItem UIDObject=\"g-root\"\n"
              "        ProjectItemContainer\n"
              "            Items\n"
              "                Item ->\n"
              "                ClipProjectItem UIDObject=\"g-clip\"\n"
              "                    ProjectItem Name=\"A\"\n"
              "    ClipProjectItem UIDObject=\"g-clip\"\n"
              "        ProjectItem Name=\"A\"\n");
}

TEST(ProjectReader, BasesNestAndWrappersAreTransparent)
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
              "    VideoClip ScaleToFrameSize=\"false\"\n"
              "        Clip InPoint=\"0\"\n"
              "            Properties hfl.clip.label.name=\"L\"\n"
              "            MarkerOwner\n"
              "                Markers\n"
              "                    Markers\n"
              "                        Marker First=\"5\"\n"
              "                            Second ->\n"
              "                            Marker HULMarker=\"{}\"\n"
              "    Markers\n"
              "        Markers\n"
              "            Marker First=\"5\"\n"
              "                Second ->\n"
              "                Marker HULMarker=\"{}\"\n"
              "    Marker HULMarker=\"{}\"\n");
}

TEST(ProjectReader, AttributesOfObjects)
{
    // A number goes before a GUID; a block tag at the top is no object.
    EXPECT_EQ(
        ProjectOutline("<Media ObjectID=\"1\" ObjectUID=\"g\" BinaryHash=\"h\"/>"
                       "<Clip><MasterClip ObjectUID=\"m\"><Clips><Clip ObjectURef=\"g\"/>"
                       "<Clip ObjectRef=\"1\" BinaryHash=\"k\"/></Clips></MasterClip></Clip>"),
        "VelaData Version=\"3\"\n"
        "    Media BinaryHash=\"h\"\n"
        "    MasterClip UIDObject=\"m\"\n"
        "        Clips BinaryHash=\"k\"\n"
        "            Clip ->\n"
        "            Media BinaryHash=\"h\"\n");
    EXPECT_EQ(
        ProjectOutline("<Project/><Sequence ObjectUID=\"s\"><Name>N</Name>"
                       "<BE.Sequence.IsMergedClip>true</BE.Sequence.IsMergedClip></Sequence>"),
        "VelaData Version=\"3\"\n    Project\n"
        "    Sequence Name=\"N\" BE.Sequence.IsMergedClip=\"true\" UIDObject=\"s\"\n");
}

TEST(ProjectReader, BlobTextIsKeptAsItIs)
{
    EXPECT_EQ(ProjectOutline("<ArbVideoComponentParam ObjectID=\"1\"><Name>P</Name>"
                             "<StartKeyframeValue Encoding=\"base64\" Checksum=\"7\">\n\tAAAA\n\t"
                             "BBB=\n</StartKeyframeValue></ArbVideoComponentParam>"
                             "<Media ObjectUID=\"g\"><ImporterPrefs Encoding=\"base64\">AA=="
                             "</ImporterPrefs></Media>"),
              "VelaData Version=\"3\"\n"
              "    ArbVideoComponentParam Name=\"P\"\n"
              "        StartKeyframeValue value=\"AAAABBB=\"\n"
              "    Media ImporterPrefs=\"AA==\" UIDObject=\"g\"\n");
}

} // namespace
} // namespace XPJ
