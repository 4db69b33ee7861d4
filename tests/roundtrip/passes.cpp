#include "roundtrip/passes.h"

#include "core/text.h"
#include "export/export_driver.h"
#include "frame/document_timelines.h"
#include "import/import_driver.h"
#include "project/reader.h"
#include "project/writer.h"
#include "support/golden.h"
#include "tree/reading.h"
#include "xmeml/reader.h"
#include "xmeml/writer.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string_view>

namespace XPJ {

namespace {

struct Source {
    std::string document;
    std::string text;
    bool isHandOff = false; // a document of the audio editor
    bool isGolden = false;
};

// Golden inputs are brief and state no paths; a file without a path has no media.
void PlaceFiles(ObjectHandle element, int depth = 0)
{
    constexpr int kDeepest = 100;
    if (element.GetName() == "file" && element.HasChild("media") && !HasValue(element, "pathurl") &&
        !HasValue(element, "mediaSource"))
        element.SetProperty("pathurl", "file://localhost/media/" +
                                           std::string(element.GetProperty("name")) + ".mov");
    if (depth < kDeepest)
        for (const ObjectHandle& child : element.GetChildren())
            PlaceFiles(child, depth + 1);
}

// Empty for a document that the import refuses.
std::string Import(const Source& source)
{
    SilentProgress progress;
    Document inputDocument;
    ObjectHandle root;
    if (ParseFCPXML(source.text, inputDocument, root) != kReadDone)
        return {};
    if (source.isGolden)
        PlaceFiles(root);
    ImportOptions options;
    options.inputPath = "/documents/case.xml";
    options.sn2vlMode = source.isHandOff;
    Document document;
    ObjectHandle project;
    IssueSet issues;
    if (ImportDocument(root, options, progress, document, issues, project) != kSuccess)
        return {};
    std::ostringstream text;
    WriteProjectDocument(project, progress, text, source.isHandOff);
    return text.str();
}

std::string Export(const std::string& project, bool isHandOff)
{
    SilentProgress progress;
    RVX::IdCounters ids; // so that every document counts from 1
    RVX::ExportOptions options;
    options.vl2snMode = isHandOff;
    options.ids = &ids;
    Document inputDocument;
    ObjectHandle root;
    std::istringstream input(project);
    EXPECT_EQ(ReadProjectDocument(input, inputDocument, root), kReadDone);
    Document document;
    ObjectHandle xmeml;
    IssueSet issues;
    EXPECT_EQ(RVX::TranslateProjectDocument(root, options, progress, document, issues, xmeml),
              kSuccess);
    std::ostringstream text;
    WriteFCPXML(xmeml, progress, isHandOff, text);
    return text.str();
}

Inspection::Project Timelines(const std::string& text)
{
    return ReadTimelines(text).project;
}

std::string TextOf(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<Source> Documents()
{
    std::vector<Source> sources;
    for (const std::filesystem::path& folder :
         {std::filesystem::path(VELA_SAMPLES), std::filesystem::path(VELA_TEST_DATA) / "roundtrip"})
        for (const auto& entry : std::filesystem::directory_iterator(folder))
            if (entry.path().extension() == ".xml")
                sources.push_back({entry.path().stem().string(), TextOf(entry.path())});
    for (const std::filesystem::path& path : GoldenCases("import")) {
        const GoldenSection input = ParseGoldenCase(TextOf(path)).sections.front();
        sources.push_back({path.stem().string(), input.text,
                           input.arguments.find("sn2vl") != std::string::npos, true});
    }
    std::ranges::sort(sources, {}, &Source::document);
    return sources;
}

} // namespace

std::vector<Passes> PassesOfAllDocuments()
{
    std::vector<Passes> all;
    for (const Source& source : Documents()) {
        SCOPED_TRACE(source.document);
        GoldenPlatform platform;
        const PlatformScope scope(platform);
        const std::string project = Import(source);
        if (project.empty())
            continue;
        const std::string xmeml = Export(project, source.isHandOff);
        const std::string returned = Import({source.document, xmeml, source.isHandOff, false});
        all.push_back({source.document, Timelines(project), Timelines(xmeml), Timelines(returned),
                       Timelines(Export(returned, source.isHandOff))});
    }
    return all;
}

} // namespace XPJ
