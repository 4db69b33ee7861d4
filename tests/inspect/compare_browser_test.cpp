#include "inspect/compare.h"
#include "inspect/timeline_text.h"
#include "inspect_fixture.h"
#include "support/import_text.h"

#include <utility>
#include <vector>

namespace XPJ::Inspection {
namespace {

constexpr const char* kClip = R"(<rate><timebase>25</timebase></rate>MARKER<media><video><track>
<clipitem><file id="F"><name>F</name><pathurl>file://localhost/media/F</pathurl>
<rate><timebase>25</timebase></rate><duration>100</duration>
<media><video/></media></file></clipitem></track></video></media>)";

// MEDIA:x is the media of a clip, the file x.
constexpr const char* kBrowser = R"(<xmeml version="5"><project><name>P</name><children>
<bin><name>Rushes</name><labels><label2>Best Take</label2></labels><children>
<bin><name>Day 1</name><children>
<clip id="b"><name>Boat</name>MEDIA:b<marker><name>Gull</name><in>5</in><out>-1</out></marker></clip>
</children></bin>
<clip id="k"><name>Kelp</name><labels><label2>B Roll</label2></labels>MEDIA:k</clip>
</children></bin>
<bin><name>Music</name><children><clip id="s"><name>Shanty</name>MEDIA:s</clip></children></bin>
<sequence id="c"><name>Cut</name><rate><timebase>25</timebase></rate><media><video><track>
<clipitem id="i"><name>Wave</name><start>0</start><end>10</end><in>0</in><out>10</out>
<rate><timebase>25</timebase></rate><file id="w"><name>w</name>
<pathurl>file://localhost/media/w</pathurl><rate><timebase>25</timebase></rate>
<duration>100</duration><media><video/></media></file></clipitem>
</track></video></media></sequence>
</children></project></xmeml>)";

using Changes = std::vector<std::pair<const char*, const char*>>;

// All of `from` become `to`.
std::string ReplacedAll(std::string text, const std::string& from, const std::string& to)
{
    for (std::size_t at = text.find(from); at != text.npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
    return text;
}

std::string Document(const Changes& changes = {})
{
    std::string text = kBrowser;
    for (const auto& [from, to] : changes)
        text = Replaced(text, from, to);
    for (const std::string file : {"b", "k", "s", "w", "x"})
        text = ReplacedAll(text, "MEDIA:" + file, ReplacedAll(kClip, "F", file));
    return ReplacedAll(text, "MARKER", "");
}

constexpr const char* kKelp =
    "<clip id=\"k\"><name>Kelp</name><labels><label2>B Roll</label2></labels>MEDIA:k</clip>";
constexpr const char* kMusic = "<bin><name>Music</name><children>"
                               "<clip id=\"s\"><name>Shanty</name>MEDIA:s</clip></children></bin>";

TEST(CompareBrowser, ListsWhatChanged)
{
    const struct {
        Changes changes;
        const char* expected;
    } rows[] = {
        {{}, ""},
        {{{"<name>Rushes<", "<name>Selects<"}},
         "  changed bin \"Rushes\": name Rushes -> Selects\n"},
        {{{"Best Take", "Good Take"}}, "  changed bin \"Rushes\": label Best Take -> Good Take\n"},
        {{{"B Roll", ""}}, "  changed bin clip \"Kelp\" in \"Rushes\": label B Roll -> nothing\n"},
        {{{"<name>Kelp<", "<name>Weed<"}},
         "  changed bin clip \"Kelp\" in \"Rushes\": name Kelp -> Weed\n"},
        {{{kKelp, ""}}, "  lost    bin clip \"Kelp\" in \"Rushes\"\n"},
        {{{"<clip id=\"s\">", "<clip id=\"x\"><name>New</name>MEDIA:x</clip><clip id=\"s\">"}},
         "  added   bin clip \"New\" in \"Music\"\n"},
        {{{kMusic, ""}}, "  lost    bin \"Music\"\n  lost    bin clip \"Shanty\" in \"Music\"\n"},
        {{{kKelp, ""},
          {"<bin><name>Music</name><children>",
           "<bin><name>Music</name><children><clip id=\"k\"><name>Kelp</name>"
           "<labels><label2>B Roll</label2></labels>MEDIA:k</clip>"}},
         "  moved   bin clip \"Kelp\" in \"Rushes\": bin Rushes -> Music\n"},
        // What is in a bin moves with it.
        {{{kMusic, ""},
          {"<bin><name>Day 1</name>", "<bin><name>Music</name><children>"
                                      "<clip id=\"s\"><name>Shanty</name>MEDIA:s"
                                      "</clip></children></bin><bin><name>Day 1</name>"}},
         "  moved   bin \"Music\": bin nothing -> Rushes\n"},
        {{{"<name>Gull</name><in>5<", "<name>Gull</name><in>6<"}},
         "  moved   00:00:00:05 marker \"Gull\" in \"Rushes / Day 1 / Boat\": start 5 "
         "(00:00:00:05) "
         "-> 6 (00:00:00:06)\n"},
        {{{"MEDIA:s", "MEDIA:x"}},
         "  changed bin clip \"Shanty\" in \"Music\": path /media/s -> /media/x\n"},
        // A clip of the browser that an item shows need not be listed.
        {{{"<sequence", "<clip id=\"w\"><name>Wave</name>MEDIA:w</clip><sequence"}}, ""},
    };
    const Project before = Timelines(Document());
    for (const auto& row : rows) {
        SCOPED_TRACE(row.expected);
        const std::string expected(row.expected);
        const std::string found =
            DifferencesText(Compare(before, Timelines(Document(row.changes))));
        if (expected.empty())
            EXPECT_EQ(found, "No differences.\n");
        else
            EXPECT_EQ(found.substr(0, found.rfind('\n', found.size() - 2) + 1),
                      "browser\n" + expected);
    }
}

TEST(CompareBrowser, EntriesOfSequences)
{
    const Project before = Timelines(Document());
    const Project labelled = Timelines(
        Document({{"<name>Cut</name>", "<name>Cut</name><labels><label2>VFX</label2></labels>"}}));
    EXPECT_EQ(DifferencesText(Compare(before, labelled)),
              "sequence \"Cut\"\n  changed 00:00:00:00 sequence \"Cut\": label nothing -> VFX\n"
              "1 difference: 1 changed\n");
    const Project moved =
        Timelines(Document({{"<sequence", "<bin><name>Cuts</name><children><sequence"},
                            {"</sequence>", "</sequence></children></bin>"}}));
    EXPECT_EQ(DifferencesText(Compare(before, moved)),
              "browser\n  added   bin \"Cuts\"\nsequence \"Cut\"\n"
              "  moved   00:00:00:00 sequence \"Cut\": bin nothing -> Cuts\n"
              "2 differences: 1 added, 1 moved\n");
}

TEST(CompareBrowser, IsTheSameInAProject)
{
    const Project document = Timelines(Document());
    ImportOptions options;
    options.settings.openInterchange = true;
    const Project project = Timelines(ImportText(Document(), options).project);
    EXPECT_EQ(project.entries.size(), document.entries.size() + 1); // the clip of the item
    EXPECT_EQ(DifferencesText(Compare(document, project)), "No differences.\n");
    EXPECT_EQ(DifferencesText(Compare(project, document)), "No differences.\n");
}

} // namespace
} // namespace XPJ::Inspection
