#include "export/logging.h"

#include "core/frame_rate.h"
#include "core/text.h"
#include "project/side_tables.h"

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

constexpr CopiedKey kCommentKeys[] = {
    {"Master_95_Comment_95_1", "mastercomment1"}, {"Master_95_Comment_95_2", "mastercomment2"},
    {"Master_95_Comment_95_3", "mastercomment3"}, {"Master_95_Comment_95_4", "mastercomment4"},
    {"Clip_95_Comment_95_A", "clipcommenta"},     {"Clip_95_Comment_95_B", "clipcommentb"},
};

// The host's own column has no field in a document, but makes `comments` appear.
constexpr Name kCommentColumn = "Column.PropertyText.Comment";

// `TimecodeFormat` of the two ways to count without dropped numbers.
constexpr int kNonDrop2997 = 103;
constexpr int kNonDrop5994 = 107;

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

bool MayDrop(Ticks frameTicks)
{
    const FrameRate rate = RateOfFrame(frameTicks);
    return rate.ntsc && (rate.timebase == 30 || rate.timebase == 60);
}

void CompleteTimecode(Document& document, ConstHandle info, FileTimecode& timecode)
{
    if (HasValue(info, "TapeName") && !timecode.hasReel) {
        const ObjectHandle reel = document.NewObject("reel");
        reel.SetProperty("name", EscapeXML(info.GetProperty("TapeName")));
        timecode.element.AddChild(reel);
        timecode.hasReel = true;
    }
    if (HasValue(info, "TimecodeFormat") && MayDrop(timecode.frameTicks)) {
        const int format = IntProperty(info, "TimecodeFormat");
        const bool isNonDrop = format == kNonDrop2997 || format == kNonDrop5994;
        timecode.element.SetPropertyShared("displayformat", isNonDrop ? "NDF" : "DF");
    }
}

void WriteFilmData(Document& document, ConstHandle info, ObjectHandle element)
{
    const ObjectHandle filmData = document.NewObject("filmdata");
    const ObjectHandle keycode = document.NewObject("keycode");
    const bool hasRolls = CopyKeys(info, kRollKeys, filmData);
    const bool hasKeycode = CopyKeys(info, kKeycodeKeys, keycode);
    if (hasKeycode)
        filmData.AddChild(keycode);
    if (hasRolls || hasKeycode)
        element.AddChild(filmData);
}

bool WriteLabel(Document& document, ConstHandle properties, Name key, ObjectHandle element)
{
    if (!properties.HasProperty(key))
        return false;
    const ObjectHandle labels = document.NewObject("labels");
    if (const std::string_view name = LabelNameOf(properties.GetProperty(key)); !name.empty())
        labels.SetProperty("label2", name);
    element.AddChild(labels);
    return true;
}

} // namespace

void TranslateLoggingInfo(Document& document, MasterClip masterClip, FileRecord* file,
                          ObjectHandle element)
{
    const ConstHandle info = LoggingInfoOf(masterClip);
    if (!info)
        return;
    const ObjectHandle written = document.NewObject("logginginfo");
    CopyKeys(info, kLoggingKeys, written);
    element.AddChild(written);
    if (file)
        CompleteTimecode(document, info, file->timecode);
    WriteFilmData(document, info, element);
}

bool WriteItemLabel(Document& document, ConstHandle itemProperties, ObjectHandle element)
{
    return WriteLabel(document, itemProperties, "Column.PropertyText.Label", element);
}

bool WriteClipLabel(Document& document, ConstHandle clipProperties, ObjectHandle element)
{
    return WriteLabel(document, clipProperties, "hfl.clip.label.name", element);
}

void WriteComments(Document& document, ConstHandle itemProperties, ObjectHandle element)
{
    const ObjectHandle comments = document.NewObject("comments");
    const bool hasComments = CopyKeys(itemProperties, kCommentKeys, comments);
    if (hasComments || itemProperties.HasProperty(kCommentColumn))
        element.AddChild(comments);
}

} // namespace XPJ::RVX
