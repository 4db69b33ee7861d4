// Documents that lead nowhere, back to themselves, or beyond all measure.
#include "inspect/compare.h"
#include "inspect/timeline_json.h"
#include "inspect/timeline_text.h"
#include "inspect_fixture.h"

#include <algorithm>

namespace XPJ::Inspection {
namespace {

// All that inspection does with a document.
void Exercise(const std::string& text)
{
    const DocumentTimelines timelines = ReadTimelines(text);
    const Project& project = timelines.project;
    EXPECT_FALSE(TreeText(project).empty());
    EXPECT_FALSE(TreeJson(project).empty());
    EXPECT_TRUE(Compare(project, project).empty());
    Project empty;
    empty.family = project.family;
    const auto bins = std::ranges::count_if(
        project.entries, [](const Entry& entry) { return entry.kind != EntryKind::Sequence; });
    EXPECT_EQ(Compare(project, empty).size(),
              project.sequences.size() + static_cast<std::size_t>(bins));
}

// Cut off behind any character of its tags, and with any number replaced.
TEST(Damage, OfWholeDocuments)
{
    for (const char* name : {"edit.xml", "edit.vlproj"}) {
        const std::string text = DataText(name);
        for (std::size_t at = text.find('<'); at != text.npos; at = text.find('<', at + 300))
            Exercise(text.substr(0, at));
        constexpr std::string_view kDigits = "0123456789";
        std::size_t end = 0;
        for (std::size_t at = text.find_first_of(kDigits); at != text.npos;
             at = text.find_first_of(kDigits, end)) {
            end = std::min(text.find_first_not_of(kDigits, at), text.size());
            for (const char* number : {"-9223372036854775808", "9223372036854775807"})
                Exercise(text.substr(0, at) + number + text.substr(end));
        }
    }
}

TEST(Damage, OfReferences)
{
    const char* const documents[] = {
        "",
        "<xmeml/>",
        "<VelaData/>",
        "no document",
        // A sequence in itself, and one that isn't there.
        R"(<xmeml version="5"><sequence id="s"><name>S</name><media><video><track>
           <clipitem><start>0</start><end>9</end><sequence id="s"/></clipitem>
           <clipitem><start>9</start><end>19</end><sequence id="t"/></clipitem>
           <clipitem><start>19</start><end>29</end><file id="t"/></clipitem>
           </track></video></media></sequence></xmeml>)",
        // Two sequences in each other.
        R"(<xmeml version="5"><sequence id="s"><media><video><track><clipitem>
           <sequence id="t"><media><video><track><clipitem><sequence id="s"/></clipitem></track>
           </video></media></sequence></clipitem></track></video></media></sequence></xmeml>)",
        // An item on its own track, linked with itself and beyond the tracks.
        R"(<xmeml version="5"><sequence id="s"><media><audio><track><clipitem id="c">
           <start>0</start><end>-1</end><link><linkclipref>c</linkclipref></link>
           <link><mediatype>audio</mediatype><trackindex>99999999999</trackindex></link></clipitem>
           <transitionitem/><clipitem id="c"/></track></audio></media></sequence></xmeml>)",
        // A bin in itself.
        R"(<VelaData Version="3"><Project ObjectID="1"><RootProjectItem ObjectURef="r"/></Project>
           <RootProjectItem ObjectUID="r"><ProjectItemContainer><Items>
           <Item ObjectURef="b"/><Item ObjectURef="r"/></Items></ProjectItemContainer>
           </RootProjectItem>
           <BinProjectItem ObjectUID="b"><ProjectItemContainer><Items>
           <Item ObjectURef="b"/><Item ObjectURef="none"/></Items></ProjectItemContainer>
           </BinProjectItem></VelaData>)",
    };
    for (const char* document : documents) {
        SCOPED_TRACE(document);
        Exercise(document);
    }
    EXPECT_EQ(ReadTimelines(documents[4]).project.sequences.size(), 1U);
    EXPECT_EQ(ReadTimelines(documents[5]).project.sequences.size(), 2U);
}

// Bins by reference may be as deep as a document is long.
TEST(Damage, OfDepth)
{
    std::string text = "<VelaData Version=\"3\"><Project ObjectID=\"1\"><RootProjectItem "
                       "ObjectURef=\"0\"/></Project>";
    for (int i = 0; i < 20000; ++i) {
        const std::string tag = i == 0 ? "RootProjectItem" : "BinProjectItem";
        text += "<" + tag + " ObjectUID=\"" + std::to_string(i) +
                "\"><ProjectItemContainer><Items><Item ObjectURef=\"" + std::to_string(i + 1) +
                "\"/></Items></ProjectItemContainer></" + tag + ">";
    }
    Exercise(text + "</VelaData>");
}

} // namespace
} // namespace XPJ::Inspection
