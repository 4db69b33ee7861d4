#include "roundtrip/passes.h"

#include "core/text.h"
#include "frame/document_timelines.h"
#include "support/export_text.h"
#include "support/golden.h"
#include "support/import_text.h"
#include "xmeml/reader.h"

#include <algorithm>
#include <fstream>
#include <iterator>

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
    Document document;
    ObjectHandle root;
    if (ParseFCPXML(source.text, document, root) != kReadDone)
        return {};
    if (source.isGolden)
        PlaceFiles(root);
    ImportOptions options;
    options.inputPath = "/documents/case.xml";
    options.sn2vlMode = source.isHandOff;
    return ImportTree(root, options).project;
}

std::string Export(const std::string& project, bool isHandOff)
{
    RVX::IdCounters ids; // so that every document counts from 1
    RVX::ExportOptions options;
    options.vl2snMode = isHandOff;
    options.ids = &ids;
    const RVX::Exported exported = RVX::ExportText(project, options);
    EXPECT_FALSE(exported.xmeml.empty()) << FailureText(exported.read, exported.result);
    return exported.xmeml;
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
