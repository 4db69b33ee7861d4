// Prints, from one run: the speed of reading, writing and importing beside expat and pugixml on the
// same bytes, the peak memory, the growth from n to 4n, and the time of the tool on a small file.
//
//   bench_ratios [--sizes 6,60,180] [--rounds 5] [--tool path/to/xpjconvert]
#include "bench/generator.h"
#include "bench/jobs.h"
#include "bench/looks.h"
#include "bench/measure.h"
#include "bench/project_tree.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <string_view>

#include <unistd.h>

namespace XPJ::Bench {

namespace {

constexpr double kMegabyte = 1e6;

struct Settings {
    std::vector<int> sizes = {6, 60, 180};
    int rounds = 5;
    std::string tool;
    std::string directory;
};

enum Job {
    kSax,
    kPugixmlLoad,
    kRead,
    kTranslate,
    kPugixmlSave,
    kWrite,
    kImport,
    kSaxProject,
    kReadProject,
    kExport,
    kJobCount,
};

struct JobRow {
    std::string_view name;
    Job peer;         // the time it is held against
    bool showsMemory; // a stage's child holds more than the stage's own memory
    void (*run)(const std::string& path, Stopwatch& watch);
};

void RunSax(const std::string& path, Stopwatch& watch)
{
    const std::string text = LoadFile(path);
    watch.Time([&] { SaxParse(text); });
    watch.SetBytes(text.size());
}

void RunPugixmlLoad(const std::string& path, Stopwatch& watch)
{
    const std::string text = LoadFile(path);
    pugi::xml_document document;
    watch.Time([&] { LoadPugixml(text, document); });
    watch.SetBytes(text.size());
}

void RunRead(const std::string& path, Stopwatch& watch)
{
    Document document;
    watch.Time([&] { ReadXmemlFile(path, document); });
    watch.SetBytes(std::filesystem::file_size(path));
}

void RunTranslate(const std::string& path, Stopwatch& watch)
{
    Document input;
    Document output;
    const ObjectHandle root = ReadXmemlFile(path, input);
    watch.Time([&] { Translate(root, path, output); });
    watch.SetBytes(std::filesystem::file_size(path));
}

void RunPugixmlSave(const std::string& path, Stopwatch& watch)
{
    Document document;
    pugi::xml_document copy;
    LoadPugixml(ProjectText(MakeProjectTree(document, std::filesystem::file_size(path))), copy);
    std::size_t bytes = 0;
    watch.Time([&] { bytes = SavePugixml(copy); });
    watch.SetBytes(bytes);
}

void RunWrite(const std::string& path, Stopwatch& watch)
{
    Document document;
    const ObjectHandle project = MakeProjectTree(document, std::filesystem::file_size(path));
    std::size_t bytes = 0;
    watch.Time([&] { bytes = WriteProject(project); });
    watch.SetBytes(bytes);
}

void RunImport(const std::string& path, Stopwatch& watch)
{
    watch.Time([&] { Import(path); });
    watch.SetBytes(std::filesystem::file_size(path));
}

// Next to a document is the project that the import makes of it.
std::string ProjectPath(const std::string& path)
{
    return path + ".vlproj";
}

void RunSaxProject(const std::string& path, Stopwatch& watch)
{
    RunSax(ProjectPath(path), watch);
}

void RunReadProject(const std::string& path, Stopwatch& watch)
{
    Document document;
    watch.Time([&] { ReadProjectFile(ProjectPath(path), document); });
    watch.SetBytes(std::filesystem::file_size(ProjectPath(path)));
}

void RunExport(const std::string& path, Stopwatch& watch)
{
    watch.Time([&] { Export(ProjectPath(path)); });
    watch.SetBytes(std::filesystem::file_size(ProjectPath(path)));
}

constexpr std::array<JobRow, kJobCount> kJobs = {{
    {"expat SAX parse", kSax, true, RunSax},
    {"pugixml load", kSax, true, RunPugixmlLoad},
    {"read xmeml", kSax, true, RunRead},
    {"translate", kSax, false, RunTranslate},
    {"pugixml save project", kPugixmlSave, false, RunPugixmlSave},
    {"write project", kPugixmlSave, false, RunWrite},
    {"import, whole", kSax, true, RunImport},
    {"expat SAX, project", kSaxProject, true, RunSaxProject},
    {"read project", kSaxProject, true, RunReadProject},
    {"export, whole", kSaxProject, true, RunExport},
}};

using Results = std::array<Measurement, kJobCount>;

Measurement MeasureJob(Job job, const std::string& path)
{
    return MeasureInChild([&](Stopwatch& watch) { kJobs[job].run(path, watch); });
}

// The fastest of the rounds; the jobs take turns, so that a busy minute strikes all alike.
Results MeasureAll(const std::string& path, int rounds)
{
    Results best;
    for (int round = 0; round < rounds; ++round)
        for (int job = 0; job < kJobCount; ++job) {
            const Measurement result = MeasureJob(static_cast<Job>(job), path);
            Measurement& kept = best[static_cast<std::size_t>(job)];
            if (result.isDone && (!kept.isDone || result.seconds < kept.seconds))
                kept = result;
        }
    return best;
}

double BestSeconds(Job job, const std::string& path, int rounds)
{
    double best = -1;
    for (int round = 0; round < rounds; ++round) {
        const Measurement result = MeasureJob(job, path);
        if (result.isDone && (best < 0 || result.seconds < best))
            best = result.seconds;
    }
    return best;
}

// A document and its project on disk, made in a child so that this process stays small: a child's
// peak memory begins with what its parent holds.
class DocumentFile {
public:
    DocumentFile(const Settings& settings, const DocumentOptions& options)
        : path_(fmt::format("{}/vela_bench_{}.xml", settings.directory, getpid()))
    {
        MeasureInChild([&](Stopwatch&) { SaveFile(path_, MakeDocument(options)); });
        MeasureInChild([&](Stopwatch&) {
            Document input;
            Document output;
            SaveFile(ProjectPath(path_),
                     ProjectText(Translate(ReadXmemlFile(path_, input), path_, output)));
        });
    }
    ~DocumentFile()
    {
        std::filesystem::remove(path_);
        std::filesystem::remove(ProjectPath(path_));
    }
    DocumentFile(const DocumentFile&) = delete;
    DocumentFile& operator=(const DocumentFile&) = delete;
    const std::string& Path() const { return path_; }
    double Bytes() const { return static_cast<double>(std::filesystem::file_size(path_)); }

private:
    std::string path_;
};

void PrintSize(int megabytes, const Results& results, double fileBytes)
{
    fmt::print("\n{} MB document\n{:<22}{:>8}{:>10}{:>9}   {:<26}{:>12}\n", megabytes, "work", "MB",
               "ms", "MB/s", "time, as a share of", "peak/input");
    for (std::size_t i = 0; i < kJobs.size(); ++i) {
        const JobRow& row = kJobs[i];
        const Measurement& result = results[i];
        if (!result.isDone) {
            fmt::print("{:<22}failed\n", row.name);
            continue;
        }
        const double size = static_cast<double>(result.bytes) / kMegabyte;
        const double input =
            row.peer == kSaxProject ? static_cast<double>(result.bytes) : fileBytes;
        const double ratio = result.seconds / results[row.peer].seconds;
        const std::string memory =
            row.showsMemory ? fmt::format("{:.2f}", static_cast<double>(result.peakMemory) / input)
                            : "";
        fmt::print("{:<22}{:>8.1f}{:>10.1f}{:>9.0f}   {:<26}{:>12}\n", row.name, size,
                   result.seconds * 1e3, size / result.seconds,
                   fmt::format("{:.2f} x {}", ratio, kJobs[row.peer].name), memory);
    }
}

struct GrowthRow {
    std::string_view name;
    DocumentOptions small;
    DocumentOptions large; // four times the small one
};

constexpr GrowthRow kGrowth[] = {
    {"mix, 15 -> 60 MB", {.bytes = 15'000'000}, {.bytes = 60'000'000}},
    {"one bin, 5000 -> 20000 clips",
     {.shape = Shape::WideBin, .bytes = 0, .count = 5000},
     {.shape = Shape::WideBin, .bytes = 0, .count = 20000}},
    {"one track, 12500 -> 50000 items",
     {.shape = Shape::LongTrack, .bytes = 0, .count = 12500},
     {.shape = Shape::LongTrack, .bytes = 0, .count = 50000}},
    {"nested sequences, 1250 -> 5000",
     {.shape = Shape::NestedSequences, .bytes = 0, .count = 1250},
     {.shape = Shape::NestedSequences, .bytes = 0, .count = 5000}},
    {"chain of sequences, 1250 -> 5000",
     {.shape = Shape::SequenceChain, .bytes = 0, .count = 1250},
     {.shape = Shape::SequenceChain, .bytes = 0, .count = 5000}},
    {"merged clips, 500 -> 2000",
     {.shape = Shape::MergedClips, .bytes = 0, .count = 500},
     {.shape = Shape::MergedClips, .bytes = 0, .count = 2000}},
};

void PrintGrowth(const Settings& settings, Job job)
{
    fmt::print("\nGrowth of the {} from n to 4n (1.00 is in proportion to the size)\n"
               "{:<34}{:>10}{:>10}{:>10}{:>10}{:>16}\n",
               job == kImport ? "import" : "export", "document", "n, MB", "ms", "4n, MB", "ms",
               "time per byte");
    for (const GrowthRow& row : kGrowth) {
        double bytes[2];
        double seconds[2];
        for (int i = 0; i < 2; ++i) {
            const DocumentFile file(settings, i == 0 ? row.small : row.large);
            bytes[i] = file.Bytes();
            seconds[i] = BestSeconds(job, file.Path(), std::min(settings.rounds, 3));
        }
        if (seconds[0] < 0 || seconds[1] < 0) {
            fmt::print("{:<34}failed\n", row.name);
            continue;
        }
        fmt::print("{:<34}{:>10.1f}{:>10.1f}{:>10.1f}{:>10.1f}{:>16.2f}\n", row.name,
                   bytes[0] / kMegabyte, seconds[0] * 1e3, bytes[1] / kMegabyte, seconds[1] * 1e3,
                   seconds[1] / bytes[1] / (seconds[0] / bytes[0]));
    }
}

void PrintStart(const Settings& settings)
{
    constexpr int kRuns = 20;
    if (settings.tool.empty() || !std::filesystem::exists(settings.tool))
        return;
    const DocumentFile file(settings, {.bytes = 100'000});
    // Also takes the report, which would go to the user's documents otherwise.
    const std::string folder = file.Path() + ".out";
    std::filesystem::create_directory(folder);
    std::vector<double> times(kRuns);
    for (double& time : times)
        time = TimeProgram(
            {settings.tool, "--report-dir", folder, file.Path(), folder + "/out.vlproj"});
    std::filesystem::remove_all(folder);
    std::sort(times.begin(), times.end());
    if (times.front() < 0) {
        fmt::print("\nxpjconvert: failed\n");
        return;
    }
    fmt::print("\nxpjconvert, {:.0f} KB document, process start included: median of {} runs "
               "{:.1f} ms, fastest {:.1f} ms\n",
               file.Bytes() / 1e3, kRuns, times[kRuns / 2] * 1e3, times.front() * 1e3);
}

void PrintRatios(const Settings& settings)
{
    fmt::print("Processor time of the fastest of {} rounds; each measurement is a process of its "
               "own.\n",
               settings.rounds);
    for (const int megabytes : settings.sizes) {
        const DocumentFile file(settings,
                                {.bytes = static_cast<std::size_t>(megabytes) * 1'000'000});
        PrintSize(megabytes, MeasureAll(file.Path(), settings.rounds), file.Bytes());
    }
    PrintGrowth(settings, kImport);
    PrintGrowth(settings, kExport);
    PrintLooks(settings.rounds);
    PrintStart(settings);
}

} // namespace

} // namespace XPJ::Bench

int main(int argc, char** argv)
{
    XPJ::Bench::Settings settings;
    // Memory, where there is such a folder, so that no disk is measured.
    settings.directory = std::filesystem::exists("/dev/shm")
                             ? "/dev/shm"
                             : std::filesystem::temp_directory_path().string();
    CLI::App app("Speed and memory beside expat and pugixml");
    app.add_option("--sizes", settings.sizes, "MB, with commas between")->delimiter(',');
    app.add_option("--rounds", settings.rounds)->check(CLI::Range(1, 100));
    app.add_option("--tool", settings.tool, "the command line tool");
    app.add_option("--directory", settings.directory, "for the documents");
    CLI11_PARSE(app, argc, argv);
    XPJ::Bench::PrintRatios(settings);
    return 0;
}
