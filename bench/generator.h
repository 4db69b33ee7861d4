// Makes `xmeml` documents of the kind that editing programs write, of any size.
//
// The same options give the same bytes on every machine.
//   MakeDocument({.shape = Shape::Mix, .bytes = 6'000'000})
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace XPJ::Bench {

enum class Shape {
    Mix,             // bins of clips, each with a cut sequence of them, about `bytes` long
    WideBin,         // one bin of `count` clips
    LongTrack,       // one track of `count` items
    NestedSequences, // one sequence with `count` sequences inside its items
    SequenceChain,   // `count` sequences, each of which holds the next by reference
    MergedClips,     // `count` clips, each of a video file and two audio files
};

struct DocumentOptions {
    Shape shape = Shape::Mix;
    std::size_t bytes = 6'000'000;
    int count = 0;
    std::uint32_t seed = 1;
};

std::string MakeDocument(const DocumentOptions& options);

} // namespace XPJ::Bench
