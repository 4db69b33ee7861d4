#include "gtest/gtest.h"

#include "support/writer_test_support.h"

#include "tree/reading.h"
#include "xmeml/elements.h"
#include "xmeml/reader.h"
#include "xmeml/writer.h"

namespace XPJ {
namespace {

std::string DocumentText(ObjectHandle root, bool vl2snMode = false)
{
    SilentProgress progress;
    std::ostringstream output;
    EXPECT_EQ(kWriteDone, WriteFCPXML(root, progress, vl2snMode, output));
    return output.str();
}

// An entry of the project's list as it is written, without the two tabs of the list's own level.
std::string WriteEntry(Document& d, ObjectHandle entry)
{
    const ObjectHandle children = Make(d, "children", {}, {{Name(), entry}});
    const ObjectHandle project = Make(d, "project", {{"name", "p"}}, {{"children", children}});
    const std::string text = DocumentText(Make(d, "xmeml", {}, {{"project", project}}));
    const std::string before = "\t\t<children>\n";
    std::size_t line = text.find(before) + before.size();
    std::string result;
    for (std::size_t end = text.find('\n', line); text.compare(line, 3, "\t\t\t") == 0;
         end = text.find('\n', line)) {
        result += text.substr(line + 3, end + 1 - line - 3);
        line = end + 1;
    }
    return result;
}

// What a `clip` has in its media for a track of one item.
std::string WriteItem(Document& d, ObjectHandle item)
{
    const ObjectHandle track = Make(d, "track", {}, {{Name(), item}});
    const ObjectHandle video = Make(d, "video", {}, {{"track", track}});
    const ObjectHandle media = Make(d, "media", {}, {{"video", video}});
    const std::string text = WriteEntry(d, Make(d, "clip", {}, {{"media", media}}));
    const std::string before = "\t\t\t<track>\n";
    const std::size_t begin = text.find(before) + before.size();
    std::string result;
    for (std::size_t i = begin; i < text.find("\t\t\t</track>"); i = text.find('\n', i) + 1)
        result += text.substr(i + 4, text.find('\n', i) + 1 - i - 4);
    return result;
}

constexpr std::string_view kDefaultRate = "\t<rate>\n"
                                          "\t\t<ntsc>TRUE</ntsc>\n"
                                          "\t\t<timebase>30</timebase>\n"
                                          "\t</rate>\n";

TEST(XmemlWriter, Frame)
{
    Document d;
    const ObjectHandle project =
        Make(d, "project", {{"name", "P"}}, {{"children", Make(d, "children")}});
    const ObjectHandle root = Make(d, "xmeml", {}, {{"project", project}});
    const std::string head = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                             "<!DOCTYPE xmeml>\n"
                             "<xmeml version=\"4\">\n";
    const std::string body = "\t<project>\n"
                             "\t\t<name>P</name>\n"
                             "\t\t<children>\n"
                             "\t\t</children>\n"
                             "\t</project>\n"
                             "</xmeml>\n";
    EXPECT_EQ(DocumentText(root), head + body);
    EXPECT_EQ(DocumentText(root, true), head +
                                            "\t<importoptions>\n"
                                            "\t\t<vl2sn>TRUE</vl2sn>\n"
                                            "\t</importoptions>\n" +
                                            body);
    EXPECT_EQ(DocumentText(Make(d, "xmeml")), head + "</xmeml>\n");
    EXPECT_EQ(DocumentText(ObjectHandle()), head + "</xmeml>\n");
}

TEST(XmemlWriter, ClipLengthAndRate)
{
    struct Row {
        const char* own;       // `duration` of the clip, "" for none
        const char* ofMedia;   // `duration` of its `media`
        const char* rate;      // timebase of the clip's rate
        const char* mediaRate; // timebase of its media's rate
        std::string expected;
    };
    const auto rate = [](const char* timebase) {
        return std::string("\t<rate>\n\t\t<timebase>") + timebase + "</timebase>\n\t</rate>\n";
    };
    const std::string noRate(kDefaultRate);
    const Row rows[] = {
        {"", "", "", "", "\t<duration>0</duration>\n" + noRate},
        {"7", "", "", "24", "\t<duration>7</duration>\n" + rate("24")},
        {"7", "9", "25", "24", "\t<duration>9</duration>\n" + rate("25")},
    };
    for (const Row& row : rows) {
        Document d;
        const ObjectHandle media = d.NewObject("media");
        const ObjectHandle clip = Make(d, "clip", {{"id", "c"}, {"name", "n"}}, {{"media", media}});
        const auto set = [&](ObjectHandle node, const char* duration, const char* timebase) {
            if (*duration)
                node.SetProperty("duration", duration);
            if (*timebase)
                node.AddChild("rate", Make(d, "rate", {{"timebase", timebase}}));
        };
        set(clip, row.own, row.rate);
        set(media, row.ofMedia, row.mediaRate);
        EXPECT_EQ(WriteEntry(d, clip), "<clip id=\"c\">\n"
                                       "\t<uuid></uuid>\n"
                                       "\t<masterclipid>c</masterclipid>\n"
                                       "\t<ismasterclip>TRUE</ismasterclip>\n" +
                                           row.expected +
                                           "\t<name>n</name>\n"
                                           "\t<media>\n"
                                           "\t</media>\n"
                                           "</clip>\n");
    }
}

TEST(XmemlWriter, EntriesAndItemsKeepTheirOrder)
{
    Document d;
    const ObjectHandle children = Make(d, "children", {},
                                       {{"sequenceref", Make(d, "sequenceref", {{"id", "s1"}})},
                                        {"clip", Make(d, "clip")},
                                        {"unknown", Make(d, "clip")},
                                        {"sequence", Make(d, "sequence")},
                                        {"clip", Make(d, "clip")},
                                        {"effect", Make(d, "effect")}});
    const ObjectHandle bin = Make(d, "bin", {{"name", "b"}}, {{"children", children}});
    std::string text = WriteEntry(d, bin);
    std::string tags;
    for (std::size_t i = text.find("\n\t\t<"); i != text.npos; i = text.find("\n\t\t<", i + 1))
        tags += text.substr(i + 3, text.find_first_of(" >", i) - i - 3) + " ";
    EXPECT_EQ(tags, "<sequence <clip </clip <sequence </sequence <clip </clip <effect </effect ");
    EXPECT_NE(text.find("\t\t<sequence id=\"s1\"/>\n"), text.npos);

    const ObjectHandle track =
        Make(d, "track",
             {{"hardpan", "TRUE"},
              {"MZ.TrackName", "A \"1\""},
              {"TL.SQTrackShy", "0"},
              {"velaTrackType", "Mono"},
              {"enabled", "TRUE"},
              {"outputchannelindex", "1"}},
             {{"filter", Make(d, "filter")},
              {"transitionitem", Make(d, "transitionitem", {{"start", "1"}})},
              {"generatoritem", Make(d, "generatoritem", {{"id", "g"}})}});
    const ObjectHandle audio = Make(d, "audio", {{"numOutputChannels", "2"}},
                                    {{"filter", Make(d, "filter")}, {"track", track}});
    const ObjectHandle media =
        Make(d, "media", {{"hasDiscreteStreams", "TRUE"}}, {{"audio", audio}});
    const ObjectHandle sequence = Make(
        d, "sequence",
        {{"id", "s"}, {"MZ.ZeroPoint", "0"}, {"explodedTracks", "true"}, {"TL.SQHeaderWidth", "9"}},
        {{"media", media}});
    EXPECT_EQ(WriteEntry(d, sequence),
              R"(<sequence id="s" explodedTracks="true" TL.SQHeaderWidth="9" MZ.ZeroPoint="0">
	<uuid></uuid>
	<duration></duration>
	<name></name>
	<media hasDiscreteStreams="TRUE">
		<audio>
			<numOutputChannels>2</numOutputChannels>
			<track hardpan="TRUE" TL.SQTrackShy="0" MZ.TrackName="A &quot;1&quot;" velaTrackType="Mono">
				<transitionitem>
					<start>1</start>
				</transitionitem>
				<generatoritem id="g">
				</generatoritem>
				<enabled>TRUE</enabled>
				<filter>
				</filter>
				<outputchannelindex>1</outputchannelindex>
			</track>
			<filter>
			</filter>
		</audio>
	</media>
</sequence>
)");
}

TEST(XmemlWriter, EffectWithValues)
{
    Document d;
    const ObjectHandle point = Make(d, "value", {{"vert", "2"}, {"horiz", "1"}});
    const ObjectHandle keyframe =
        Make(d, "keyframe", {{"when", "5"}, {"velaRampStart", "TRUE"}},
             {{"value", point}, {"inbez", Make(d, "inbez", {{"horiz", "0"}})}});
    const ObjectHandle entry = Make(d, "valueentry", {{"name", "a"}, {"value", "1"}});
    const ObjectHandle parameter = Make(
        d, "parameter", {{"parameterid", "p"}, {"value", "3"}, {"authoringApp", "x"}},
        {{"valuelist", Make(d, "valuelist", {}, {{"valueentry", entry}})}, {"keyframe", keyframe}});
    const ObjectHandle effect =
        Make(d, "effect", {{"effectid", "e"}, {"velaBypass", "true"}},
             {{"dependency", Make(d, "dependency", {{"tag", "t"}})}, {"parameter", parameter}});
    EXPECT_EQ(WriteEntry(d, effect), R"(<effect>
	<name></name>
	<effectid>e</effectid>
	<effecttype></effecttype>
	<mediatype></mediatype>
	<velaBypass>true</velaBypass>
	<parameter authoringApp="VelaPro">
		<parameterid>p</parameterid>
		<name></name>
		<value>3</value>
		<keyframe>
			<when>5</when>
			<value>
				<horiz>1</horiz>
				<vert>2</vert>
			</value>
			<velaRampStart>TRUE</velaRampStart>
			<inbez>
				<horiz>0</horiz>
				<vert></vert>
			</inbez>
		</keyframe>
		<valuelist>
			<valueentry>
				<name>a</name>
				<value>1</value>
			</valueentry>
		</valuelist>
	</parameter>
	<dependency>
		<tag>t</tag>
		<path></path>
	</dependency>
</effect>
)");
}

TEST(XmemlWriter, AudioOfAFile)
{
    struct Row {
        const char* type;
        const char* count;
        std::size_t elements;
        const char* last; // contents of the last one, without tabs
    };
    const Row rows[] = {
        {"", "2", 1, ""},
        {"4", "2", 1, ""},
        {"0", "0", 0, ""},
        {"0", "-3", 0, ""},
        {"0", "3", 3,
         "<channelcount>1</channelcount><audiochannel><sourcechannel>3</sourcechannel>"
         "</audiochannel>"},
        {"1", "0", 1, "<channelcount>2</channelcount>"},
        {"1", "-2147483648", 0, ""},
        {"1", "3", 2, "<channelcount>2</channelcount>"},
        {"2", "7", 2, "<channelcount>6</channelcount>"},
        {"6", "2", 2,
         "<channelcount>1</channelcount><layout>stereo</layout><audiochannel>"
         "<sourcechannel>2</sourcechannel><channellabel>right</channellabel></audiochannel>"},
        {"7", "12", 1, "<channelcount>12</channelcount>"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.type);
        Document d;
        const ObjectHandle shape = Make(d, "samplecharacteristics", {{"samplerate", "48000"}});
        const ObjectHandle audio =
            Make(d, "audio", {{"channelcount", row.count}}, {{"samplecharacteristics", shape}});
        if (*row.type)
            audio.SetProperty("channeltype", row.type);
        const ObjectHandle media = Make(d, "media", {}, {{"audio", audio}});
        const ObjectHandle file = Make(d, "file", {{"id", "f"}}, {{"media", media}});
        std::string text = WriteItem(d, Make(d, "clipitem", {}, {{"file", file}}));
        std::erase_if(text, [](char c) { return c == '\t' || c == '\n'; });

        const std::size_t elements = CountOf(text, "<audio>");
        EXPECT_EQ(elements, row.elements);
        const std::string end =
            "</samplecharacteristics>" + std::string(row.last) + "</audio></media>";
        EXPECT_EQ(text.find(end) != text.npos, elements > 0) << text;
    }
}

TEST(XmemlWriter, NestingEndsWhereReadersStop)
{
    Document d;
    ObjectHandle children = Make(d, "children");
    for (int i = 0; i < 100000; ++i) {
        const ObjectHandle bin = Make(d, "bin", {}, {{"children", children}});
        children = Make(d, "children", {}, {{"bin", bin}});
    }
    const ObjectHandle project = Make(d, "project", {}, {{"children", children}});
    const std::string text = DocumentText(Make(d, "xmeml", {}, {{"project", project}}));
    EXPECT_EQ(CountOf(text, "<bin>"), (kMaxNesting - 1) / 2u);
    Document back;
    ObjectHandle root;
    EXPECT_EQ(ParseFCPXML(text, back, root), kReadDone);
    EXPECT_EQ(text.substr(text.size() - 9), "</xmeml>\n");
}

TEST(XmemlWriter, CancelsAtEachCheck)
{
    Document d;
    const ObjectHandle children = d.NewObject("children");
    for (int i = 0; i < 3000; ++i)
        children.AddChild("clip", Make(d, "clip"));
    const ObjectHandle project = Make(d, "project", {}, {{"children", children}});
    const ObjectHandle root = Make(d, "xmeml", {}, {{"project", project}});

    const auto job = [&root](Progress& progress) {
        std::ostringstream output;
        return WriteFCPXML(root, progress, false, output);
    };
    const TestProgress whole = ExpectStopsAtEachCheck(job, kWriteDone, kWriteCancelled);
    EXPECT_EQ(whole.totals, std::vector<unsigned>{3});
    EXPECT_EQ(whole.advanced, 3u);
}

} // namespace
} // namespace XPJ
