#include "dialects/writing_effects.h"

#include "core/numbers.h"
#include "core/ticks.h"
#include "dialects/filters.h"

#include <vector>

namespace XPJ {

namespace {

bool IsHeld(ConstHandle keyframe)
{
    return keyframe.HasProperty("isHeld");
}

bool HasHeldKeyframe(ConstHandle parameter)
{
    for (const ConstHandle keyframe : parameter.GetChildren("keyframe"))
        if (IsHeld(keyframe))
            return true;
    return false;
}

// A second keyframe of the value, at another frame.
ObjectHandle Repeat(Document& document, ObjectHandle keyframe, std::int64_t when)
{
    const ObjectHandle result = document.NewObject("keyframe");
    result.SetProperty("when", IntToString(when));
    if (keyframe.HasProperty("value"))
        result.SetProperty("value", keyframe.GetProperty("value"));
    result.AddChild(keyframe.GetChild("value"));
    result.SetPropertyShared("velaHold", "end");
    return result;
}

// Between neighbouring frames there is no room, and no need, for a keyframe.
void AddSteps(Document& document, ObjectHandle parameter)
{
    std::vector<ObjectHandle> children;
    ObjectHandle held;
    for (const ObjectHandle& child : parameter.GetChildren()) {
        if (child.GetName() == "keyframe") {
            const std::int64_t last = SubtractTicks(Int64Property(child, "when"), 1);
            if (held && last > Int64Property(held, "when"))
                children.push_back(Repeat(document, held, last));
            held = IsHeld(child) ? child : ObjectHandle();
            if (held)
                held.SetPropertyShared("velaHold", "start");
        }
        children.push_back(child);
    }
    parameter.ClearChildren();
    for (const ObjectHandle& child : children)
        parameter.AddChild(child);
}

} // namespace

void NamePan(DialectPass&, const EffectPart& part)
{
    if (kPanEffect.Matches(part.effect))
        ForEachParameter(part.effect, "level", [](const ObjectHandle& parameter) {
            parameter.SetPropertyShared("parameterid", "pan");
        });
}

void WriteSteps(DialectPass& pass, const EffectPart& part)
{
    for (const ObjectHandle& parameter : part.effect.GetChildren("parameter"))
        if (HasHeldKeyframe(parameter))
            AddSteps(pass.Nodes(), parameter);
}

void SwitchOffBypassed(DialectPass&, const EffectPart& part)
{
    if (IsTrue(part.effect, "velaBypass"))
        part.filter.SetPropertyShared("enabled", "FALSE");
}

void RemoveNameless(DialectPass&, const EffectPart& part)
{
    if (!HasValue(part.effect, "name") && !HasValue(part.effect, "effectid"))
        part.owner.RemoveChild(part.filter);
}

} // namespace XPJ
