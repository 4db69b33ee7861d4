// Parameters of effects: the project's `Param` elements, made and read, and the `parameter`
// elements of `xmeml`.
#pragma once

#include "effects/values.h"
#include "tree/object.h"

#include <string>
#include <string_view>

namespace XPJ {

// Classes of project parameters.
inline constexpr std::string_view kScalarClass = "fe47129e-6c94-4fc0-95d5-c056a517aaf3";
inline constexpr std::string_view kSliderClass = "a4ff2d6e-7ac2-44f8-9d52-17d9ca50e542";
inline constexpr std::string_view kSwitchClass = "cc12343e-f113-4d3b-ae05-b287db77d461";
inline constexpr std::string_view kColorClass = "0fde4e9f-f895-4ba3-b0fe-9a6feafda583";
inline constexpr std::string_view kChoiceClass = "6e02e8bb-2569-46b2-8ab1-4ab11c43e9c8";
inline constexpr std::string_view kPointClass = "ca81d347-309b-44d2-acc7-1c572efb973c";
inline constexpr std::string_view kAudioClass = "a714635e-a628-4b27-9d59-77eba47dbc1a";
inline constexpr std::string_view kAudioSwitchClass = "32657501-3aa4-445f-a49b-d09ecb9fa1ae";
inline constexpr std::string_view kSpeedClass = "278ae1f9-ab7b-4dff-a53c-21029a399a9d";

// The class of the parameter that a control shows; a scalar for unknown controls.
std::string_view ClassOfControl(int control);

// The rows of the builder table in parameters.cpp.
enum class ParamKind {
    Scalar,
    WideScalar, // angles of the color corrector
    Slider,
    CheckBox,
    CheckBox16,  // switches of the color corrector
    Separator11, // opens a group
    Separator12, // closes a group
    Color,
    Choice,
    Point,
    Audio,
    AudioBypass,
    Speed,
};

// The class of a kind, and the control that shows it; empty for the control of a choice.
std::string_view ClassOf(ParamKind kind);
std::string_view ControlOf(ParamKind kind);

// What a caller gives. A field that the kind fixes is ignored; an empty value or bound leaves the
// kind's own, if it has one.
struct ParamFields {
    std::string_view name = {};
    int id = 0;                  // 0: no `ParameterID`
    std::string_view value = {}; // a point's is PointText
    std::string_view lower = {};
    std::string_view upper = {};
    int control = 0;             // of a choice
    std::string_view units = {}; // of an audio parameter
};

// A parameter with a value that does not change.
//   MakeParam(document, ParamKind::Scalar,
//             {.name = "Scale", .id = 2, .value = "100", .lower = "0.", .upper = "600."})
ObjectHandle MakeParam(Document& document, ParamKind kind, const ParamFields& fields);
ObjectHandle MakeCheckBox(Document& document, std::string_view name, int id, bool value);

// Writes `Keyframes` and makes the parameter time varying; nothing for an empty list.
void SetKeyframes(ObjectHandle param, std::string_view keyframes);

// Binary parameter without data: the only parameter of a flip.
ObjectHandle MakeEmptyBlob(Document& document);
// Binary parameter of a text, a shape or a look; no bytes, no value.
ObjectHandle MakeBlob(Document& document, std::string_view name, std::string_view id,
                      std::string_view control, std::string_view bytes);

// A parameter of a document that this system exported, with the project's own fields: `element`
// with `classId` and every field that `parameter` carries.
ObjectHandle CopyProjectParam(Document& document, ConstHandle parameter, Name element,
                              std::string_view classId);
// The other direction: a `parameter` with the project's fields unchanged.
ObjectHandle ExportProjectParam(Document& document, ConstHandle param);

// Values of a project parameter as it was read: field 2 of `StartKeyframe`, else `CurrentValue`,
// else `missing`.
std::string_view StartText(ConstHandle param, std::string_view missing = {});
double StartNumber(ConstHandle param, double missing);
int StartInteger(ConstHandle param, int missing);
bool StartSwitch(ConstHandle param, bool missing);
// `CurrentValue` counts only as "h:v": many points carry a meaningless "0,0" there.
Point StartPoint(ConstHandle param, const Point& missing);
// The other way round, for audio levels and pan.
double CurrentNumber(ConstHandle param, double missing);

// The `Param` of that `ParameterID` under a `Params` node, the last one; null without one.
ConstHandle FindParam(ConstHandle params, std::string_view id);

// Fields of an `xmeml` parameter; empty ones are not written.
struct ParameterFields {
    std::string_view id;
    std::string_view name;
    std::string_view min = {};
    std::string_view max = {};
    std::string_view value = {};
};

// Makes a `parameter` and attaches it to `effect`.
ObjectHandle AddParameter(Document& document, ObjectHandle effect, const ParameterFields& fields);

} // namespace XPJ
