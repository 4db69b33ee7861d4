// Writes a generated document to a file:  make_document --mb 6 out.xml
//                                         make_document --shape merged-clips --count 2000 out.xml
#include "bench/generator.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <fstream>
#include <map>

using XPJ::Bench::DocumentOptions;
using XPJ::Bench::Shape;

int main(int argc, char** argv)
{
    const std::map<std::string, Shape> shapes = {
        {"mix", Shape::Mix},
        {"wide-bin", Shape::WideBin},
        {"long-track", Shape::LongTrack},
        {"nested-sequences", Shape::NestedSequences},
        {"sequence-chain", Shape::SequenceChain},
        {"merged-clips", Shape::MergedClips},
    };
    CLI::App app("Writes a generated xmeml document");
    DocumentOptions options;
    double megabytes = 6;
    std::string path;
    app.add_option("--mb", megabytes, "size of a mix in MB")->check(CLI::Range(0.01, 4000.0));
    app.add_option("--shape", options.shape)->transform(CLI::CheckedTransformer(shapes));
    app.add_option("--count", options.count, "clips, items or sequences of the other shapes");
    app.add_option("--seed", options.seed);
    app.add_option("path", path)->required();
    CLI11_PARSE(app, argc, argv);
    options.bytes = options.shape == Shape::Mix ? static_cast<std::size_t>(megabytes * 1e6) : 0;

    std::ofstream file(path, std::ios::binary);
    file << XPJ::Bench::MakeDocument(options);
    file.close();
    if (!file) {
        std::fprintf(stderr, "make_document: can't write %s\n", path.c_str());
        return 1;
    }
    return 0;
}
