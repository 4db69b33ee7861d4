// Google Benchmark over reading, writing and importing, beside the peers on the same bytes.
// The argument of each benchmark is the document's size in MB.
#include "bench/generator.h"
#include "bench/jobs.h"
#include "bench/project_tree.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <map>

#include <unistd.h>

namespace XPJ::Bench {

namespace {

std::size_t Bytes(const benchmark::State& state)
{
    return static_cast<std::size_t>(state.range(0)) * 1'000'000;
}

const std::string& TextFor(const benchmark::State& state)
{
    static std::map<std::size_t, std::string> texts;
    std::string& text = texts[Bytes(state)];
    if (text.empty())
        text = MakeDocument({.bytes = Bytes(state)});
    return text;
}

// A document on disk, removed at the end of its block.
class DocumentFile {
public:
    explicit DocumentFile(std::string_view text)
        : path_(std::filesystem::temp_directory_path() /
                ("vela_bench_" + std::to_string(getpid()) + ".xml"))
    {
        SaveFile(path_, text);
    }
    ~DocumentFile() { std::remove(path_.c_str()); }
    DocumentFile(const DocumentFile&) = delete;
    DocumentFile& operator=(const DocumentFile&) = delete;
    const std::string& Path() const { return path_; }

private:
    std::string path_;
};

void SetBytes(benchmark::State& state, std::size_t bytes)
{
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                            static_cast<std::int64_t>(bytes));
}

void BM_ExpatSax(benchmark::State& state)
{
    const std::string& text = TextFor(state);
    while (state.KeepRunning())
        benchmark::DoNotOptimize(SaxParse(text));
    SetBytes(state, text.size());
}

void BM_PugixmlLoad(benchmark::State& state)
{
    const std::string& text = TextFor(state);
    while (state.KeepRunning()) {
        pugi::xml_document document;
        LoadPugixml(text, document);
    }
    SetBytes(state, text.size());
}

void BM_ReadXmeml(benchmark::State& state)
{
    const std::string& text = TextFor(state);
    while (state.KeepRunning()) {
        Document document;
        benchmark::DoNotOptimize(ReadXmeml(text, document));
    }
    SetBytes(state, text.size());
}

void BM_PugixmlSave(benchmark::State& state)
{
    Document document;
    pugi::xml_document copy;
    LoadPugixml(ProjectText(MakeProjectTree(document, Bytes(state))), copy);
    std::size_t bytes = 0;
    while (state.KeepRunning())
        bytes = SavePugixml(copy);
    SetBytes(state, bytes);
}

void BM_WriteProject(benchmark::State& state)
{
    Document document;
    const ObjectHandle project = MakeProjectTree(document, Bytes(state));
    std::size_t bytes = 0;
    while (state.KeepRunning())
        bytes = WriteProject(project);
    SetBytes(state, bytes);
}

void BM_Import(benchmark::State& state)
{
    const std::string& text = TextFor(state);
    const DocumentFile file(text);
    while (state.KeepRunning())
        benchmark::DoNotOptimize(Import(file.Path()));
    SetBytes(state, text.size());
}

void Sizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Arg(6)->Arg(60)->Arg(180)->Unit(benchmark::kMillisecond);
}

BENCHMARK(BM_ExpatSax)->Apply(Sizes);
BENCHMARK(BM_PugixmlLoad)->Apply(Sizes);
BENCHMARK(BM_ReadXmeml)->Apply(Sizes);
BENCHMARK(BM_PugixmlSave)->Apply(Sizes);
BENCHMARK(BM_WriteProject)->Apply(Sizes);
BENCHMARK(BM_Import)->Apply(Sizes);

} // namespace

} // namespace XPJ::Bench

BENCHMARK_MAIN();
