// The row of an effect: all that the two translations, the list of effects and the listings of
// documents know of it. An effect whose parameters correspond one by one is its row alone:
//
//   constexpr ParamRow kLumaKeyParams[] = {
//       {1, K::Scalar, "Threshold", "0.", "0.", "100.", {"threshold", "Threshold", "-100", "100"}},
//       {2, K::Scalar, "Cutoff",    "0.", "0.", "100.", {"tolerance", "Tolerance", "0", "100"}},
//   };
//   {.xmeml = {"Luma Key", "Luma Key", "Key"},
//    .project = {"KX.ORRN Legacy Key Luma", "Luma Key"},
//    .outcome = Outcome::Approximated,
//    .note = "key mode and softness are lost",
//    .params = kLumaKeyParams}
//
// An effect with rules of its own has functions instead of those of the rows.
#pragma once

#include "effects/effect_context.h"
#include "effects/effect_elements.h"
#include "effects/parameters.h"
#include "tree/object.h"

#include <span>
#include <string_view>
#include <vector>

namespace XPJ {

// ---- Parameters

// Of an `xmeml` document.
struct XmemlParam {
    std::string_view id = {}; // `parameterid`; empty: documents do not have it
    std::string_view name = {};
    std::string_view min = {};
    std::string_view max = {};
    std::string_view value = {}; // written where projects do not have it; empty: not written
    // The values at which it changes nothing, separated by blanks. Of a point or a color it has a
    // value for each part, separated by ":".
    std::string_view neutral = {};
};

struct ParamRow {
    int id = 0; // `ParameterID`; 0: projects do not have it under a number
    ParamKind kind = ParamKind::Scalar;
    std::string_view name = {};  // in projects
    std::string_view value = {}; // where the source states none; that of a point is the center
    std::string_view lower = {};
    std::string_view upper = {};
    XmemlParam xmeml = {};
    int control = 0; // of a choice
    bool animates = true;
    double (*toXmeml)(double) = nullptr; // null: the same number
    // The inverse of `toXmeml`, by which an import in open interchange reads the number.
    double (*fromXmeml)(double) = nullptr;
    // The values in projects at which it changes nothing, separated by blanks. Stated for effects
    // that editors write for every clip, also for those that nobody touched.
    std::string_view neutral = {};
    // Of a parameter that documents do not have.
    RemarkKind loss = RemarkKind::EffectParameterLost;
};

// A parameter that only documents have.
constexpr ParamRow XmemlOnly(const XmemlParam& param, ParamKind kind = ParamKind::Scalar)
{
    return {.kind = kind, .xmeml = param};
}

// The row for a `parameterid`; null without one.
const ParamRow* FindParamRow(std::span<const ParamRow> rows, std::string_view parameterId);

// ---- Effects

enum class Outcome { CarriedOver, Approximated, Dropped };

// Whether an export writes the effect.
enum class Exported {
    Always,
    WithIssue,
    InOpenInterchange,
    BehindSetting, // EffectContext::exportTransformEffect, and in open interchange
};

struct EffectRow;
using Components = std::vector<ObjectHandle>;

// Appends the components that an `effect` becomes; false if it is not translated.
using ToProject = bool (*)(const EffectContext& context, const EffectRow& row, ConstHandle effect,
                           Components& components);
// Fills a new `effect` from a component.
using ToXmeml = void (*)(const EffectContext& context, const EffectRow& row, ConstHandle component,
                         ObjectHandle effect);

// By the parameters of the row alone.
bool ParamsToProject(const EffectContext& context, const EffectRow& row, ConstHandle effect,
                     Components& components);
void ParamsToXmeml(const EffectContext& context, const EffectRow& row, ConstHandle component,
                   ObjectHandle effect);

struct EffectRow {
    XmemlEffect xmeml = {};
    ComponentNames project = {};
    std::string_view name = {}; // for people, in both families; empty: each document's own
    Outcome outcome = Outcome::CarriedOver;
    std::string_view onlyWhen = {}; // the condition of the outcome; else the effect is dropped
    std::string_view note = {};     // what is lost
    std::span<const ParamRow> params = {};
    ToProject toProject = ParamsToProject; // null: none, or as a part of another effect
    ToXmeml toXmeml = ParamsToXmeml;
    Exported exported = Exported::Always;
    bool isIntrinsic = false;
    bool keepsParams = false; // parameters are carried with the project's own fields
};

// ---- Single parameters

// The parameter of a row, with value and keyframes of `parameter` (null: none).
ObjectHandle MakeRowParam(const EffectContext& context, const ParamRow& row, ConstHandle parameter);
// True for the text of the value that an import gives the parameter where nothing states it.
bool IsDefault(const ParamRow& row, std::string_view text);
// The parameter of a component for a row; null without one.
ConstHandle ParamOfRow(ConstHandle component, const ParamRow& row);
// Attaches the `parameter` of a row, with value and keyframes of the component's.
ObjectHandle AddRowParameter(const EffectContext& context, const ParamRow& row,
                             ConstHandle component, ObjectHandle effect);
// Attaches the `parameter` of a row that has this value.
ObjectHandle AddParameter(Document& document, const XmemlParam& param, std::string_view value,
                          ObjectHandle effect);

// ---- Parameters that documents do not have
//
// In open interchange they are carried under an id of their own, "vela3" for `ParameterID` 3, where
// they don't have the value that an import gives them anyway. Other programs pass over them.

// The carried `parameter`; null without one.
ConstHandle FindCarried(const EffectContext& context, const ParamRow& row, ConstHandle effect);
void AddCarried(const EffectContext& context, const ParamRow& row, ConstHandle param,
                ObjectHandle effect);
// All those of a component.
void AddAllCarried(const EffectContext& context, const EffectRow& row, ConstHandle component,
                   ObjectHandle effect);

// A point of a project as seen from the center of the frame, from which documents count.
Point FromCenter(const Point& point);

// ---- Neutral effects, which documents carry and which do nothing

// True if the value of a `parameter`, or of one of its keyframes, is a neutral one of its row, or
// not there. A row without neutral values takes any.
bool IsNeutralValue(const ParamRow& row, ConstHandle parameter);

// True when every parameter of `effect` that has a value has one at which the effect, whose rows
// these are, changes nothing. What is animated is in use. `ignored` is a `parameterid` whose value
// may be any.
bool IsNeutral(std::span<const ParamRow> rows, ConstHandle effect, std::string_view ignored = {});

// True in open interchange for an effect that this system wrote, whose user added it: it comes back
// also where it is neutral.
bool IsReturning(const EffectContext& context, ConstHandle effect);

// Translates an effect that projects do not have: nothing is lost at its defaults.
bool DropNeutral(const EffectContext& context, const EffectRow& row, ConstHandle effect,
                 Components& components);

} // namespace XPJ
