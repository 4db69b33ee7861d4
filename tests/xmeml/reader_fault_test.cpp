#include "support/reader_test_support.h"
#include "support/temp_folder.h"
#include "support/test_progress.h"

#include <chrono>

namespace XPJ {
namespace {

std::string NestedBins(int levels, const std::string& core)
{
    std::string text = "<xmeml>";
    for (int i = 0; i < levels; ++i)
        text += i % 2 == 0 ? "<bin>" : "<children>";
    text += core;
    for (int i = levels - 1; i >= 0; --i)
        text += i % 2 == 0 ? "</bin>" : "</children>";
    return text + "</xmeml>";
}

TEST(ReaderFaults, SyntaxErrorsHaveALocation)
{
    const struct {
        const char* text;
        std::size_t line, column;
        const char* path;
    } kCases[] = {
        {"<xmeml><<clip/></xmeml>", 1, 9, "xmeml"},
        {"<xmeml>\n<bin>\n  <name>a<<b</name>", 3, 11, "xmeml/bin/name"},
        {"<xmeml>\r\n<bin>\r\r<children>< ><x", 4, 14, "xmeml/bin/children"},
        {"< <", 1, 3, ""},
    };
    for (const auto& row : kCases) {
        Document document;
        ObjectHandle root;
        ReadStop stop;
        EXPECT_EQ(ParseFCPXML(row.text, document, root, &stop), kReadSyntax) << row.text;
        EXPECT_FALSE(root);
        EXPECT_EQ(stop.reason, "a second \"<\" where an element name should start");
        EXPECT_EQ(stop.line, row.line) << row.text;
        EXPECT_EQ(stop.column, row.column) << row.text;
        EXPECT_EQ(stop.path, row.path) << row.text;
        EXPECT_EQ(std::string_view(row.text)[stop.offset], '<') << row.text;
    }
}

TEST(ReaderFaults, TruncatedInputHasAReason)
{
    const struct {
        const char* text;
        const char* path;
    } kCases[] = {
        {"<xmeml><bin></bin></xmeml>", nullptr},
        {"<xmeml><bin><children></bin>\n", "xmeml/bin/children"},
        {"<xmeml><bin><name>Ru", "xmeml/bin"},
    };
    for (const auto& row : kCases) {
        Document document;
        ObjectHandle root;
        ReadStop stop;
        EXPECT_EQ(ParseFCPXML(row.text, document, root, &stop), kReadDone) << row.text;
        EXPECT_TRUE(root) << row.text;
        EXPECT_EQ(stop.reason, row.path ? "the document ends inside an element" : "") << row.text;
        EXPECT_EQ(stop.path, row.path ? row.path : "") << row.text;
    }
}

TEST(ReaderFaults, NestingHasALimit)
{
    Document document;
    ObjectHandle root;
    ReadStop stop;
    // `xmeml` is the first level.
    const std::string deep = NestedBins(kMaxNesting - 1, "<name>N</name>");
    EXPECT_EQ(ParseFCPXML(deep, document, root, &stop), kReadDone);
    const std::string deeper = NestedBins(kMaxNesting, "");
    EXPECT_EQ(ParseFCPXML(deeper, document, root, &stop), kReadSyntax);
    EXPECT_EQ(stop.reason, "elements nested more than 1000 levels deep");
    EXPECT_EQ(stop.path, "xmeml/bin/children/bin/children/bin/children/bin/.../children/bin/"
                         "children/bin/children/bin/children/bin");
    // Unknown elements are no level.
    std::string unknown = "<xmeml>";
    for (int i = 0; i < 5000; ++i)
        unknown += "<x>";
    EXPECT_EQ(ParseFCPXML(unknown, document, root, &stop), kReadDone);
}

TEST(ReaderFaults, InputsThatCannotBeRead)
{
    const struct {
        std::string path;
        const char* reason;
    } kCases[] = {
        {testing::TempDir() + "no/such/file", "No such file or directory"},
        {testing::TempDir(), "Is a directory"},
        {"", "No such file or directory"},
    };
    for (const auto& row : kCases) {
        Document document;
        ObjectHandle root;
        TestProgress progress;
        XmemlReadNotes notes;
        EXPECT_EQ(ReadFCPXML(row.path, progress, document, root, &notes), kReadNoInput);
        EXPECT_EQ(notes.stop.reason, row.reason);
        EXPECT_TRUE(progress.totals.empty());
    }
    Document document;
    ObjectHandle root;
    std::istringstream stream;
    stream.setstate(std::ios::badbit);
    EXPECT_EQ(ReadProjectDocument(stream, document, root), kReadNoInput);
}

TEST(ReaderFaults, DocumentsWithoutTheirElement)
{
    Document document;
    ObjectHandle root;
    ReadStop stop;
    for (const char* text : {"", "text", "<clip/>", "<XMEML/>", "</root><xmeml/>"}) {
        EXPECT_EQ(ParseFCPXML(text, document, root, &stop), kReadNoElement) << text;
        EXPECT_EQ(stop.reason, "no element \"xmeml\"");
    }
    std::istringstream stream("<xmeml/>");
    XmemlReadNotes notes;
    EXPECT_EQ(ReadProjectDocument(stream, document, root, &notes), kReadNoElement);
    EXPECT_EQ(notes.stop.reason, "no element \"VelaData\"");
}

// Each comes in, and is parsed.
TEST(ReaderFaults, ProgressIsTwoStepsAKilobyte)
{
    const std::string text =
        "<xmeml><bin><name>" + std::string(5000, 'x') + "</name></bin></xmeml>";
    const TempFolder folder;
    const std::string path = folder.Write("long.xml", text);
    const auto job = [&path](Progress& progress) {
        Document document;
        ObjectHandle root;
        const int result = ReadFCPXML(path, progress, document, root);
        EXPECT_EQ(root.GetChild("bin").GetProperty("name").size(), result == kReadDone ? 5000u : 0);
        return result;
    };
    const TestProgress whole = ExpectStopsAtEachCheck(job, kReadDone, kReadCancelled);
    EXPECT_GE(whole.checks, 6u);
    EXPECT_EQ(whole.totals, std::vector<unsigned>{10});
    EXPECT_EQ(whole.advanced, 10u);
}

TEST(ReaderFaults, EmptyFileHasNoStage)
{
    const TempFolder folder;
    Document document;
    ObjectHandle root;
    TestProgress progress;
    EXPECT_EQ(ReadFCPXML(folder.Write("empty.xml", ""), progress, document, root), kReadNoElement);
    EXPECT_TRUE(progress.totals.empty());
}

// Many elements of one id, or many runs of one text, cost no more each than the first.
TEST(ReaderFaults, NothingIsQuadratic)
{
    std::string text = "<xmeml>";
    for (int i = 0; i < 20000; ++i)
        text += "<clip id=\"c\"><rate/></clip>";
    text += "<sequence><filter><effect><parameter><value>";
    for (int i = 0; i < 200000; ++i)
        text += "abc<x/>";
    text += "</value></parameter></effect></filter></sequence></xmeml>";
    Document document;
    ObjectHandle root;
    testing::internal::CaptureStdout();
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(ParseFCPXML(text, document, root), kReadDone);
    const auto duration = std::chrono::steady_clock::now() - start;
    testing::internal::GetCapturedStdout();
    EXPECT_LT(duration, std::chrono::seconds(20));
    std::string last;
    for (const ObjectHandle& clip : root.GetChildren("clip"))
        last = clip.GetProperty("id");
    EXPECT_EQ(last, "c_19999");
    const ObjectHandle value =
        FindPath(root, {"sequence", "filter", "effect", "parameter", "value"});
    EXPECT_EQ(value.GetProperty("value").size(), 600000u);
}

} // namespace
} // namespace XPJ
