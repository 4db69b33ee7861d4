#include "support/reader_test_support.h"

namespace XPJ {
namespace {

struct Case {
    const char* content;
    const char* outline;
};

void ExpectOutlines(std::initializer_list<Case> cases)
{
    for (const Case& row : cases)
        EXPECT_EQ(FCPXMLOutline(row.content), row.outline) << row.content;
}

TEST(FCPXMLReader, ItemsBecomeProperties)
{
    ExpectOutlines({
        {"<clip id=\"c\"><name>A &amp; B</name><in>1</in></clip>",
         "clip id=\"c\" name=\"A &amp; B\" in=\"1\"\n"},
        // The first value stays, an attribute of an item is dropped.
        {"<clip><name x=\"y\">A</name><name>B</name></clip>", "clip name=\"A\"\n"},
        {"<clip><name/><in></in></clip>", "clip name=\"\" in=\"\"\n"},
        // Any end tag ends an item.
        {"<clip><name>A<b>C</b>D</name><in>1</in></clip>", "clip name=\"AC\" in=\"1\"\n"},
        {"<clip><name>A<!-- B -->C<![CDATA[<D> & &lt;]]></name></clip>",
         "clip name=\"AC&lt;D&gt; &amp; &lt;\"\n"},
        {"<clip><name>\n\tA\r\n\tB\n</name></clip>", "clip name=\"AB\"\n"},
    });
}

TEST(FCPXMLReader, UnknownElementsAreTransparent)
{
    ExpectOutlines({
        {"<clip><extra><name>A</name><rate><x><ntsc>TRUE</ntsc></x></rate></extra></clip>",
         "clip name=\"A\"\n    rate ntsc=\"TRUE\"\n"},
        {"<CLIP><clip><name>A</name></clip></CLIP>", "clip name=\"A\"\n"},
        {"<clip\n id=\"x\"><clip><name>A</name></clip></clip>", "clip name=\"A\"\n"},
        {"<clip>blank <b> text</b></clip >", "clip\n"},
    });
}

TEST(FCPXMLReader, AttributesBecomeProperties)
{
    ExpectOutlines({
        {"<sequence explodedTracks=\"true\" MZ.ZeroPoint=\"5\" other=\"1\"/>",
         "sequence explodedTracks=\"true\" MZ.ZeroPoint=\"5\"\n"},
        {"<sequence id=\"s\" TL.SQHeaderWidth=\"9\"><media><video><track MZ.TrackTargeted=\"1\" "
         "hardpan=\"2\"><MZ.TrackName>V</MZ.TrackName><hardpan>0</hardpan></track></video></"
         "media></sequence>",
         "sequence id=\"s\" TL.SQHeaderWidth=\"9\"\n    media\n        video\n"
         "            track hardpan=\"2\" MZ.TrackTargeted=\"1\" MZ.TrackName=\"V\"\n"},
        // A self-closed `media` belongs to the one around it and ends nothing.
        {"<clip><media hasStereoPairs=\"1\"><media "
         "hasDiscreteStreams=\"0\"/><video/></media></clip>",
         "clip\n    media hasStereoPairs=\"1\" hasDiscreteStreams=\"0\"\n        video\n"},
    });
}

TEST(FCPXMLReader, ReferencesAreBoundAtTheEnd)
{
    ExpectOutlines({
        // Before and behind its definition, spelled each way.
        {"<sequence><media><video><track><clipitem><file id=\"f\"/></clipitem>"
         "<clipitem><file id=\"f\"><rate/></file></clipitem>"
         "<clipitem><file id=\"f\"></file></clipitem></track></video></media></sequence>",
         "sequence\n    media\n        video\n            track\n"
         "                clipitem fileid=\"f\"\n"
         "                    file id=\"f\"\n                        rate\n"
         "                clipitem\n"
         "                    file id=\"f\"\n                        rate\n"
         "                clipitem fileid=\"f\"\n"
         "                    file id=\"f\"\n                        rate\n"},
        // Dangling; without an id; with a tag in capitals.
        {"<bin><children><clip id=\"none\"/><clip/><SEQUENCE id=\"s\"/></children></bin>",
         "bin\n    children clipid=\"none\" sequenceid=\"s\"\n        clip\n"},
        // Not self-closed: an empty node, which is no definition either.
        {"<bin><children><clip id=\"c\"></clip><clip id=\"c\"/></children></bin>",
         "bin\n    children clipid=\"c\"\n        clip id=\"c\"\n"},
        {"<bin><name>B</name><children/></bin>", "bin name=\"B\"\n"},
        // A clip item's sequence is a reference too once the document has had it.
        {"<sequence id=\"s\"><rate/></sequence><sequence><media><video><track><clipitem>"
         "<sequence "
         "id=\"s\"><name>N</name></sequence></clipitem></track></video></media></sequence>",
         "sequence id=\"s\"\n    rate\nsequence\n    media\n        video\n            track\n"
         "                clipitem sequenceid=\"s\"\n"
         "                    sequence id=\"s\" name=\"N\"\n"
         "                    sequence id=\"s\"\n                        rate\n"},
    });
}

TEST(FCPXMLReader, FileTakesTheRateOfItsTimecode)
{
    ExpectOutlines({
        {"<clip><file><timecode><rate><timebase>25</timebase></rate></timecode></file></clip>",
         "clip\n    file\n        timecode\n            rate timebase=\"25\"\n"
         "        rate timebase=\"25\"\n"},
        {"<clip><file><rate><timebase>30</timebase></rate><timecode><rate/></timecode></file></"
         "clip>",
         "clip\n    file\n        rate timebase=\"30\"\n        timecode\n            rate\n"},
    });
}

TEST(FCPXMLReader, ValueKeepsItsText)
{
    const std::string head = "<sequence><filter><effect><parameter>";
    const std::string tail = "</parameter></effect></filter></sequence>";
    const struct {
        std::string content, outline;
    } kCases[] = {
        {"<value>1<alpha>0</alpha>2</value>", "value value=\"12\" alpha=\"0\"\n"},
        {"<value>\n   <horiz>1</horiz>\n   <vert>2</vert>\n</value>",
         "value horiz=\"1\" vert=\"2\"\n"},
        {"<value>a<![CDATA[<b>]]>c<!-- -->d</value>", "value value=\"a&lt;b&gt;cd\"\n"},
        {"<value><timecode><frame>7</frame></timecode></value>",
         "value\n                    timecode frame=\"7\"\n"},
    };
    for (const auto& row : kCases)
        EXPECT_EQ(FCPXMLOutline(std::string(head).append(row.content).append(tail)),
                  "sequence\n    filter\n        effect\n            parameter\n                " +
                      row.outline)
            << row.content;
    // The name of an interpolation is not the parameter's.
    EXPECT_EQ(FCPXMLOutline(head +
                            "<interpolation><name>FCPCurve</name></interpolation>"
                            "<name>Scale</name>" +
                            tail),
              "sequence\n    filter\n        effect\n            parameter name=\"Scale\"\n"
              "                interpolation name=\"FCPCurve\"\n");
}

std::string TextBehind(const std::string& text, std::string_view mark)
{
    const std::size_t start = text.find(mark);
    return start == text.npos ? std::string() : text.substr(start + mark.size());
}

TEST(FCPXMLReader, DuplicateIdsAreRenamed)
{
    testing::internal::CaptureStdout();
    const std::string outline = FCPXMLOutline("<clip id=\"c9\"><name>A</name><rate/></clip>"
                                              "<clip id=\"c9\"><rate/></clip>"
                                              "<clip id=\"c9\"><rate/></clip>"
                                              "<clip id=\"c9_1\"><rate/></clip>"
                                              "<bin><children><clip id=\"c9\"/></children></bin>");
    const std::string output = testing::internal::GetCapturedStdout();
    EXPECT_EQ(outline, "clip id=\"c9\" name=\"A\"\n    rate\n"
                       "clip id=\"c9_1\"\n    rate\n"
                       "clip id=\"c9_2\"\n    rate\n"
                       "clip id=\"c9_1_1\"\n    rate\n"
                       "bin\n    children clipid=\"c9\"\n"
                       "        clip id=\"c9\" name=\"A\"\n            rate\n");
    EXPECT_TRUE(output.starts_with("Found an unexpected existing child. Was the child defined as "
                                   "an object but was actually an item?\n"
                                   " ChildID: c9 Child type: clip\n"
                                   "Previous child class: clip ID: "))
        << output;
    EXPECT_FALSE(TextBehind(output, "\n     New Child class: clip ID: ").empty());
    EXPECT_TRUE(TextBehind(output, "Prev child names and attributes:\n")
                    .starts_with(" Printing child names of clip\n  * rate\n"
                                 " Printing attributes of clip\n"))
        << output;
}

// The number ends each line of the id.
TEST(FCPXMLReader, DuplicateIdsOfSeveralLinesAreRenamed)
{
    testing::internal::CaptureStdout();
    const std::string clip = "<clip id=\"a5\nb6x\"><rate/></clip>";
    const std::string outline = FCPXMLOutline(clip + clip + clip);
    testing::internal::GetCapturedStdout();
    EXPECT_EQ(outline, "clip id=\"a5\nb6x\"\n    rate\n"
                       "clip id=\"a1\nb6x_1\"\n    rate\n"
                       "clip id=\"a2\nb6x_2\"\n    rate\n");
}

TEST(FCPXMLReader, FirstFileAndSequenceWinSilently)
{
    testing::internal::CaptureStdout();
    const std::string outline =
        FCPXMLOutline("<sequence id=\"s\"><rate/></sequence><sequence id=\"s\"><labels/></sequence>"
                      "<clip><file id=\"f\"><rate/></file></clip>"
                      "<clip><file id=\"f\"><media/></file></clip>"
                      "<sequence id=\"s\"/>");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(outline, "sequence id=\"s\"\n    rate\nsequence id=\"s\"\n    labels\n"
                       "clip\n    file id=\"f\"\n        rate\n"
                       "clip\n    file id=\"f\"\n        media\n"
                       "sequence id=\"s\"\n    rate\n");
}

TEST(FCPXMLReader, ElementsWithoutId)
{
    testing::internal::CaptureStdout();
    const std::string items = FCPXMLOutline(
        "<clip><rate/></clip><clip id=\"\"><rate/></clip><sequence id=\"\"><media><video><track>"
        "<clipitem id=\"\"><rate/></clipitem><clipitem><rate/></clipitem></track></video></media>"
        "</sequence>");
    EXPECT_EQ(items, "clip\n    rate\nclip id=\"\"\n    rate\nsequence id=\"\"\n    media\n"
                     "        video\n            track\n                clipitem id=\"\"\n"
                     "                    rate\n                clipitem\n"
                     "                    rate\n");
    // A generator item gets an id of its own.
    const std::string outline = FCPXMLOutline(
        "<sequence><media><video><track><generatoritem><rate/></generatoritem>"
        "<generatoritem id=\"\"><rate/></generatoritem></track></video></media></sequence>");
    const std::string first = TextBehind(outline, "generatoritem id=\"generatoritem-");
    const int number = std::stoi(first);
    EXPECT_EQ(std::stoi(TextBehind(first, "generatoritem id=\"generatoritem-")), number + 1);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST(FCPXMLReader, InputThatEndsInsideAnElementKeepsWhatWasComplete)
{
    Document document;
    ObjectHandle root;
    ASSERT_EQ(ParseFCPXML("<xmeml version=\"4\"><sequence id=\"s\"><name>A</name><rate>"
                          "<timebase>25</timebase><nt",
                          document, root),
              kReadDone);
    EXPECT_EQ(Outline(root), "xmeml version=\"4\"\n    sequence id=\"s\" name=\"A\"\n"
                             "        rate timebase=\"25\"\n");
    ASSERT_EQ(ParseFCPXML("<xmeml><clip><name>A<b/>B", document, root), kReadDone);
    EXPECT_EQ(Outline(root), "xmeml\n    clip name=\"A\"\n");
}

TEST(FCPXMLReader, MarkersOfRealDocumentsAreSurvived)
{
    EXPECT_EQ(FCPXMLOutline("<!-- <clip> --><project><children><sequence><media>stray text"
                            "<video><format><samplecharacteristics><rate/></samplecharacteristics>"
                            "</format></video></media></sequence></children></project>"),
              "project\n    children\n        sequence\n            media\n"
              "                video\n                    format\n"
              "                        samplecharacteristics\n"
              "                            rate\n");
    Document document;
    ObjectHandle root;
    ASSERT_EQ(ParseFCPXML("\xef\xbb\xbf<?xml version=\"1.0\"?>\r<!DOCTYPE xmeml>\r"
                          "<xmeml version=\"5\">\r<bin>\r<name>B</name>\r</bin>\r</xmeml>\r",
                          document, root),
              kReadDone);
    EXPECT_EQ(Outline(root), "xmeml version=\"5\"\n    bin name=\"B\"\n");
}

} // namespace
} // namespace XPJ
