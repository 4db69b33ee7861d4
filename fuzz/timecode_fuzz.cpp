// Any text is a timecode with its faults; one without faults comes back from its text and frames.
#include "grading/macros.h"
#include "grading/timecode.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    using namespace XPJ;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const TimeCode timeCode = TimeCode::Parse(text);
    if (timeCode.hasError == timeCode.errorText.empty())
        std::abort();
    const std::int64_t frames = timeCode.Frames();
    if (!timeCode.hasError) {
        const bool drop = timeCode.dropFrame;
        if (TimeCode::Parse(timeCode.Text()).Text() != timeCode.Text() ||
            TimeCode::FromFrames(frames, timeCode.fps, drop).Frames() != frames)
            std::abort();
    }
    MacroContext context;
    context.sourceTimeCode = timeCode;
    context.frameNumber = frames;
    Expand(text, context, {{{"name", "value", false}}});
    return 0;
}
