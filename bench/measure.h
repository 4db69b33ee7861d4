// One measurement is one child process: its processor time and its peak memory are its own.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace XPJ::Bench {

struct Measurement {
    bool isDone = false;
    double seconds = 0;         // processor time of the timed part
    std::size_t bytes = 0;      // what the work says that it handled
    std::size_t peakMemory = 0; // resident bytes of the whole child
};

// Runs inside the child: prepares, then calls `Time` around the work.
class Stopwatch {
public:
    template <class Work>
    void Time(const Work& work)
    {
        const double start = ProcessorSeconds();
        work();
        seconds_ = ProcessorSeconds() - start;
    }
    double Seconds() const { return seconds_; }
    void SetBytes(std::size_t bytes) { bytes_ = bytes; }
    std::size_t Bytes() const { return bytes_; }

private:
    static double ProcessorSeconds();

    double seconds_ = 0;
    std::size_t bytes_ = 0;
};

Measurement MeasureInChild(const std::function<void(Stopwatch&)>& job);

// Wall-clock seconds of one run of a program, start and end included; below 0 if it fails.
double TimeProgram(const std::vector<std::string>& arguments);

} // namespace XPJ::Bench
