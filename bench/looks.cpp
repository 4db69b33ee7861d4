#include "bench/looks.h"

#include "bench/generator.h"
#include "bench/jobs.h"
#include "bench/measure.h"
#include "grading/look.h"

#include <cstdlib>
#include <functional>
#include <string>

#include <fmt/format.h>

namespace XPJ::Bench {

namespace {

constexpr int kPoints = 65;
constexpr std::size_t kSaxBytes = 25'000'000;
constexpr int kFewLayers = 500;
constexpr int kManyLayers = 4 * kFewLayers;

// A smooth curve, so that numbers are as long as programs write them.
std::string MakeCube()
{
    const auto bent = [](int step) {
        const double x = static_cast<double>(step) / (kPoints - 1);
        return x * (1.25 - 0.25 * x);
    };
    std::string text = fmt::format("TITLE \"bench\"\nLUT_3D_SIZE {}\n", kPoints);
    for (int blue = 0; blue < kPoints; ++blue)
        for (int green = 0; green < kPoints; ++green)
            for (int red = 0; red < kPoints; ++red)
                text += fmt::format("{:.6f} {:.6f} {:.6f}\n", bent(red), bent(green), bent(blue));
    return text;
}

std::string MakeLook(int layers)
{
    std::string text = "<Gradiva>\n<name>\"bench\"</name>\n<keyframe>\n<time>\"0\"</time>\n"
                       "<shader><name>\"__GroupBegin\"</name></shader>\n";
    for (int i = 0; i < layers; ++i)
        text += fmt::format("<shader>\n<name>\"BasicCorrection\"</name>\n"
                            "<customname>\"Layer {}\"</customname>\n<opacity>\"0.5\"</opacity>\n"
                            "<parameters>\n<Exposure>\"catmull-rom,value:{}@0\"</Exposure>\n"
                            "<Contrast>\"catmull-rom,value:1.25@0\"</Contrast>\n"
                            "</parameters>\n</shader>\n",
                            i, i % 7);
    return text + "</keyframe>\n</Gradiva>\n";
}

void ReadAndSerialize(const std::optional<CGrading>& grading)
{
    if (!grading || Serialize(*grading).empty())
        std::abort();
}

// Processor time of the fastest round, each in a process of its own.
Measurement Fastest(int rounds, const std::function<void(Stopwatch&)>& work)
{
    Measurement best;
    for (int round = 0; round < rounds; ++round) {
        const Measurement result = MeasureInChild(work);
        if (result.isDone && (!best.isDone || result.seconds < best.seconds))
            best = result;
    }
    return best;
}

Measurement MeasureLook(int rounds, int layers)
{
    return Fastest(rounds, [layers](Stopwatch& watch) {
        const std::string text = MakeLook(layers);
        watch.Time([&] { ReadAndSerialize(ReadLookDocument(text, "")); });
        watch.SetBytes(text.size());
    });
}

} // namespace

void PrintLooks(int rounds)
{
    const Measurement sax = Fastest(rounds, [](Stopwatch& watch) {
        const std::string text = MakeDocument({.bytes = kSaxBytes});
        watch.Time([&] { SaxParse(text); });
        watch.SetBytes(text.size());
    });
    const Measurement cube = Fastest(rounds, [](Stopwatch& watch) {
        const std::string text = MakeCube();
        watch.Time([&] { ReadAndSerialize(ReadLookupTable(text, "bench.cube")); });
        watch.SetBytes(text.size());
    });
    const Measurement few = MeasureLook(rounds, kFewLayers);
    const Measurement many = MeasureLook(rounds, kManyLayers);
    if (!sax.isDone || !cube.isDone || !few.isDone || !many.isDone) {
        fmt::print("\nlooks: failed\n");
        return;
    }
    fmt::print("\nLooks and tables, read and serialised\n"
               "{}-point .cube of {:.1f} MB: {:.1f} ms, {:.2f} x an expat SAX parse of {:.0f} MB "
               "({:.1f} ms)\n"
               "look of {} layers: {:.2f} ms; of {}: {:.2f} ms; time per layer {:.2f}\n",
               kPoints, static_cast<double>(cube.bytes) / 1e6, cube.seconds * 1e3,
               cube.seconds / sax.seconds, static_cast<double>(sax.bytes) / 1e6, sax.seconds * 1e3,
               kFewLayers, few.seconds * 1e3, kManyLayers, many.seconds * 1e3,
               many.seconds / few.seconds * kFewLayers / kManyLayers);
}

} // namespace XPJ::Bench
