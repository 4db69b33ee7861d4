#include "frame/console.h"
#include "frame/file_conversion.h"
#include "frame_test_support.h"
#include "platform/files.h"

#include <gtest/gtest.h>

#include <sstream>

#include <sys/stat.h>
#include <unistd.h>

namespace XPJ {
namespace {

class Console : public testing::Test {
protected:
    // The lines that aren't about progress.
    std::string Printed()
    {
        std::istringstream lines(out_.str());
        std::string printed;
        for (std::string line; std::getline(lines, line);)
            if (!line.starts_with("Progress: "))
                printed += line + "\n";
        out_.str("");
        return printed;
    }

    TempFolder reports_;
    TempFolder folder_;
    TestPlatform platform_{reports_};
    PlatformScope scope_{platform_};
    std::ostringstream out_;
};

ConversionRequest ExportRequest(std::string input, std::string output)
{
    return {.from = &FormatOf(TreeKind::Project),
            .to = &FormatOf(TreeKind::Xmeml),
            .inputPath = std::move(input),
            .outputPath = std::move(output)};
}

ConversionRequest ImportRequest(std::string input, std::string output)
{
    return {.inputPath = std::move(input), .outputPath = std::move(output)};
}

TEST(DefaultOutputName, CutsAtTheFirstExtension)
{
    const struct {
        const char* input;
        const char* output;
    } rows[] = {
        {"/p/a.xml", "a.vlproj"},
        {"a.xml.old.xml", "a.vlproj"},
        {"/p.xml/plain.xml", "plain.vlproj"},
        {"/p/b.vlproj", "b.xml"},
    };
    for (const auto& [input, output] : rows) {
        ConversionRequest request{.inputPath = input};
        ASSERT_TRUE(SetFormatsByExtension(request)) << input;
        EXPECT_EQ(DefaultOutputName(request), output) << input;
    }
    EXPECT_EQ(DefaultOutputName({.inputPath = "/p.xml/plain"}), "plain.vlproj");
    ConversionRequest request{.inputPath = "a.XML"};
    EXPECT_FALSE(SetFormatsByExtension(request));
}

TEST_F(Console, ConvertsBothWays)
{
    const std::string xml = folder_.Write("a.xml", kSmallXML);
    const std::string project = folder_ / "a.vlproj";
    EXPECT_EQ(ConvertFile(ImportRequest(xml, project), out_), kSuccess);
    EXPECT_EQ(Printed(), "");
    const std::string back = folder_ / "b.xml";
    EXPECT_EQ(ConvertByExtension({.inputPath = project, .outputPath = back}, out_), kSuccess);
    EXPECT_EQ(Printed(), "");
    EXPECT_NE(TempFolder::Read(back).find("<name>Vela Project</name>"), std::string::npos);
    EXPECT_EQ(folder_.FileCount(), 3u);
}

TEST_F(Console, PrintsIssues)
{
    const std::string xml = folder_.Write("a.xml", kFutureXML);
    EXPECT_EQ(ConvertFile(ImportRequest(xml, folder_ / "a.vlproj"), out_), kSuccess);
    EXPECT_EQ(Printed(),
              "Translation issue:\r\n\tFCP XML xmeml version (9) is not one we recognize "
              "(1-5), results may not be predictable.\r\n");
    const ConversionOutcome outcome = ConvertFiles(ImportRequest(xml, folder_ / "b.vlproj"));
    EXPECT_EQ(outcome.account.issues.size(), 1u);
    EXPECT_TRUE(FileExists(outcome.reportPath));
}

TEST_F(Console, PrintsTheReasonOfAFailure)
{
    const std::string missing = folder_ / "none.xml";
    const std::string empty = folder_.Write("empty.xml", "<xmeml version=\"4\"></xmeml>");
    const std::string other = folder_.Write("other.xml", "<plist></plist>");
    const std::string broken = folder_.Write("broken.xml", "<xmeml><<");
    const std::string noName = folder_ / "clip";
    const struct {
        std::string input;
        int result;
        std::string printed;
    } rows[] = {
        {missing, kInputCouldNotBeOpened, "The input file could not be opened.\n"},
        {empty, kNoFCPDataFound, "No FCP data found in input file.\n"},
        {other, kNoXMELM, "No xmeml data found in input file.\n"},
        {broken, kUnexpectedError, "An unexpected error occurred.\n"},
        {folder_ / "a.XML", kInputCouldNotBeOpened,
         "Unrecognized file extension: XML (.xml or .vlproj expected).\n"},
        {noName, kInputCouldNotBeOpened,
         "Input file " + noName +
             " appears to lack a file extension, unable to determine file type.\n"},
        {folder_ / "none.vlproj", kInputCouldNotBeOpened, "The input file could not be opened.\n"},
    };
    const std::string output = folder_.Write("out", "old");
    for (const auto& [input, result, printed] : rows) {
        EXPECT_EQ(ConvertByExtension({.inputPath = input, .outputPath = output}, out_), result)
            << input;
        EXPECT_EQ(Printed(), "XPJConvert: " + printed);
        EXPECT_EQ(TempFolder::Read(output), "old");
    }
    EXPECT_EQ(folder_.FileCount(), 4u);
}

TEST_F(Console, ASyntaxErrorKeepsItsPosition)
{
    const std::string xml = folder_.Write("broken.xml", "<xmeml version=\"4\">\n<bin><<");
    const ConversionOutcome outcome = ConvertFiles(ImportRequest(xml, folder_ / "out"));
    EXPECT_EQ(outcome.result, kUnexpectedError);
    EXPECT_EQ(outcome.stop.line, 2u);
    EXPECT_FALSE(outcome.outputLost);
}

TEST_F(Console, ALostOutputIsAFailure)
{
    const std::string xml = folder_.Write("a.xml", kFutureXML);
    for (const std::string& output : {std::string("/dev/full"), folder_ / "none/a.vlproj"}) {
        const ConversionOutcome outcome = ConvertFiles(ImportRequest(xml, output));
        EXPECT_EQ(outcome.result, kUnexpectedError) << output;
        EXPECT_TRUE(outcome.outputLost) << output;
        EXPECT_EQ(outcome.account.issues.size(), 1u) << output; // the conversion ran all the same
    }
    const std::string project = folder_.Write("a.vlproj", kSmallProject);
    EXPECT_TRUE(ConvertFiles(ExportRequest(project, folder_ / "none/a.xml")).outputLost);
    EXPECT_EQ(ConvertFiles(ExportRequest(folder_.Path(), folder_ / "b.xml")).result,
              kInputCouldNotBeOpened);
    EXPECT_EQ(folder_.FileCount(), 2u);
}

TEST_F(Console, TheInputIsNeverReplaced)
{
    const std::string xml = folder_.Write("a.xml", kSmallXML);
    const std::string project = folder_.Write("a.vlproj", kSmallProject);
    const std::string link = folder_ / "link";
    ASSERT_EQ(::symlink(xml.c_str(), link.c_str()), 0);
    EXPECT_EQ(ConvertFile(ImportRequest(xml, xml), out_), kUnexpectedError);
    EXPECT_EQ(ConvertFile(ImportRequest(xml, folder_ / "./a.xml"), out_), kUnexpectedError);
    EXPECT_EQ(ConvertFile(ImportRequest(xml, link), out_), kUnexpectedError);
    EXPECT_EQ(ConvertFile(ExportRequest(project, project), out_), kUnexpectedError);
    EXPECT_EQ(TempFolder::Read(xml), kSmallXML);
    EXPECT_EQ(TempFolder::Read(project), kSmallProject);
    EXPECT_EQ(ConvertFiles(ImportRequest(xml, xml)).stop.reason,
              "input and output are the same file");
}

TEST_F(Console, ALossHasAReason)
{
    const std::string xml = folder_.Write("a.xml", kSmallXML);
    EXPECT_EQ(ConvertFiles(ImportRequest(xml, "/dev/full")).lossReason, "No space left on device");
    EXPECT_EQ(ConvertFiles(ImportRequest(xml, folder_ / "none/a")).lossReason,
              "No such file or directory");
    EXPECT_EQ(ConvertFiles(ExportRequest(folder_ / "none", folder_ / "b")).stop.reason,
              "No such file or directory");
}

// The audio hand-off is what the caller requests, or what the document states.
TEST_F(Console, NoticesTheHandOff)
{
    const std::string xml = folder_.Write("a.xml", kHandOffFutureXML);
    const std::string project = folder_ / "a.vlproj";
    const struct {
        std::optional<bool> mode;
        bool isHandOff;
    } rows[] = {{std::nullopt, true}, {false, false}, {true, true}};
    for (const auto& [mode, isHandOff] : rows) {
        const ConversionOutcome outcome =
            ConvertFiles({.inputPath = xml, .outputPath = project, .handOff = mode});
        EXPECT_EQ(TempFolder::Read(project).starts_with("__Sn2Vl__\n"), isHandOff);
        EXPECT_EQ(outcome.reportPath.empty(), isHandOff);
    }
}

TEST_F(Console, AnUnlistedReportIsWrittenAllTheSame)
{
    const std::string xml = folder_.Write("a.xml", kFutureXML);
    const std::string project = folder_ / "a.vlproj";
    for (const bool listsReport : {true, false}) {
        const ConversionOutcome outcome =
            ConvertFiles({.inputPath = xml, .outputPath = project, .listsReport = listsReport});
        EXPECT_TRUE(FileExists(outcome.reportPath));
        EXPECT_EQ(TempFolder::Read(project).find("FileProjectItem") != std::string::npos,
                  listsReport);
    }
}

TEST_F(Console, AMissingSequenceIsAnError)
{
    const std::string project = folder_.Write("a.vlproj", kFutureProject);
    ConversionRequest request = ExportRequest(project, folder_ / "a.xml");
    request.sequenceGuid = StringToGUID("12345678-1234-1234-1234-123456789abc");
    const ConversionOutcome outcome = ConvertFiles(request);
    EXPECT_EQ(outcome.result, kNoFCPDataFound);
    EXPECT_TRUE(outcome.lacksSequence);
    EXPECT_EQ(folder_.FileCount(), 1u); // no output, no report
}

TEST_F(Console, InvalidBytesAreIssuesInBothDirections)
{
    std::string xml = kSmallXML;
    xml.replace(xml.find("Rushes"), 6, "R\xF4shes");
    const ConversionOutcome import =
        ConvertFiles(ImportRequest(folder_.Write("a.xml", xml), folder_ / "a"));
    EXPECT_EQ(
        IssueReportText(import.account.issues, Direction::Import),
        "Translation issue:\r\n\tBytes that mean nothing in the encoding UTF-8 were replaced, "
        "at line 3, column 69.\r\n");
    EXPECT_NE(TempFolder::Read(folder_ / "a").find("R\xEF\xBF\xBDshes"), std::string::npos);

    std::string project = "<?xml version=\"1.0\" encoding=\"Enigma\"?>";
    project.append(kSmallProject).append("\n\xF4 \xF4 \xF4");
    const ConversionOutcome back =
        ConvertFiles(ExportRequest(folder_.Write("b", project), folder_ / "b.xml"));
    EXPECT_EQ(
        IssueReportText(back.account.issues, Direction::Export),
        "Translation issue:\r\n\tEncoding (Enigma) is not one we recognize, the document was "
        "read as UTF-8.\r\n"
        "Translation issue:\r\n\tBytes that mean nothing in the encoding UTF-8 were replaced, "
        "at line 2, column 1 and 2 more places.\r\n");
}

TEST_F(Console, AWaitForAPipeCanBeStopped)
{
    const std::string pipe = folder_ / "pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    const std::string xml = folder_.Write("a.xml", kSmallXML);
    const std::string project = folder_.Write("a.vlproj", kSmallProject);
    const auto watch = [](int& looks) {
        return ProgressWatch{.wantsStop = [&looks] { return ++looks > 2; }};
    };
    int looks = 0;
    EXPECT_EQ(ConvertFiles(ImportRequest(pipe, folder_ / "new"), watch(looks)).result, kAborted);
    looks = 0;
    EXPECT_EQ(ConvertFiles(ExportRequest(pipe, folder_ / "new"), watch(looks)).result, kAborted);
    looks = 0;
    EXPECT_EQ(ConvertFiles(ImportRequest(xml, pipe), watch(looks)).result, kAborted);
    looks = 0;
    EXPECT_EQ(ConvertFiles(ExportRequest(project, pipe), watch(looks)).result, kAborted);
    EXPECT_EQ(folder_.FileCount(), 3u);
}

TEST_F(Console, TheHandOffIsAnnounced)
{
    const std::string project = folder_.Write("a.vlproj", kSmallProject);
    EXPECT_EQ(ConvertByExtension(
                  {.inputPath = project, .outputPath = folder_ / "a.xml", .handOff = true}, out_),
              kSuccess);
    EXPECT_EQ(Printed(), "Processing for Sonara consumption...\n");
}

} // namespace
} // namespace XPJ
