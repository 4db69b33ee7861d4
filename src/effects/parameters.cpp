#include "effects/parameters.h"

#include "core/numbers.h"
#include "core/text.h"
#include "effects/keyframes.h"
#include "tree/blob.h"

#include <iterator>

namespace XPJ {

namespace {

// How the value of a caller is used.
enum class ValueRule {
    Scalar,
    Fixed, // that of the kind is used
    HV,    // a point, whose real value is in `StartKeyframe` only
    None,  // no value; a constant `StartKeyframe`
};

struct ParamBuilder {
    ParamKind kind;
    ValueRule rule;
    Name element;
    std::string_view classId;
    std::string_view control; // empty: the caller's
    std::string_view lower;   // empty: the caller's, or none
    std::string_view upper;
    std::string_view value; // without one from the caller
};

constexpr std::string_view kMaxColor = "18446744073709551615";
constexpr std::string_view kBlack = "18374686479671623680";

constexpr Name kVideoParam = "VideoComponentParam";
constexpr Name kPointParam = "PointComponentParam";
constexpr Name kAudioParam = "AudioComponentParam";
constexpr Name kTimeParam = "TimeComponentParam";
constexpr Name kBlobParam = "ArbVideoComponentParam";

using enum ValueRule;
using K = ParamKind;

// clang-format off
constexpr ParamBuilder kParamBuilders[] = {
    // kind          rule     element      class              ctl   lower      upper       value
    {K::Scalar,      Scalar,  kVideoParam, kScalarClass,      "2",  "",        "",         "0."},
    {K::WideScalar,  Scalar,  kVideoParam, kScalarClass,      "3",  "-32768.", "32767.",   "0."},
    {K::Slider,      Scalar,  kVideoParam, kSliderClass,      "8",  "",        "",         "0."},
    {K::CheckBox,    Scalar,  kVideoParam, kSwitchClass,      "4",  "false",   "true",     "false"},
    {K::CheckBox16,  Scalar,  kVideoParam, kSwitchClass,      "16", "false",   "true",     "false"},
    {K::Separator11, Fixed,   kVideoParam, kSwitchClass,      "11", "false",   "false",    "false"},
    {K::Separator12, Fixed,   kVideoParam, kSwitchClass,      "12", "false",   "false",    "false"},
    {K::Color,      Scalar,  kVideoParam, kColorClass,      "5",  "0",       kMaxColor, kBlack},
    {K::Choice,      Scalar,  kVideoParam, kChoiceClass,      "",   "",        "",         "0"},
    {K::Point,       HV,      kPointParam, kPointClass,       "6",  "",        "",         "0.5:0.5"},
    {K::Audio,       Scalar,  kAudioParam, kAudioClass,       "2",  "",        "",         "0."},
    {K::AudioBypass, Fixed,   kAudioParam, kAudioSwitchClass, "4",  "",        "",         "false"},
    {K::Speed,       None, kTimeParam,  kSpeedClass,       "21", "0",       "",         ""},
};
// clang-format on

constexpr bool RowsAreInOrder()
{
    for (std::size_t i = 0; i < std::size(kParamBuilders); ++i)
        if (kParamBuilders[i].kind != static_cast<ParamKind>(i))
            return false;
    return std::size(kParamBuilders) == static_cast<std::size_t>(ParamKind::Speed) + 1;
}
static_assert(RowsAreInOrder());

// Project fields that a round trip carries unchanged beside `value`.
constexpr Name kCarriedFields[] = {
    "IsTimeVarying", "ParameterControlType", "LowerBound", "UpperBound",
    "LowerUIBound",  "UpperUIBound",         "Keyframes",
};

// The controls that show the parameters of a class, the usual one first.
constexpr struct {
    int control;
    std::string_view classId;
} kControlClasses[] = {
    {2, kScalarClass},  {4, kSwitchClass},  {6, kPointClass},
    {7, kChoiceClass},  {8, kSliderClass},  {10, kChoiceClass},
    {11, kSwitchClass}, {12, kSwitchClass}, {16, kSwitchClass},
};

// The control of copied parameters whose document states none.
int UsualControl(std::string_view classId)
{
    for (const auto& row : kControlClasses)
        if (row.classId == classId)
            return row.control;
    return 0;
}

// The positive sign is intended: the parameter of a flip differs from all others.
constexpr std::string_view kEmptyBlobPosition = "91445760000000000";
constexpr std::string_view kBlobPosition = "-91445760000000000";

std::string_view Given(std::string_view caller, std::string_view row)
{
    return caller.empty() ? row : caller;
}

void SetBound(ObjectHandle param, Name key, std::string_view fixed, std::string_view caller)
{
    if (const std::string_view bound = Given(fixed, caller); !bound.empty())
        param.SetProperty(key, bound);
}

void SetValue(ObjectHandle param, const ParamBuilder& row, std::string_view callersValue)
{
    // Both fields have the same value.
    const std::string value = FieldText(Given(row.rule == Fixed ? "" : callersValue, row.value));
    switch (row.rule) {
    case Scalar:
    case Fixed:
        param.SetProperty("CurrentValue", value);
        param.SetProperty("StartKeyframe", StartKeyframeText(value));
        break;
    case HV:
        param.SetPropertyShared("CurrentValue", "0,0");
        param.SetProperty("StartKeyframe", PointStartKeyframeText(value));
        break;
    case None:
        param.SetPropertyShared("StartKeyframe", kSpeedStartKeyframe);
        break;
    }
}

} // namespace

std::string_view ClassOf(ParamKind kind)
{
    return kParamBuilders[static_cast<std::size_t>(kind)].classId;
}

std::string_view ControlOf(ParamKind kind)
{
    return kParamBuilders[static_cast<std::size_t>(kind)].control;
}

std::string_view ClassOfControl(int control)
{
    for (const auto& row : kControlClasses)
        if (row.control == control)
            return row.classId;
    return kScalarClass;
}

ObjectHandle MakeParam(Document& document, ParamKind kind, const ParamFields& fields)
{
    const ParamBuilder& row = kParamBuilders[static_cast<std::size_t>(kind)];
    const std::string_view name = document.Store(fields.name);
    const std::string_view control =
        row.control.empty() ? document.StoreNumber(fields.control) : row.control;
    const bool isChoice = kind == ParamKind::Choice; // it jumps from keyframe to keyframe
    const ObjectHandle param =
        row.element == kAudioParam
            ? document.NewObject(row.element, {{"classid", row.classId},
                                               {"Name", name},
                                               {"ParameterControlType", control},
                                               {"UnitsString", document.Store(fields.units)}})
            : document.NewObject(row.element,
                                 {{"classid", row.classId},
                                  {"Name", name},
                                  {"ParameterControlType", control},
                                  {"DiscontinuousInterpolate", isChoice ? "true" : "false"},
                                  {"IsLocked", "false"},
                                  {"IsTimeVarying", "false"},
                                  {"RangeLocked", "false"}});
    if (fields.id != 0)
        param.SetNumber("ParameterID", fields.id);
    SetBound(param, "LowerBound", row.lower, fields.lower);
    SetBound(param, "UpperBound", row.upper, fields.upper);
    SetValue(param, row, fields.value);
    return param;
}

ObjectHandle MakeCheckBox(Document& document, std::string_view name, int id, bool value)
{
    return MakeParam(document, ParamKind::CheckBox,
                     {.name = name, .id = id, .value = value ? "true" : "false"});
}

void SetKeyframes(ObjectHandle param, std::string_view keyframes)
{
    if (keyframes.empty())
        return;
    param.SetProperty("Keyframes", keyframes);
    param.SetPropertyShared("IsTimeVarying", "true");
}

ObjectHandle MakeEmptyBlob(Document& document)
{
    const ObjectHandle param = MakeBlob(document, "", "-1", "9", "");
    param.SetPropertyShared("StartKeyframePosition", kEmptyBlobPosition);
    return param;
}

ObjectHandle MakeBlob(Document& document, std::string_view name, std::string_view id,
                      std::string_view control, std::string_view bytes)
{
    const ObjectHandle param =
        document.NewObject(kBlobParam, {{"Name", document.Store(name)},
                                        {"ParameterID", document.Store(id)},
                                        {"ParameterControlType", document.Store(control)},
                                        {"DiscontinuousInterpolate", "false"},
                                        {"IsLocked", "false"},
                                        {"IsTimeVarying", "false"},
                                        {"UnitsString", ""},
                                        {"KeyframeSetSize", "0"},
                                        {"StartKeyframePosition", kBlobPosition}});
    SetEncodedBlob(param, "StartKeyframeValue", "StartKeyframeValueChecksum", bytes);
    return param;
}

ObjectHandle CopyProjectParam(Document& document, ConstHandle parameter, Name element,
                              std::string_view classId)
{
    const ObjectHandle param = document.NewObject(element);
    param.SetProperty("classid", classId);
    param.SetProperty("ParameterID", parameter.GetProperty("parameterid"));
    param.SetProperty("Name", parameter.GetProperty("name"));
    param.SetProperty("StartKeyframe", PlainValue(parameter));
    for (const Name& field : kCarriedFields)
        if (HasValue(parameter, field))
            param.SetProperty(field, parameter.GetProperty(field));
    param.AddProperty("IsTimeVarying", HasValue(parameter, "Keyframes") ? "true" : "false");
    if (const int control = UsualControl(classId); control != 0)
        param.AddProperty("ParameterControlType", IntToString(control));
    if (classId == kChoiceClass)
        param.SetPropertyShared("DiscontinuousInterpolate", "true");
    return param;
}

ObjectHandle ExportProjectParam(Document& document, ConstHandle param)
{
    const ObjectHandle parameter = document.NewObject("parameter");
    parameter.SetProperty("parameterid", param.GetProperty("ParameterID"));
    parameter.SetProperty("name", param.GetProperty("Name"));
    if (param.GetName() == kBlobParam) {
        parameter.SetProperty("value", param.GetProperty("StartKeyframeValue"));
        CopyProperty(param, "BinaryHash", parameter, "hash");
        CopyProperty(param, "ParameterControlType", parameter, "ParameterControlType");
        return parameter;
    }
    parameter.SetProperty("value", param.GetProperty("StartKeyframe"));
    for (const Name& field : kCarriedFields)
        CopyProperty(param, field, parameter, field);
    return parameter;
}

std::string_view StartText(ConstHandle param, std::string_view missing)
{
    const std::string_view start = KeyframeField(param.GetProperty("StartKeyframe"), 1);
    return Given(Given(start, param.GetProperty("CurrentValue")), missing);
}

double StartNumber(ConstHandle param, double missing)
{
    const std::string_view text = StartText(param);
    return text.empty() ? missing : ParseDouble(text);
}

int StartInteger(ConstHandle param, int missing)
{
    const std::string_view text = StartText(param);
    return text.empty() ? missing : ParseInt(text);
}

bool StartSwitch(ConstHandle param, bool missing)
{
    const std::string_view text = StartText(param);
    return text.empty() ? missing : EqualsIgnoreCase(text, "true") || ParseDouble(text) != 0;
}

Point StartPoint(ConstHandle param, const Point& missing)
{
    const std::string_view start = param.GetProperty("StartKeyframe");
    if (const std::string_view field = KeyframeField(start, 1); !field.empty())
        return ParsePoint(field, KeyframeField(start, 2));
    const std::string_view current = param.GetProperty("CurrentValue");
    return current.find(':') == current.npos ? missing : ParsePoint(current, "");
}

double CurrentNumber(ConstHandle param, double missing)
{
    const std::string_view current = param.GetProperty("CurrentValue");
    return current.empty() ? StartNumber(param, missing) : ParseDouble(current);
}

ConstHandle FindParam(ConstHandle params, std::string_view id)
{
    ConstHandle found;
    for (const ConstHandle param : params.GetChildren("Param"))
        if (param.GetProperty("ParameterID") == id)
            found = param;
    return found;
}

ObjectHandle AddParameter(Document& document, ObjectHandle effect, const ParameterFields& fields)
{
    const ObjectHandle parameter = document.NewObject("parameter");
    const struct {
        Name key;
        std::string_view text;
    } rows[] = {
        {"parameterid", fields.id}, {"name", fields.name},   {"valuemin", fields.min},
        {"valuemax", fields.max},   {"value", fields.value},
    };
    for (const auto& row : rows)
        if (!row.text.empty())
            parameter.SetProperty(row.key, row.text);
    effect.AddChild(parameter);
    return parameter;
}

} // namespace XPJ
