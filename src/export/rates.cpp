#include "export/rates.h"

#include "core/frame_rate.h"
#include "core/numbers.h"

#include <limits>

namespace XPJ::RVX {

namespace {

std::string_view NtscText(bool ntsc)
{
    return ntsc ? "TRUE" : "FALSE";
}

} // namespace

std::int64_t TimeOf(const ExportContext& context, Ticks ticks, Ticks frameTicks)
{
    return context.inTicks ? ticks : DivTicks(ticks, frameTicks);
}

std::string TimeText(const ExportContext& context, Ticks ticks, Ticks frameTicks)
{
    return IntToString(TimeOf(context, ticks, frameTicks));
}

bool IsRate(Ticks frameTicks)
{
    return frameTicks > 0 && frameTicks != std::numeric_limits<Ticks>::max();
}

ObjectHandle WriteRate(ExportContext& context, Ticks frameTicks, bool tickForm)
{
    const ObjectHandle rate = context.document.NewObject("rate");
    if (tickForm) {
        rate.SetProperty("timebase", IntToString(kTicksPerSecond));
        return rate;
    }
    const FrameRate stated = RateOfFrame(frameTicks);
    rate.SetProperty("timebase", IntToString(stated.timebase));
    rate.SetProperty("ntsc", NtscText(stated.ntsc));
    return rate;
}

ObjectHandle WriteTimecode(ExportContext& context, Ticks start, Ticks frameTicks, int displayFormat)
{
    const TimecodeBase form = TimecodeBaseOf(frameTicks, displayFormat);
    const std::int64_t frame = DivTicks(start, frameTicks);
    const ObjectHandle timecode = context.document.NewObject("timecode");
    timecode.AddChild(WriteRate(context, frameTicks));
    timecode.SetProperty("string", FormatTimecode(frame, form.base, form.drop));
    timecode.SetProperty("frame", IntToString(frame));
    timecode.SetProperty("displayformat", form.drop ? "DF" : "NDF");
    return timecode;
}

} // namespace XPJ::RVX
