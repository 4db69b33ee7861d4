#include "export/rates.h"

#include "core/frame_rate.h"
#include "core/numbers.h"
#include "effects/values.h"

namespace XPJ::RVX {

std::int64_t TimeOf(TimeUnit unit, Ticks ticks, Ticks frameTicks)
{
    return unit == TimeUnit::Ticks ? ticks : DivTicks(ticks, frameTicks);
}

std::string TimeText(TimeUnit unit, Ticks ticks, Ticks frameTicks)
{
    return IntToString(TimeOf(unit, ticks, frameTicks));
}

bool IsRateExact(Ticks frameTicks)
{
    const FrameRate stated = RateOfFrame(frameTicks);
    Ticks written = 0;
    return FrameTicks(stated.timebase, stated.ntsc, &written) && written == frameTicks;
}

std::string RateText(Ticks frameTicks)
{
    return NumberText(static_cast<double>(kTicksPerSecond) / static_cast<double>(frameTicks));
}

ObjectHandle WriteRate(Document& document, Ticks frameTicks, TimeUnit unit)
{
    const ObjectHandle rate = document.NewObject("rate");
    if (unit == TimeUnit::Ticks) {
        rate.SetProperty("timebase", IntToString(kTicksPerSecond));
        return rate;
    }
    const FrameRate stated = RateOfFrame(frameTicks);
    rate.SetProperty("timebase", IntToString(stated.timebase));
    rate.SetPropertyShared("ntsc", stated.ntsc ? "TRUE" : "FALSE");
    return rate;
}

ObjectHandle WriteTimecode(Document& document, Ticks start, Ticks frameTicks, int displayFormat)
{
    const TimecodeBase counting = TimecodeBaseOf(frameTicks, displayFormat);
    const std::int64_t frame = DivTicks(start, frameTicks);
    const ObjectHandle timecode = document.NewObject("timecode");
    timecode.AddChild(WriteRate(document, frameTicks));
    timecode.SetProperty("string", FormatTimecode(frame, counting.base, counting.drop));
    timecode.SetProperty("frame", IntToString(frame));
    timecode.SetPropertyShared("displayformat", counting.drop ? "DF" : "NDF");
    return timecode;
}

} // namespace XPJ::RVX
