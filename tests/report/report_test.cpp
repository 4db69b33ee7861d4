#include "platform/default_platform.h"
#include "platform/platform.h"
#include "report/report.h"
#include "support/temp_folder.h"
#include "support/tree.h"

#include <gtest/gtest.h>

#include <ctime>
#include <set>
#include <thread>

namespace XPJ {
namespace {

// A platform whose time doesn't pass.
class StoppedClock final : public DefaultPlatform {
public:
    std::chrono::system_clock::time_point Now() override
    {
        std::tm time{};
        time.tm_year = 116;
        time.tm_mday = 2;
        time.tm_hour = 3;
        time.tm_min = 4;
        time.tm_isdst = -1;
        return std::chrono::system_clock::from_time_t(std::mktime(&time));
    }
};

TranslationIssue Issue(int kind)
{
    TranslationIssue issue;
    issue.kind = kind;
    issue.sequence = "Cut &amp; 1";
    issue.clip = "A";
    issue.subject = "Sepia";
    issue.trackKind = 1;
    issue.trackIndex = 1;
    issue.time = "01:00:00:00";
    return issue;
}

constexpr char kHead[] = "\tSequence <Cut &amp; 1> at 01:00:00:00, video track 2: ";

// What is on no track: an effect of a media file is in no sequence, a fader may be that of all
// audio.
TEST(IssueReportText, WithoutATrack)
{
    TranslationIssue issue = Issue(static_cast<int>(ExportIssue::ThreeWayApproximation));
    issue.sequence.clear();
    issue.trackKind = kNoTrack;
    EXPECT_EQ(IssueReportText({issue}, Direction::Export),
              "Translation issue:\r\n\t3-Way Color Corrector on Clip <A>: translation is "
              "approximate and should be reviewed.\r\n");
    issue = Issue(static_cast<int>(ImportIssue::AudioLevelClamped));
    issue.trackKind = kNoTrack;
    EXPECT_NE(IssueReportText({issue}, Direction::Import).find("at 01:00:00:00, Audio: Effect"),
              std::string::npos);
}

TEST(IssueReportText, EveryKind)
{
    const std::string head = kHead;
    const struct {
        Direction direction;
        int kind;
        std::string line;
    } rows[] = {
        {Direction::Import, 1,
         head + "Generator Item <Sepia> not translated, Transparent Video used as a placeholder."},
        {Direction::Import, 2,
         "\tGenerator Item (Sepia) not translated for clip <Cut &amp; 1>, Transparent Video used "
         "as a placeholder."},
        {Direction::Import, 3, head + "Effect <Sepia> on Clip <A> not translated."},
        {Direction::Import, 4,
         head + "3-Way Color Corrector on Clip <A>: translation is approximate and should be "
                "reviewed."},
        {Direction::Import, 5, head + "Composite mode <Sepia> on Clip <A> not supported."},
        {Direction::Import, 6,
         head + "Transition <Sepia> not translated, Constant Power used instead."},
        {Direction::Import, 7,
         head + "Transition <Sepia> not translated, Cross Dissolve used instead."},
        {Direction::Import, 8,
         head + "Dip To Color transition has no equivalent, Dip To Black used instead."},
        {Direction::Import, 9,
         head + "Effect <Sepia> on Clip <A> had audio levels above +6db which had to be clamped "
                "at +6db."},
        {Direction::Import, 10,
         head + "Multiclip <A> uses more than 4 inputs. Consider collapsing the multiclip in "
                "FCP."},
        {Direction::Import, 11,
         "\tFCP XML xmeml version (01:00:00:00) is not one we recognize (1-5), results may not be "
         "predictable."},
        {Direction::Import, 12,
         head + "Start of clip extended to include entire transition; alignment changed to "
                "\"start at cut.\""},
        {Direction::Import, 13,
         head + "End of clip extended to include entire transition; alignment changed to \"end "
                "at cut.\""},
        {Direction::Import, 14,
         head + "Low Pass filter found without required parameters, skipped."},
        {Direction::Import, 15,
         head + "High Pass filter found without required parameters, skipped."},
        {Direction::Import, 16,
         head + "Band Pass filter found without required parameters, skipped."},
        {Direction::Import, 17, head + "Pan filter found without required parameters, skipped."},
        {Direction::Import, 18, "\tInvalid in-point on clipitem. In-point was reset to 0."},
        {Direction::Import, 19,
         "\tCould not open referenced Gradiva file <A>. Effect will be omitted."},
        {Direction::Import, 20, "Track item <A> has invalid start/end and will be skipped."},
        {Direction::Import, 21,
         "\tBytes that mean nothing in the encoding Sepia were replaced, at 01:00:00:00."},
        {Direction::Import, 22,
         "\tEncoding (Sepia) is not one we recognize, the document was read as UTF-8."},
        {Direction::Export, 1,
         "\tVela Pro xml version (01:00:00:00) is not the version we were expecting (3), results "
         "may not be predictable."},
        {Direction::Export, 2, "\tSynthetic Item (A) not translated, Slug used as a placeholder."},
        {Direction::Export, 3, head + "Effect <Sepia> on Clip <A> not translated."},
        {Direction::Export, 4, head + "Composite mode on Clip <A> not supported."},
        {Direction::Export, 5,
         head + "Transition <Sepia> not translated, Cross Fade ( 0db) used instead."},
        {Direction::Export, 6,
         head + "Transition <Sepia> not translated, Cross Dissolve used instead."},
        {Direction::Export, 7,
         head + "3-Way Color Corrector on Clip <A>: translation is approximate and should be "
                "reviewed."},
        {Direction::Export, 8, "\tMerged clip <A> exported as a sequence."},
        {Direction::Export, 9,
         head + "Track item <A> was skipped because multicam sequences are not supported in FCP "
                "XML export."},
        {Direction::Export, 10, "\tEffect <Sepia> on Clip <A> not translated."},
        {Direction::Export, 11,
         "\tBytes that mean nothing in the encoding Sepia were replaced, at 01:00:00:00."},
        {Direction::Export, 12,
         "\tEncoding (Sepia) is not one we recognize, the document was read as UTF-8."},
    };
    for (const auto& [direction, kind, line] : rows)
        EXPECT_EQ(IssueReportText({Issue(kind)}, direction),
                  "Translation issue:\r\n" + line + "\r\n")
            << kind;
    for (const int kind : {0, -1, 23, 1 << 30})
        EXPECT_EQ(IssueReportText({Issue(kind)}, Direction::Import), "") << kind;
    EXPECT_EQ(IssueReportText({Issue(13)}, Direction::Export), "");
}

TEST(IssueReportText, SortsAndJoinsIssues)
{
    TranslationIssue audio = Issue(3);
    audio.trackKind = 2;
    TranslationIssue early = Issue(8);
    early.time = "00:59:59:29";
    // The second differs in kind alone: the first stays.
    const std::string text = IssueReportText({Issue(3), Issue(4), audio, early}, Direction::Import);
    EXPECT_EQ(text,
              "Translation issue:\r\n\tSequence <Cut &amp; 1> at 00:59:59:29, video track 2: "
              "Dip To Color transition has no equivalent, Dip To Black used instead.\r\n"
              "Translation issue:\r\n" +
                  std::string(kHead) +
                  "Effect <Sepia> on Clip <A> not translated.\r\n"
                  "Translation issue:\r\n\tSequence <Cut &amp; 1> at 01:00:00:00, audio track 2: "
                  "Effect <Sepia> on Clip <A> not translated.\r\n");
}

TEST(SkippedText, DistinguishesItemsClipsAndSequences)
{
    TranslationIssue item = Issue(0);
    item.clip = "A";
    TranslationIssue clip;
    clip.clip = "B";
    TranslationIssue sequence;
    sequence.sequence = "Cut 2";
    EXPECT_EQ(SkippedText({item, clip, sequence}),
              "Sequence <Cut & 1> at 01:00:00:00, video track 2: Clip <A> has no media, "
              "skipped.\n"
              "Clip <B> has no media, skipped.\n"
              "Sequence <Cut 2> has no frame rate or format, skipped.\n");
}

TEST(IssueReportText, PlainNames)
{
    TranslationIssue issue = Issue(3);
    issue.clip = "Q&amp;A &lt;1&gt; &#233;";
    issue.subject = "Sepia &amp;amp; co";
    EXPECT_EQ(IssueReportText({issue}, Direction::Import, NameStyle::Plain),
              "Translation issue:\r\n\tSequence <Cut & 1> at 01:00:00:00, video track 2: Effect "
              "<Sepia &amp; co> on Clip <Q&A <1> \xC3\xA9> not translated.\r\n");
}

TEST(MakeUniqueFileName, TakesTheFirstFreeOne)
{
    const TempFolder folder;
    const std::string base = folder / "Results";
    constexpr int kFiles = 120;
    for (int i = 0; i < kFiles; ++i) {
        CoreFile file;
        const std::string name = i == 0 ? "Results.txt" : "Results (" + std::to_string(i) + ").txt";
        ASSERT_EQ(MakeUniqueFileName(base, "txt", file), folder / name);
        EXPECT_TRUE(file.IsOpen());
    }
    CoreFile file;
    EXPECT_EQ(MakeUniqueFileName(folder / "none/Results", "txt", file), "");
}

TEST(MakeUniqueFileName, NoTwoThreadsGetTheSame)
{
    constexpr int kThreads = 8;
    constexpr int kEach = 25;
    const TempFolder folder;
    std::vector<std::set<std::string>> names(kThreads);
    std::vector<std::thread> threads;
    for (std::set<std::string>& own : names)
        threads.emplace_back([&own, &folder] {
            for (int i = 0; i < kEach; ++i) {
                CoreFile file;
                own.insert(MakeUniqueFileName(folder / "Results", "txt", file));
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    std::set<std::string> all;
    for (const std::set<std::string>& own : names)
        all.insert(own.begin(), own.end());
    EXPECT_EQ(all.size(), std::size_t{kThreads} * kEach);
    EXPECT_EQ(folder.FileCount(), all.size());
}

TEST(WriteReport, GoesIntoTheFolderUnderTheLocalTime)
{
    const TempFolder folder;
    StoppedClock platform;
    const PlatformScope scope(platform);
    const IssueSet issues = {Issue(3)};
    const std::string path = WriteReport(folder.Path(), issues, Direction::Import);
    EXPECT_EQ(path, folder / "FCP Translation Results 2016-01-02 03-04.txt");
    EXPECT_EQ(TempFolder::Read(path), IssueReportText(issues, Direction::Import));
    EXPECT_EQ(WriteReport(folder.Path(), issues, Direction::Import),
              folder / "FCP Translation Results 2016-01-02 03-04 (1).txt");
    EXPECT_EQ(WriteReport(folder / "none/", issues, Direction::Import), "");
}

TEST(AddReportItem, NeedsAMainBin)
{
    Document document;
    const ObjectHandle tree =
        Build(document, {"Document", {}, {{"Project", {}, {{"RootProjectItem"}}}}});
    AddReportItem(tree, "/reports/A & B.txt");
    const ObjectHandle item = FindPath(tree, {"Project", "RootProjectItem", "Item"});
    EXPECT_EQ(item.GetName(), "FileProjectItem");
    EXPECT_EQ(item.GetProperty("uid").size(), 36u);
    EXPECT_EQ(item.GetProperty("FullPath"), "/reports/A &amp; B.txt");
    EXPECT_EQ(item.GetProperty("Name"), "A &amp; B.txt");

    const ObjectHandle empty = Build(document, {"Document", {}, {{"Project"}}});
    AddReportItem(empty, "/reports/a.txt");
    EXPECT_FALSE(empty.GetChild("Project").HasChildren());
}

} // namespace
} // namespace XPJ
