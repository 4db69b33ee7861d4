#include "import/logging.h"

#include "core/host_properties.h"
#include "core/logging_fields.h"
#include "core/text.h"
#include "core/ticks.h"
#include "project/time_display.h"
#include "xmeml/rates.h"
#include "xmeml/tracks.h"

#include <algorithm>
#include <span>
#include <string>

namespace XPJ {

namespace {

constexpr std::string_view kDefaultTimecodeFormat = "102";

void CopyValue(ConstHandle from, Name key, ObjectHandle to, Name newKey)
{
    if (HasValue(from, key))
        CopyProperty(from, key, to, newKey);
}

void CopyValues(ConstHandle from, std::span<const LoggingField> fields, ObjectHandle to)
{
    for (const LoggingField& field : fields)
        CopyValue(from, field.element, to, field.key);
}

// The `timecode` of video or of audio; one that states no source counts as of the video.
ConstHandle TimecodeOf(ConstHandle node, std::string_view source)
{
    for (const ConstHandle& timecode : node.GetChildren("timecode")) {
        const std::string_view own = timecode.GetProperty("source");
        if ((own.empty() ? "source" : own) == source)
            return timecode;
    }
    return {};
}

void AddNames(FileElement file, ConstHandle video, ConstHandle audio, bool isSequence,
              ObjectHandle info)
{
    const std::string_view title = file.Title();
    if (!isSequence && !title.empty())
        info.SetProperty("ClipName", title);
    if (!info.HasProperty("TapeName"))
        CopyValue(video.GetChild("reel"), "name", info, "TapeName");
    CopyValue(audio.GetChild("reel"), "name", info, "SoundRoll");
    CopyValue(audio, "string", info, "SoundTimeCode");
}

// The range of the whole media file, in ticks of its timecode.
void AddMediaRange(ConstHandle element, FileElement file, ConstHandle timecode, Ticks frameTicks,
                   ObjectHandle info)
{
    const Ticks ownTicks = TicksOfRate(timecode.GetChild("rate"));
    const Ticks mediaTicks = ownTicks != 0 ? ownTicks : frameTicks;
    if (mediaTicks != 0)
        info.SetProperty("MediaFrameRate", TickText(mediaTicks));
    if (!timecode || frameTicks == 0)
        return;
    const ConstHandle timed = HasValue(element, "duration") ? element : ConstHandle(file);
    const Ticks in = MultiplyTicks(Int64Property(timecode, "frame"), frameTicks);
    const Ticks duration = MultiplyTicks(Int64Property(timed, "duration"), frameTicks);
    info.SetProperty("MediaInPoint", TickText(in));
    info.SetProperty("MediaOutPoint", TickText(AddTicks(in, duration)));
}

std::string_view TimecodeFormatOf(ConstHandle element, FileElement file, Ticks frameTicks)
{
    const ConstHandle ofFile = TimecodeOf(file, "source");
    const ConstHandle timecode = ofFile ? ofFile : TimecodeOf(element, "source");
    const Ticks ownTicks = TicksOfRate(timecode.GetChild("rate"));
    return TimeDisplayOf(IsNonDrop(timecode), ownTicks != 0 ? ownTicks : frameTicks);
}

void AddTimecodeFormat(std::string_view format, ObjectHandle info)
{
    info.SetProperty("TimecodeFormat", format);
    info.SetProperty("CaptureMode", "3");
}

// As the format names a missing label.
bool IsNone(std::string_view label)
{
    return label.empty() || EqualsIgnoreCase(label, "none");
}

char LowerCase(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// Every field is looked at, so that none counts as unread.
bool StatesOther(std::span<const LoggingField> fields, ConstHandle own, ConstHandle kept)
{
    return std::ranges::count_if(fields, [&](const LoggingField& field) {
               const std::string_view value = own.GetProperty(field.element);
               return !value.empty() && value != kept.GetProperty(field.element);
           }) > 0;
}

bool HasOtherLogging(ConstHandle own, ConstHandle kept)
{
    constexpr LoggingField kGood[] = {{"good", "Good"}};
    const bool isOther = StatesOther(LoggingFields(), own, kept);
    return StatesOther(kGood, own, kept) || isOther;
}

bool HasOtherFilm(ConstHandle own, ConstHandle kept)
{
    const bool isOther = StatesOther(FilmFields(), own, kept);
    return StatesOther(KeycodeFields(), own.GetChild("keycode"), kept.GetChild("keycode")) ||
           isOther;
}

bool HasOtherComments(ConstHandle own, ConstHandle kept)
{
    return StatesOther(CommentFields(), own, kept);
}

bool IsSameMarker(ConstHandle a, ConstHandle b)
{
    constexpr Name kFields[] = {"name", "comment", "in", "out"};
    return std::ranges::all_of(
        kFields, [&](Name field) { return a.GetProperty(field) == b.GetProperty(field); });
}

bool HasOtherMarkers(ConstHandle element, ConstHandle origin)
{
    const auto own = element.GetChildren("marker");
    const auto kept = origin.GetChildren("marker");
    auto other = kept.begin();
    for (const ConstHandle& marker : own) {
        if (!(other != kept.end()) || !IsSameMarker(marker, *other))
            return true;
        ++other;
    }
    return other != kept.end();
}

} // namespace

ObjectHandle MakeLoggingInfo(const ImportState& state, ConstHandle element)
{
    const ObjectHandle info = state.document.NewObject("ClipLoggingInfo");
    const ConstHandle filmData = element.GetChild("filmdata");
    CopyValues(element.GetChild("logginginfo"), LoggingFields(), info);
    CopyValues(filmData, FilmFields(), info);
    CopyValues(filmData.GetChild("keycode"), KeycodeFields(), info);

    const bool isSequence = element.GetName() == "sequence";
    const FileElement file = FirstFileOf(state.files, element);
    const ConstHandle timed = isSequence ? element : ConstHandle(file);
    const ConstHandle video = TimecodeOf(timed, "source");
    AddNames(file, video, TimecodeOf(timed, "sound"), isSequence, info);

    const Ticks ownTicks = TicksOfRate(element.GetChild("rate"));
    const Ticks fileTicks = TicksOfRate(file.GetChild("rate"));
    const Ticks frameTicks = ownTicks != 0 ? ownTicks : fileTicks;
    const bool isOfFile = state.options.settings.openInterchange && fileTicks != 0;
    if (isOfFile && HasValue(file, "duration"))
        AddMediaRange(file, file, video, fileTicks, info);
    else
        AddMediaRange(element, file, video, frameTicks, info);
    AddTimecodeFormat(TimecodeFormatOf(element, file, frameTicks), info);
    return info;
}

ObjectHandle MakeDefaultLoggingInfo(Document& document)
{
    const ObjectHandle info = document.NewObject("ClipLoggingInfo");
    AddTimecodeFormat(kDefaultTimecodeFormat, info);
    return info;
}

void CopyComments(ConstHandle element, ObjectHandle target)
{
    const ConstHandle comments = element.GetChild("comments");
    for (const LoggingField& field : CommentFields())
        CopyProperty(comments, field.element, target, field.key);
}

void CopyGoodFlag(ConstHandle element, ObjectHandle target)
{
    std::string good(element.GetChild("logginginfo").GetProperty("good"));
    std::ranges::transform(good, good.begin(), LowerCase);
    if (!good.empty())
        target.SetProperty("Column.PropertyBool.Good", good);
}

void RemarkOnSharedMaster(ImportState& state, ConstHandle element, ConstHandle master,
                          const ItemLocation& location)
{
    const ConstHandle origin = state.masters.OriginOf(master);
    if (!origin || origin == element)
        return;
    const auto compare = [&](Name list, bool (*differs)(ConstHandle, ConstHandle)) {
        const ConstHandle own = element.GetChild(list);
        if (own && differs(own, origin.GetChild(list)))
            AddRemark(state.account, RemarkKind::MasterShared, location, {.detail = list.View()});
    };
    compare("logginginfo", HasOtherLogging);
    compare("filmdata", HasOtherFilm);
    if (IsTrackItem(element)) { // in a bin it has comments of its own
        compare("comments", HasOtherComments);
    } else if (HasOtherMarkers(element, origin)) {
        AddRemark(state.account, RemarkKind::MasterShared, location, {.detail = "marker"});
    }
}

bool CopyLabel(const ImportState& state, ConstHandle element, ObjectHandle target,
               const LabelKeys& keys)
{
    const std::string_view label = element.GetChild("labels").GetProperty("label2");
    if (state.options.settings.openInterchange) {
        SetLabel(target, keys, Trimmed(label));
        return true;
    }
    const std::string_view color = LabelKeyOf(label);
    if (!color.empty())
        target.SetProperty(keys.color, color);
    return !color.empty() || IsNone(Trimmed(label));
}

void RemarkOnLabel(ImportState& state, ConstHandle element, const ItemLocation& location)
{
    if (state.remarked.Insert(element.GetChild("labels")))
        AddRemark(state.account, RemarkKind::LabelWithoutColor, location,
                  {.name = element.GetChild("labels").GetProperty("label2")});
}

void CopyItemLabel(ImportState& state, ConstHandle element, ObjectHandle item)
{
    const bool isKept = CopyLabel(state, element, item, kItemLabel);
    if (!isKept && !IsTrackItem(element)) // which states its label itself
        RemarkOnLabel(state, element, LocationOfClip(state, element));
    if (element.GetName() == "sequence")
        return;
    const auto label = FirstFileOf(state.files, element).Metadata(kClipLabel.color.View());
    if (label && !label->empty())
        item.SetProperty(kItemLabel.color, *label);
}

} // namespace XPJ
