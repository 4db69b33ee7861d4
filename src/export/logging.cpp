#include "export/logging.h"

#include "core/text.h"
#include "project/accessors.h"

#include <string>

namespace XPJ::RVX {

namespace {

struct CopiedKey {
    Name from;
    Name to;
};

constexpr CopiedKey kLoggingKeys[] = {
    {"Description", "description"},
    {"Scene", "scene"},
    {"ShotTake", "shottake"},
    {"LogNote", "lognote"},
};

constexpr CopiedKey kRollKeys[] = {
    {"FilmCameraRoll", "cameraroll"},
    {"FilmDailyRoll", "dailyroll"},
    {"FilmLabRoll", "labroll"},
};

constexpr CopiedKey kKeycodeKeys[] = {
    {"FilmKeycodeFeetFrames", "feetframes"},
    {"FilmKeycodePerfoffset", "perfoffset"},
    {"FilmKeycodePrefix", "prefix"},
    {"FilmKeycodeReversed", "reversed"},
};

// True if the record had any of the keys.
template <std::size_t N>
bool CopyKeys(ConstHandle info, const CopiedKey (&keys)[N], ObjectHandle to)
{
    bool any = false;
    for (const CopiedKey& key : keys) {
        CopyProperty(info, key.from, to, key.to);
        any = any || info.HasProperty(key.from);
    }
    return any;
}

bool MayDrop(ObjectHandle rate)
{
    const int timebase = IntProperty(rate, "timebase");
    return IsTrue(rate, "ntsc") && (timebase == 30 || timebase == 60);
}

void CompleteTimecode(ExportContext& context, ConstHandle info, ObjectHandle timecode)
{
    if (!timecode)
        return;
    if (HasValue(info, "TapeName") && !timecode.HasChild("reel")) {
        const ObjectHandle reel = context.document.NewObject("reel");
        reel.SetProperty("name", EscapeXML(info.GetProperty("TapeName")));
        timecode.AddChild(reel);
    }
    if (HasValue(info, "TimecodeFormat") && MayDrop(timecode.GetChild("rate"))) {
        const int format = IntProperty(info, "TimecodeFormat");
        timecode.SetProperty("displayformat", format == 103 || format == 107 ? "NDF" : "DF");
    }
}

void WriteFilmData(ExportContext& context, ConstHandle info, ObjectHandle element)
{
    const ObjectHandle filmData = context.document.NewObject("filmdata");
    const ObjectHandle keycode = context.document.NewObject("keycode");
    const bool hasRolls = CopyKeys(info, kRollKeys, filmData);
    const bool hasKeycode = CopyKeys(info, kKeycodeKeys, keycode);
    if (hasKeycode)
        filmData.AddChild(keycode);
    if (hasRolls || hasKeycode)
        element.AddChild(filmData);
}

} // namespace

void TranslateLoggingInfo(ExportContext& context, ConstHandle masterClip, ObjectHandle file,
                          ObjectHandle element)
{
    const ConstHandle info = LoggingInfoOf(masterClip);
    if (!info)
        return;
    const ObjectHandle written = context.document.NewObject("logginginfo");
    CopyKeys(info, kLoggingKeys, written);
    element.AddChild(written);
    CompleteTimecode(context, info, file.GetChild("timecode"));
    WriteFilmData(context, info, element);
}

} // namespace XPJ::RVX
