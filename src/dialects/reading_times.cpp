#include "dialects/reading_times.h"

#include "core/frame_rate.h"
#include "core/numbers.h"
#include "core/text.h"
#include "xmeml/rates.h"

#include <optional>

namespace XPJ {

namespace {

void CountTimecode(ObjectHandle owner)
{
    const ObjectHandle timecode = owner.GetChild("timecode");
    if (!timecode || HasValue(timecode, "frame"))
        return;
    const ConstHandle own = timecode.GetChild("rate");
    const ConstHandle rate = own ? own : owner.GetChild("rate");
    const std::int64_t base = Int64Property(rate, "timebase");
    const bool canDrop = IsTrue(rate, "ntsc") && (base == 30 || base == 60);
    const std::optional<std::int64_t> frame =
        ParseTimecode(timecode.GetProperty("string"), base, canDrop && !IsNonDrop(timecode));
    if (frame)
        timecode.SetProperty("frame", IntToString(*frame));
}

} // namespace

void CountTimecodes(DialectPass& pass)
{
    for (const ObjectHandle& file : pass.Parts().files)
        CountTimecode(file);
    for (const ObjectHandle& sequence : pass.Parts().sequences)
        CountTimecode(sequence);
}

} // namespace XPJ
