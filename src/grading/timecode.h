// Timecodes of the grading engine: hours, minutes, seconds and frames at a rate.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace XPJ {

// Values that are out of range are kept and reported: one line of `errorText` for each fault.
struct TimeCode {
    int hour = 0;
    int minute = 0;
    int second = 0;
    int frame = 0;
    double fps = 30;
    int intFps = 30; // the nearest whole number of the rate, at least 1
    bool dropFrame = false;
    bool negative = false;
    std::string errorText; // each line ends in LF
    bool hasError = false;

    TimeCode(); // 00:00:00:00 at 30
    TimeCode(int hour, int minute, int second, int frame, double fps, bool dropFrame = false,
             bool negative = false);

    // "-01:02:03:04 (29.97 fps, DropFrame)"; the rate (30 without one) and the mark may be missing,
    // the fields may be separated by ";" and "." as well. A piece that cannot be read is reported
    // and 0, such a rate 30.
    static TimeCode Parse(std::string_view text);
    // The timecode `frames` frames from 00:00:00:00. Hours go on behind 23, with their message.
    static TimeCode FromFrames(std::int64_t frames, double fps, bool dropFrame = false);

    // Forgets the errors and checks again.
    void SetFps(double newFps);

    // Frames from 00:00:00:00, at intFps; numbers that drop frame leaves out don't count. Below 0
    // if negative; limited to 64 bits.
    std::int64_t Frames() const;
    std::string Text() const;     // "-01:02:03:04"
    std::string LongText() const; // "01:02:03:04 (29.97 fps, DropFrame)", "01:02:03:04 (25 fps)"

private:
    void Check(std::string_view negativeRateText);
    void AddError(std::string_view text);
    bool DropsFrames() const;
};

} // namespace XPJ
