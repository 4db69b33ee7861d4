#include "export/logging.h"

#include "core/frame_rate.h"
#include "core/host_properties.h"
#include "core/logging_fields.h"
#include "core/text.h"

#include <span>

namespace XPJ::RVX {

namespace {

// The host's own column has no field in a document, but makes `comments` appear.
constexpr Name kCommentColumn = "Column.PropertyText.Comment";

// True if the record had any of the fields.
bool WriteFields(ConstHandle info, std::span<const LoggingField> fields, ObjectHandle element)
{
    bool any = false;
    for (const LoggingField& field : fields) {
        if (field.isImportedOnly)
            continue;
        CopyProperty(info, field.key, element, field.element);
        any = any || info.HasProperty(field.key);
    }
    return any;
}

void CompleteTimecode(Document& document, ConstHandle info, FileTimecode& timecode)
{
    if (HasValue(info, "TapeName") && !timecode.hasReel) {
        const ObjectHandle reel = document.NewObject("reel");
        reel.SetProperty("name", EscapeXML(info.GetProperty("TapeName")));
        timecode.element.AddChild(reel);
        timecode.hasReel = true;
    }
    const bool mayDrop = TimecodeBaseOf(timecode.frameTicks, 0).drop;
    if (mayDrop && HasValue(info, "TimecodeFormat")) {
        const int format = IntProperty(info, "TimecodeFormat");
        const bool drops = TimecodeBaseOf(timecode.frameTicks, format).drop;
        timecode.element.SetPropertyShared("displayformat", drops ? "DF" : "NDF");
    }
}

void WriteFilmData(Document& document, ConstHandle info, ObjectHandle element)
{
    const ObjectHandle filmData = document.NewObject("filmdata");
    const ObjectHandle keycode = document.NewObject("keycode");
    const bool hasRolls = WriteFields(info, FilmFields(), filmData);
    const bool hasKeycode = WriteFields(info, KeycodeFields(), keycode);
    if (hasKeycode)
        filmData.AddChild(keycode);
    if (hasRolls || hasKeycode)
        element.AddChild(filmData);
}

} // namespace

void TranslateLoggingInfo(Document& document, MasterClip masterClip, FileRecord* file,
                          ObjectHandle element)
{
    const ConstHandle info = LoggingInfoOf(masterClip);
    if (!info)
        return;
    const ObjectHandle written = document.NewObject("logginginfo");
    WriteFields(info, LoggingFields(), written);
    element.AddChild(written);
    if (file)
        CompleteTimecode(document, info, file->timecode);
    WriteFilmData(document, info, element);
}

bool WriteLabel(ExportContext& context, ConstHandle properties, const LabelKeys& keys,
                ObjectHandle element)
{
    const bool isOpen = context.options.settings.openInterchange;
    if (!properties.HasProperty(keys.color) && !(isOpen && properties.HasProperty(keys.text)))
        return false;
    const ObjectHandle labels = context.document.NewObject("labels");
    const std::string_view label =
        isOpen ? LabelOf(properties, keys) : LabelNameOf(properties.GetProperty(keys.color));
    if (!label.empty())
        labels.SetProperty("label2", label);
    if (isOpen && IsFinalCutLabel(label))
        labels.SetProperty("label", label);
    element.AddChild(labels);
    return true;
}

void ReportLabel(ExportContext& context, ConstHandle properties, const LabelKeys& keys,
                 const ItemLocation& location)
{
    std::string_view lost = LabelOf(properties, keys);
    if (lost.empty())
        lost = properties.GetProperty(HasValue(properties, keys.text) ? keys.text : keys.color);
    else if (context.options.settings.openInterchange ||
             lost == LabelNameOf(properties.GetProperty(keys.color)))
        return;
    if (!lost.empty())
        AddRemark(context.account, RemarkKind::LabelLost, location, {.name = lost});
}

void WriteComments(Document& document, ConstHandle itemProperties, ObjectHandle element)
{
    const ObjectHandle comments = document.NewObject("comments");
    const bool hasComments = WriteFields(itemProperties, CommentFields(), comments);
    if (hasComments || itemProperties.HasProperty(kCommentColumn))
        element.AddChild(comments);
}

void WriteGoodFlag(Document& document, ConstHandle itemProperties, ObjectHandle clip)
{
    constexpr Name kGood = "Column.PropertyBool.Good";
    if (!HasValue(itemProperties, kGood))
        return;
    const ObjectHandle known = clip.GetChild("logginginfo");
    const ObjectHandle info = known ? known : document.NewObject("logginginfo");
    info.SetPropertyShared("good", IsTrue(itemProperties, kGood) ? "TRUE" : "FALSE");
    if (!known)
        clip.AddChild(info);
}

} // namespace XPJ::RVX
