#include "import/logging.h"

#include "core/host_properties.h"
#include "core/text.h"
#include "core/ticks.h"
#include "xmeml/files.h"
#include "xmeml/formats.h"

#include <algorithm>
#include <string>

namespace XPJ {

namespace {

struct CopiedKey {
    Name from;
    Name to;
};

constexpr CopiedKey kLoggingKeys[] = {
    {"description", "Description"}, {"scene", "Scene"},     {"shottake", "ShotTake"},
    {"lognote", "LogNote"},         {"tapeid", "TapeName"},
};

constexpr CopiedKey kFilmKeys[] = {
    {"cameraroll", "FilmCameraRoll"},
    {"dailyroll", "FilmDailyRoll"},
    {"labroll", "FilmLabRoll"},
};

constexpr CopiedKey kKeycodeKeys[] = {
    {"feetframes", "FilmKeycodeFeetFrames"},
    {"perfoffset", "FilmKeycodePerfoffset"},
    {"prefix", "FilmKeycodePrefix"},
    {"reversed", "FilmKeycodeReversed"},
};

constexpr CopiedKey kCommentKeys[] = {
    {"mastercomment1", "Master_95_Comment_95_1"},
    {"mastercomment2", "Master_95_Comment_95_2"},
    {"mastercomment3", "Master_95_Comment_95_3"},
    {"mastercomment4", "Master_95_Comment_95_4"},
    {"clipcommenta", "Clip_95_Comment_95_A"},
    {"clipcommentb", "Clip_95_Comment_95_B"},
    {"comment", "Comment"},
};

constexpr std::string_view kLabelMetadataKey = "hfl.clip.label.name";
constexpr std::string_view kDefaultTimecodeFormat = "102";

void CopyValue(ObjectHandle from, Name key, ObjectHandle to, Name newKey)
{
    if (HasValue(from, key))
        CopyProperty(from, key, to, newKey);
}

template <std::size_t N>
void CopyValues(ObjectHandle from, const CopiedKey (&keys)[N], ObjectHandle to)
{
    for (const CopiedKey& key : keys)
        CopyValue(from, key.from, to, key.to);
}

// The `timecode` of picture or of sound; one that doesn't say counts as of the picture.
ObjectHandle TimecodeOf(ObjectHandle node, std::string_view source)
{
    for (const ObjectHandle& timecode : node.GetChildren("timecode")) {
        const std::string_view own = timecode.GetProperty("source");
        if ((own.empty() ? "source" : own) == source)
            return timecode;
    }
    return {};
}

void AddNames(ObjectHandle file, ObjectHandle picture, ObjectHandle sound, bool isSequence,
              ObjectHandle info)
{
    const std::string_view title = TitleOfFile(file);
    if (!isSequence && !title.empty())
        info.SetProperty("ClipName", title);
    if (!info.HasProperty("TapeName"))
        CopyValue(picture.GetChild("reel"), "name", info, "TapeName");
    CopyValue(sound.GetChild("reel"), "name", info, "SoundRoll");
    CopyValue(sound, "string", info, "SoundTimeCode");
}

// The range of the whole medium, in ticks of its timecode.
void AddMediaRange(ObjectHandle element, ObjectHandle file, ObjectHandle timecode, Ticks frameTicks,
                   ObjectHandle info)
{
    const Ticks ownTicks = TicksOfRate(timecode.GetChild("rate"));
    const Ticks mediaTicks = ownTicks != 0 ? ownTicks : frameTicks;
    if (mediaTicks != 0)
        info.SetProperty("MediaFrameRate", TickText(mediaTicks));
    if (!timecode || frameTicks == 0)
        return;
    const ObjectHandle timed = HasValue(element, "duration") ? element : file;
    const Ticks in = MultiplyTicks(Int64Property(timecode, "frame"), frameTicks);
    const Ticks duration = MultiplyTicks(Int64Property(timed, "duration"), frameTicks);
    info.SetProperty("MediaInPoint", TickText(in));
    info.SetProperty("MediaOutPoint", TickText(AddTicks(in, duration)));
}

std::string_view TimecodeFormatOf(ObjectHandle element, ObjectHandle file, Ticks frameTicks)
{
    const ObjectHandle ofFile = TimecodeOf(file, "source");
    const ObjectHandle timecode = ofFile ? ofFile : TimecodeOf(element, "source");
    const Ticks ownTicks = TicksOfRate(timecode.GetChild("rate"));
    return TimeDisplayOf(IsNonDrop(timecode), ownTicks != 0 ? ownTicks : frameTicks);
}

void AddTimecodeFormat(std::string_view format, ObjectHandle info)
{
    info.SetProperty("TimecodeFormat", format);
    info.SetProperty("CaptureMode", "3");
}

char LowerCase(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

} // namespace

ObjectHandle MakeLoggingInfo(const ImportState& state, ObjectHandle element)
{
    const ObjectHandle info = state.document.NewObject("ClipLoggingInfo");
    const ObjectHandle filmData = element.GetChild("filmdata");
    CopyValues(element.GetChild("logginginfo"), kLoggingKeys, info);
    CopyValues(filmData, kFilmKeys, info);
    CopyValues(filmData.GetChild("keycode"), kKeycodeKeys, info);

    const bool isSequence = element.GetName() == "sequence";
    const ObjectHandle file = FirstFileOf(state, element);
    const ObjectHandle timed = isSequence ? element : file;
    const ObjectHandle picture = TimecodeOf(timed, "source");
    AddNames(file, picture, TimecodeOf(timed, "sound"), isSequence, info);

    const Ticks ownTicks = TicksOfRate(element.GetChild("rate"));
    const Ticks frameTicks = ownTicks != 0 ? ownTicks : TicksOfRate(file.GetChild("rate"));
    AddMediaRange(element, file, picture, frameTicks, info);
    AddTimecodeFormat(TimecodeFormatOf(element, file, frameTicks), info);
    return info;
}

ObjectHandle MakeDefaultLoggingInfo(Document& document)
{
    const ObjectHandle info = document.NewObject("ClipLoggingInfo");
    AddTimecodeFormat(kDefaultTimecodeFormat, info);
    return info;
}

void CopyComments(ObjectHandle element, ObjectHandle target)
{
    const ObjectHandle comments = element.GetChild("comments");
    for (const CopiedKey& key : kCommentKeys)
        CopyProperty(comments, key.from, target, key.to);
}

void CopyGoodFlag(ObjectHandle element, ObjectHandle target)
{
    std::string good(element.GetChild("logginginfo").GetProperty("good"));
    std::ranges::transform(good, good.begin(), LowerCase);
    if (!good.empty())
        target.SetProperty("Column.PropertyBool.Good", good);
}

void CopyLabel(ObjectHandle element, ObjectHandle target, Name key)
{
    const std::string_view label = LabelKeyOf(element.GetChild("labels").GetProperty("label2"));
    if (!label.empty())
        target.SetProperty(key, label);
}

void CopyItemLabel(const ImportState& state, ObjectHandle element, ObjectHandle item)
{
    CopyLabel(element, item, "Column.PropertyText.Label");
    if (element.GetName() == "sequence")
        return;
    const auto label = MetadataOf(FirstFileOf(state, element), kLabelMetadataKey);
    if (label && !label->empty())
        item.SetProperty("Column.PropertyText.Label", *label);
}

} // namespace XPJ
