#include "core/json.h"
#include "platform/default_platform.h"
#include "platform/platform.h"
#include "report/account_report.h"
#include "report/remark_groups.h"
#include "report/report.h"
#include "support/fixed_time.h"
#include "support/rows.h"
#include "support/temp_folder.h"
#include "support/tree.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <string_view>
#include <thread>
#include <vector>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace XPJ {
namespace {

// A platform whose time doesn't pass.
class StoppedClock final : public DefaultPlatform {
public:
    std::chrono::system_clock::time_point Now() override { return FixedTime(); }
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

const std::string kHead = "\tSequence <Cut &amp; 1> at 01:00:00:00, video track 2: ";

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
    for (const auto& row : ReadRows("report/issue_lines.txt", 3)) {
        const Direction direction = row[0] == "import" ? Direction::Import : Direction::Export;
        const std::string& line = row[2];
        EXPECT_EQ(IssueReportText({Issue(std::stoi(row[1]))}, direction),
                  "Translation issue:\r\n" +
                      (line.starts_with('@') ? kHead + line.substr(1) : line) + "\r\n")
            << row[0] << " " << row[1];
    }
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
                  kHead +
                  "Effect <Sepia> on Clip <A> not translated.\r\n"
                  "Translation issue:\r\n\tSequence <Cut &amp; 1> at 01:00:00:00, audio track 2: "
                  "Effect <Sepia> on Clip <A> not translated.\r\n");
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
    const std::string path = WriteReport(folder.Path(), IssueReportText(issues, Direction::Import));
    EXPECT_EQ(path, folder / "FCP Translation Results 2016-01-02 03-04.txt");
    EXPECT_EQ(TempFolder::Read(path), IssueReportText(issues, Direction::Import));
    EXPECT_EQ(WriteReport(folder.Path(), IssueReportText(issues, Direction::Import)),
              folder / "FCP Translation Results 2016-01-02 03-04 (1).txt");
    EXPECT_EQ(WriteReport(folder / "none/", "text"), "");
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

std::string KindTable()
{
    std::string text = "| Kind | Outcome | Severity | What it means | What to do |\n"
                       "|---|---|---|---|---|\n";
    for (const RemarkRow& row : RemarkRows())
        text += fmt::format("| `{}` | {} | {} | {} | {} |\n", row.id, OutcomeText(row.outcome),
                            SeverityText(row.severity), row.reason, row.remedy);
    return text;
}

// With VELA_ACCEPT=1 in the environment the table in docs/report.md is written anew.
TEST(RemarkKinds, AreListedInTheDocumentation)
{
    std::ifstream file(VELA_DOCS "/report.md");
    std::ostringstream content;
    content << file.rdbuf();
    const std::string document = content.str();
    constexpr std::string_view kHeading = "## Kinds\n\n";
    const std::size_t heading = document.find(kHeading);
    ASSERT_NE(heading, document.npos);
    const std::size_t table = heading + kHeading.size();
    if (std::getenv("VELA_ACCEPT"))
        std::ofstream(VELA_DOCS "/report.md") << document.substr(0, table) << KindTable();
    else
        EXPECT_EQ(document.substr(table), KindTable());
}

// What the tests of translations and of the tool expect.
std::string Expectations()
{
    std::string text;
    for (const char* const folder : {"data", "xmeml", "import", "export", "frame", "tool"})
        for (const auto& entry : std::filesystem::recursive_directory_iterator(
                 std::filesystem::path(VELA_TESTS) / folder)) {
            const std::string extension = entry.path().extension();
            if (extension != ".case" && extension != ".sh" && extension != ".cpp")
                continue;
            std::ifstream file(entry.path(), std::ios::binary);
            text.append(std::istreambuf_iterator<char>(file), {});
        }
    return text;
}

// The names under which cases list a kind: its own, and those of its issues.
std::vector<std::string_view> NamesOf(const RemarkRow& row)
{
    constexpr int kNumbers = 64;
    std::vector<std::string_view> names = {row.id};
    for (const Direction direction : {Direction::Import, Direction::Export})
        for (int number = 0; number < kNumbers; ++number)
            if (const IssueKind* const issue = FindIssueKind(direction, number);
                issue && issue->remark == row.kind)
                names.push_back(issue->name);
    return names;
}

bool HasWord(std::string_view text, std::string_view word)
{
    const auto isPart = [](char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0; };
    for (std::size_t at = text.find(word); at != text.npos; at = text.find(word, at + 1)) {
        const std::size_t end = at + word.size();
        if ((at == 0 || !isPart(text[at - 1])) && (end == text.size() || !isPart(text[end])))
            return true;
    }
    return false;
}

TEST(RemarkKinds, AreAllInACase)
{
    const std::string expectations = Expectations();
    for (const RemarkRow& row : RemarkRows())
        EXPECT_TRUE(std::ranges::any_of(NamesOf(row), [&](std::string_view name) {
            return HasWord(expectations, name);
        })) << row.id;
}

TEST(RemarkKinds, HaveIdsOfTheirOwnAndSentences)
{
    std::set<std::string_view> ids;
    for (const RemarkRow& row : RemarkRows()) {
        EXPECT_TRUE(ids.insert(row.id).second) << row.id;
        EXPECT_TRUE(row.reason.ends_with('.') || row.reason.ends_with("$2")) << row.id;
        EXPECT_TRUE(row.remedy.empty() || row.remedy.ends_with('.')) << row.id;
    }
}

Remark RemarkAt(std::int64_t frame, std::string_view clip, RemarkKind kind)
{
    return {.kind = kind,
            .sequence = "Cut &amp; 1",
            .clip = clip,
            .trackKind = 1,
            .trackIndex = 1,
            .span = {.start = frame, .end = frame + 25, .first = 90000, .base = 25},
            .subject = "Tom &amp; Co"};
}

TEST(GroupRemarks, PutsTheWorstFirstAndSumsUp)
{
    Account account;
    for (const std::int64_t frame : {0, 25, 50, 75})
        account.remarks.push_back(RemarkAt(frame, "A", RemarkKind::EffectUnsupported));
    account.remarks.push_back({.kind = RemarkKind::LabelWithoutColor, .clip = "B", .bin = "Day 1"});
    account.remarks.push_back(RemarkAt(0, "C", RemarkKind::EdgesInvalid));
    account.remarks[1].count = 3;
    EXPECT_EQ(GroupText(GroupRemarks(account.remarks), 2),
              "Lost, once: The item has an invalid start or end.\n"
              "    Cut & 1, V2, 01:00:00:00, C\n"
              "    Cut the clip in anew.\n"
              "Lost, 6 times: The effect <Tom & Co> has no counterpart.\n"
              "    Cut & 1, V2, 01:00:00:00, A; Cut & 1, V2, 01:00:01:00, A; Cut & 1, V2, "
              "01:00:02:00, A; and 1 more\n"
              "    Render the clip with its effect, or find a similar effect and set it anew.\n"
              "... and 1 more\n");
    EXPECT_EQ(CountsText(CountOutcomes(account)), "8 lost");
}

TEST(AccountReport, StatesEachFieldOnce)
{
    Account account;
    account.remarks.push_back(RemarkAt(50, "Q \"A\", B\xFF", RemarkKind::EffectUnsupported));
    const auto json = ParseJson(AccountJson({.input = "a.xml"}, account));
    EXPECT_EQ(json["totals"]["lost"], 1);
    const auto& item = json["items"][0];
    EXPECT_EQ(item["track"], "V2");
    EXPECT_EQ(item["start"], "01:00:02:00");
    EXPECT_EQ(item["end"], "01:00:03:00");
    EXPECT_EQ(item["frame"], 50);
    EXPECT_EQ(item["clip"], "Q \"A\", B\xEF\xBF\xBD");
    EXPECT_FALSE(item.contains("path"));
    EXPECT_EQ(AccountCsv(account),
              "kind,outcome,severity,count,path,sequence,track,start,end,frame,clip,subject,reason,"
              "remedy\r\n"
              "effect.unsupported,lost,warning,1,,Cut & 1,V2,01:00:02:00,01:00:03:00,50,\"Q "
              "\"\"A\"\", B\xFF\",Tom & Co,The effect <Tom & Co> has no counterpart.,\"Render "
              "the clip with its effect, or find a similar effect and set it anew.\"\r\n");
}

} // namespace
} // namespace XPJ
