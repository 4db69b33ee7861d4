#include "core/conversion_result.h"
#include "frame/entry.h"
#include "frame/user_messages.h"
#include "frame_test_support.h"
#include "platform/files.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace XPJ {
namespace {

constexpr char kReportName[] = "FCP Translation Results 2016-01-02 03-04.txt";

class Entry : public testing::Test {
protected:
    std::int32_t Import(TestHost& host, bool showUI = true)
    {
        ConverterContext context = host.Context();
        context.showUI = showUI;
        return xProjectConverterEntry(kVelaSelectorImport, &context);
    }
    std::int32_t Export(TestHost& host, bool showUI = true)
    {
        ConverterContext context = host.Context();
        context.showUI = showUI;
        return xProjectConverterEntry(kVelaSelectorExport, &context);
    }

    TempFolder reports_;
    TempFolder folder_;
    TestPlatform platform_{reports_};
    PlatformScope scope_{platform_};
};

TEST_F(Entry, FillsTheTableAndTouchesNothingElse)
{
    VelaFileTypeTable table;
    std::memset(&table, 0xAA, sizeof(table));
    ASSERT_EQ(xProjectConverterEntry(kVelaSelectorStartUp, &table), 0);
    EXPECT_EQ(table.records[0].canImport, 1);
    EXPECT_EQ(table.records[0].canExport, 0xAA);
    EXPECT_EQ(std::u16string(table.records[0].filterName), u"FCP XML (*.xml)");
    EXPECT_EQ(table.records[0].filterName[16], 0xAAAA);
    EXPECT_EQ(std::u16string(table.records[0].extension), u"*.xml");
    EXPECT_EQ(std::u16string(table.records[0].description), u"FCP XML Interchange Format");
    EXPECT_EQ(table.records[1].canImport, 0);
    EXPECT_EQ(table.records[1].canExport, 1);
    EXPECT_EQ(std::u16string(table.records[1].filterName), u"Final Cut Pro XML");
    EXPECT_EQ(std::u16string(table.records[1].extension), u"*.xml");
    EXPECT_EQ(std::u16string(table.records[1].description), u"Final Cut Pro XML");
    EXPECT_EQ(table.records[2].canImport, 0);
    EXPECT_EQ(table.records[2].canExport, 0xAA);

    EXPECT_EQ(platform_.runningServices, 1);
    EXPECT_EQ(xProjectConverterEntry(kVelaSelectorShutDown, &table), 0);
    EXPECT_EQ(xProjectConverterEntry(kVelaSelectorShutDown, nullptr), 0);
    EXPECT_EQ(platform_.runningServices, 0);
}

TEST_F(Entry, RefusesWrongCalls)
{
    EXPECT_EQ(xProjectConverterEntry(kVelaSelectorStartUp, nullptr), -2);
    EXPECT_EQ(platform_.runningServices, 0);
    EXPECT_EQ(xProjectConverterEntry(kVelaSelectorImport, nullptr), -1000);
    EXPECT_EQ(xProjectConverterEntry(kVelaSelectorExport, nullptr), -1000);
    for (const int selector : {-1, 1, 3, 5, 6, 8, 1 << 30})
        EXPECT_EQ(xProjectConverterEntryWithAAFSupport(selector, nullptr, 1), 3) << selector;
}

TEST_F(Entry, ImportsThroughTheSuite)
{
    TestHost host(folder_.Write("a.xml", kSmallXML));
    EXPECT_EQ(Import(host), 0);
    EXPECT_NE(host.project.find("<VelaData"), std::string::npos);
    EXPECT_NE(host.project.find("</VelaData>"), std::string::npos);
    EXPECT_EQ(host.acquired, 0);
    EXPECT_TRUE(platform_.boxes.empty());
    EXPECT_EQ(reports_.FileCount(), 0u);
}

TEST_F(Entry, AnImportWithIssuesEndsWithAReport)
{
    TestHost host(folder_.Write("a.xml", kFutureXML));
    EXPECT_EQ(Import(host), 0);
    const std::string report = TempFolder::Read(reports_ / kReportName);
    EXPECT_EQ(report, "Translation issue:\r\n\tFCP XML xmeml version (9) is not one we recognize "
                      "(1-5), results may not be predictable.\r\n");
    EXPECT_NE(host.project.find("<Name>" + std::string(kReportName) + "</Name>"),
              std::string::npos);
    EXPECT_EQ(platform_.boxes,
              std::vector<std::string>{
                  "Translation Report|Please check the FCP Translation Results report (added to "
                  "the main bin) for possible issues encountered during translation.|OK"});

    TestHost quiet(folder_ / "a.xml");
    EXPECT_EQ(Import(quiet, false), 0);
    EXPECT_EQ(platform_.boxes.size(), 1u);

    TestHost handOff(folder_.Write("h.xml", kHandOffFutureXML));
    EXPECT_EQ(Import(handOff), 0);
    EXPECT_EQ(platform_.boxes.size(), 1u);
    EXPECT_EQ(reports_.FileCount(), 2u);
}

TEST_F(Entry, AFailedImportIsSilent)
{
    for (const char* text :
         {"", "plain text", "<xmeml version=\"4\"><effect>",
          "<!DOCTYPE xmeml><xmeml version=\"4\"></xmeml>", "<xmeml version=\"4\"><project><<"}) {
        TestHost host(folder_.Write("a.xml", text));
        EXPECT_EQ(Import(host), -7000) << text;
        EXPECT_EQ(host.project, "") << text;
        EXPECT_EQ(host.acquired, 0) << text;
    }
    TestHost missing(folder_ / "none.xml");
    EXPECT_EQ(Import(missing), -7000);
    ConverterContext context = missing.Context();
    context.path = nullptr;
    EXPECT_EQ(xProjectConverterEntry(kVelaSelectorImport, &context), -7000);
    EXPECT_TRUE(platform_.boxes.empty());
}

TEST_F(Entry, TheSuiteMustBeThere)
{
    const std::string xml = folder_.Write("a.xml", kSmallXML);
    const struct {
        std::int32_t code;
        void (*spoil)(TestHost& host, ConverterContext& context);
    } rows[] = {
        {0, [](TestHost&, ConverterContext&) {}},
        {-2000, [](TestHost&, ConverterContext& c) { c.basicSuiteSource = nullptr; }},
        {-3000, [](TestHost& h, ConverterContext&) { h.givesBasicSuite = false; }},
        {-4000, [](TestHost& h, ConverterContext&) { h.acquireResult = 1; }},
        {-5000, [](TestHost& h, ConverterContext&) { h.givesSuite = false; }},
    };
    for (const auto& [code, spoil] : rows) {
        TestHost importHost(xml);
        ConverterContext context = importHost.Context();
        spoil(importHost, context);
        EXPECT_EQ(xProjectConverterEntry(kVelaSelectorImport, &context), code);

        const std::string output = folder_ / "out.xml";
        TestHost exportHost(output, kSmallProject);
        context = exportHost.Context();
        spoil(exportHost, context);
        EXPECT_EQ(xProjectConverterEntry(kVelaSelectorExport, &context), code);
        EXPECT_EQ(FileExists(output), code == 0);
        std::filesystem::remove(output);
    }
    EXPECT_TRUE(platform_.boxes.empty());
}

TEST_F(Entry, AFailingStreamFunctionGivesMinusOne)
{
    TestHost reader(folder_.Write("a.xml", kSmallXML));
    reader.failAtCall = 3;
    EXPECT_EQ(Import(reader), -1);
    EXPECT_EQ(reader.calls, 3);
    EXPECT_EQ(reader.acquired, 0);

    const std::string output = folder_.Write("out.xml", "old");
    for (const int call : {1, 2}) {
        TestHost writer(output, kSmallProject);
        writer.failAtCall = call;
        EXPECT_EQ(Export(writer), -1) << call;
        EXPECT_EQ(writer.acquired, 0) << call;
        EXPECT_EQ(TempFolder::Read(output), "old") << call;
    }
    TestHost noBuffer(output, kSmallProject);
    noBuffer.SetBufferSize(0);
    EXPECT_EQ(Export(noBuffer), -1);
    EXPECT_EQ(folder_.FileCount(), 2u);
}

TEST_F(Entry, ExportsUnderADialog)
{
    const std::string output = folder_ / "final.xml";
    TestHost host(output, kSmallProject);
    EXPECT_EQ(Export(host), 0);
    const std::string text = TempFolder::Read(output);
    EXPECT_NE(text.find("<xmeml version=\"4\">"), std::string::npos);
    EXPECT_NE(text.find("<name>final</name>"), std::string::npos);
    EXPECT_EQ(platform_.dialogs, std::vector<std::string>{"Exporting FCP XML...|Cancel"});

    platform_.hasUserInterface = false;
    TestHost windowless(output, kSmallProject);
    EXPECT_EQ(Export(windowless), 0);
    platform_.hasUserInterface = true;
    TestHost quiet(output, kSmallProject);
    EXPECT_EQ(Export(quiet, false), 0);
    EXPECT_EQ(platform_.dialogs.size(), 1u);
}

TEST_F(Entry, AnExportWithIssuesEndsWithAReportBesideTheFile)
{
    TestHost host(folder_ / "a.xml", kFutureProject);
    EXPECT_EQ(Export(host), 0);
    EXPECT_EQ(TempFolder::Read(folder_ / kReportName),
              "Translation issue:\r\n\tVela Pro xml version (4) is not the version we were "
              "expecting (3), results may not be predictable.\r\n");
    EXPECT_EQ(platform_.boxes,
              std::vector<std::string>{
                  "Translation Report|Please check the FCP Translation Results report (saved next "
                  "to the xml file) for possible issues encountered during translation.|OK"});
    EXPECT_EQ(reports_.FileCount(), 0u);

    TestHost handOff(folder_ / "clip__Vl2Sn__final.xml", kFutureProject);
    EXPECT_EQ(Export(handOff), 0);
    EXPECT_TRUE(FileExists(folder_ / "final.xml"));
    EXPECT_EQ(folder_.FileCount(), 3u);
    EXPECT_EQ(platform_.boxes.size(), 1u);
    EXPECT_EQ(platform_.dialogs.size(), 1u);
}

TEST_F(Entry, AnExportThatFailsLeavesNoFile)
{
    for (const char* text : {"", "<VelaData Version=\"3\"></VelaData>", "<VelaData><<"}) {
        TestHost host(folder_ / "a.xml", text);
        EXPECT_EQ(Export(host), -7000) << text;
    }
    EXPECT_EQ(folder_.FileCount(), 0u);
    EXPECT_TRUE(platform_.boxes.empty());

    TestHost nowhere(folder_ / "none/a.xml", kSmallProject);
    EXPECT_EQ(Export(nowhere), -6000);
    EXPECT_EQ(nowhere.acquired, 0);
    EXPECT_EQ(platform_.boxes,
              std::vector<std::string>{"File Creation Failed|Cannot create file " +
                                       (folder_ / "none/a.xml") +
                                       ". Make sure you have write permissions for the target "
                                       "directory.|OK"});
    ConverterContext context = nowhere.Context();
    context.path = nullptr;
    EXPECT_EQ(xProjectConverterEntry(kVelaSelectorExport, &context), -6000);

    TestHost fullDisk("/dev/full", kSmallProject);
    EXPECT_EQ(Export(fullDisk), -7000);
}

TEST_F(Entry, ACancelledExportIsWaitedFor)
{
    platform_.cancelInDialog = true;
    std::string project = "<VelaData Version=\"3\"><Project ObjectRef=\"1\"/>";
    for (int i = 0; i < 100000; ++i)
        project += "<BinProjectItem ObjectUID=\"" + std::to_string(i) + "\"></BinProjectItem>";
    TestHost host(folder_ / "a.xml", project + "<Project ObjectID=\"1\"></Project></VelaData>");
    host.SetBufferSize(65536);
    EXPECT_EQ(Export(host), 1);
    EXPECT_EQ(folder_.FileCount(), 0u);
    EXPECT_TRUE(platform_.boxes.empty());
}

TEST_F(Entry, ImportFCPXMLWithATemplate)
{
    const std::string xml = folder_.Write("\xC3\xA9t\xC3\xA9.xml", kSmallXML);
    TestHost host("/nowhere");
    const ConverterContext contextTemplate = host.Context();
    EXPECT_EQ(importFCPXML(xml.c_str(), "/nowhere/out", &contextTemplate), 0);
    EXPECT_NE(host.project.find("</VelaData>"), std::string::npos);
    EXPECT_EQ(importFCPXML(nullptr, nullptr, &contextTemplate), -7000);
    EXPECT_EQ(contextTemplate.path, host.Context().path);
}

TEST_F(Entry, ImportFCPXMLWithoutATemplate)
{
    const std::string xml = folder_.Write("a.xml", kSmallXML);
    const std::string output = folder_ / "out.vlproj";
    EXPECT_EQ(importFCPXML(xml.c_str(), output.c_str(), nullptr), kSuccess);
    EXPECT_NE(TempFolder::Read(output).find("</VelaData>"), std::string::npos);
    EXPECT_EQ(importFCPXML((folder_ / "none.xml").c_str(), output.c_str(), nullptr),
              kInputCouldNotBeOpened);
}

class BrokenPlatform final : public DefaultPlatform {
public:
    std::u16string Localize(std::string_view) override { throw std::runtime_error("broken"); }
};

TEST_F(Entry, NoExceptionReachesTheHost)
{
    BrokenPlatform broken;
    const PlatformScope scope(broken);
    VelaFileTypeTable table;
    EXPECT_EQ(xProjectConverterEntry(kVelaSelectorStartUp, &table), -7000);
    TestHost host(folder_ / "none/.xml", kSmallProject); // its title is a message
    EXPECT_EQ(Export(host), -7000);
    EXPECT_EQ(host.acquired, 0);
}

TEST_F(Entry, ReportConversionResultKnowsEachResult)
{
    const struct {
        int result;
        const char* text;
    } rows[] = {
        {kAborted, "The operation was aborted."},
        {kNoFCPDataFound, "No FCP data found in input file."},
        {kOutOfMemory, "The converter ran out of memory."},
        {kInputCouldNotBeOpened, "The input file could not be opened."},
        {kUnexpectedError, "An unexpected error occurred."},
        {99, "An unexpected error occurred."},
    };
    for (const auto& [result, text] : rows) {
        platform_.boxes.clear();
        ReportConversionResult(result, true);
        EXPECT_EQ(platform_.boxes,
                  std::vector<std::string>{"FCP XML Import Failed|" + std::string(text) + "|OK"});
    }
    platform_.boxes.clear();
    ReportConversionResult(kNoXMELM, true);
    ReportConversionResult(kUnexpectedError, false);
    EXPECT_TRUE(platform_.boxes.empty());
}

} // namespace
} // namespace XPJ
