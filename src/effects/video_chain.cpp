#include "effects/video_chain.h"

#include "core/numbers.h"
#include "effects/distort.h"
#include "effects/effect_elements.h"
#include "effects/effect_losses.h"
#include "effects/motion.h"
#include "effects/opacity.h"
#include "effects/time_remap.h"
#include "effects/video_effects.h"
#include "project/accessors.h"

namespace XPJ {

namespace {

constexpr int kMotionId = 1;
constexpr int kOpacityId = 2;
constexpr int kFirstFilterId = 3;

// What the filters of an item become.
struct ItemEffects {
    const EffectContext& context;
    ConstHandle item;
    ObjectHandle subClip;
    ObjectHandle opacity = {};
    ConstHandle motionSource = {};
    ConstHandle distortSource = {};
    ConstHandle speedSource = {};
    Components filters = {};
};

// ---- Effects that act on more than their own component; false when one is not translated

// The first one counts.
bool TakeOpacity(ItemEffects& effects, ConstHandle effect)
{
    if (effects.opacity)
        RemarkOnSecond(effects.context, effect, IsNeutralFilter);
    else
        effects.opacity =
            TranslateOpacity(effects.context, effect, effects.item.GetProperty("compositemode"));
    return true;
}

// On what a Basic 3D moves in the plane, which no Motion takes.
void RemarkOnMotionOf(const EffectContext& context, ConstHandle basic3D)
{
    for (const ParamRow& row : kBasic3D.params) {
        const ConstHandle parameter =
            row.name.empty() ? FindParameter(basic3D, row.xmeml.id) : ConstHandle();
        if (parameter && !IsHarmless(&row, parameter))
            RemarkOnLostParameter(context, basic3D, parameter);
    }
}

// The last one counts, also before a Basic 3D.
bool TakeMotion(ItemEffects& effects, ConstHandle effect)
{
    if (const ConstHandle earlier = effects.motionSource) {
        if (earlier.GetProperty("effectid") == kBasic3D.xmeml.id)
            RemarkOnMotionOf(effects.context, earlier);
        else
            RemarkOnSecond(effects.context, earlier, IsNeutralFilter);
    }
    effects.motionSource = effect;
    return true;
}

// Motion has no corners, but it can take an aspect.
bool TakeDistort(ItemEffects& effects, ConstHandle effect)
{
    const bool isNeutral = IsNeutral(kDistort.params, effect);
    if (!isNeutral && !IsAspectOnly(effect))
        return false;
    if (const ConstHandle corner = FindParameter(effect, kLowerLeftCorner.xmeml.id);
        corner && !IsHarmless(&kLowerLeftCorner, corner))
        RemarkOnLostParameter(effects.context, effect, corner);
    if (isNeutral)
        return true;
    if (effects.distortSource)
        RemarkOnSecond(effects.context, effects.distortSource, IsNeutralFilter);
    effects.distortSource = effect;
    return true;
}

// A constant speed is a value of the clip.
bool TakeSpeed(ItemEffects& effects, ConstHandle effect)
{
    if (effects.speedSource) {
        RemarkOnSecond(effects.context, effect, IsNeutralFilter);
    } else {
        effects.speedSource = effect;
        const bool isVariable = IsVariableSpeed(effect);
        if (isVariable)
            RemarkOnKeyframes(effects.context, effect, SpeedGraph(effect));
        else if (HasSpeedCurve(effect))
            RemarkOnLostParameter(effects.context, effect, SpeedGraph(effect));
    }
    return !IsVariableSpeed(effect) ||
           AddTimeRemapping(effects.context.document, effect, effects.context.frameTicks,
                            effects.subClip);
}

void AddBasic3D(const EffectContext& context, ConstHandle effect, Components& components,
                ConstHandle& motionSource)
{
    if (IsNeutral(kBasic3D.params, effect) && !IsReturning(context, effect))
        return RemarkOnParameters(context, kBasic3D.params, effect);
    const Basic3D basic3D = TranslateBasic3D(context, effect);
    if (basic3D.component)
        components.push_back(basic3D.component);
    if (basic3D.isMotionSource && !motionSource)
        motionSource = effect;
    else
        RemarkOnMotionOf(context, effect);
}

bool TakeBasic3D(ItemEffects& effects, ConstHandle effect)
{
    AddBasic3D(effects.context, effect, effects.filters, effects.motionSource);
    return true;
}

constexpr struct {
    std::string_view effectId;
    bool (*take)(ItemEffects& effects, ConstHandle effect);
} kItemEffects[] = {
    {kOpacity.xmeml.id, TakeOpacity}, {kMotion.xmeml.id, TakeMotion},
    {kDistort.xmeml.id, TakeDistort}, {kTimeRemap.xmeml.id, TakeSpeed},
    {kBasic3D.xmeml.id, TakeBasic3D},
};

bool TakeEffect(ItemEffects& effects, ConstHandle effect)
{
    const std::string_view id = effect.GetProperty("effectid");
    for (const auto& row : kItemEffects)
        if (row.effectId == id)
            return row.take(effects, effect);
    return FilterToProject(effects.context, effect, effects.filters);
}

bool TakeMasterEffect(const EffectContext& context, ConstHandle effect, Components& components)
{
    const std::string_view id = effect.GetProperty("effectid");
    if (id == kTimeRemap.xmeml.id) {
        if (!IsNeutralSpeed(effect))
            context.AddRemark(RemarkKind::BrowserClipEffect, effect);
        return true;
    }
    if (id != kBasic3D.xmeml.id)
        return FilterToProject(context, effect, components);
    ConstHandle motionSource;
    AddBasic3D(context, effect, components, motionSource);
    if (motionSource)
        RemarkOnMotionOf(context, effect);
    return true;
}

// ---- The walk

// Calls `take(effect)`; one that gives false is entered as not translated.
template <typename Take>
bool TakeOne(const EffectContext& context, ConstHandle effect, const Take& take)
{
    const bool isTranslated = take(effect);
    if (!isTranslated)
        context.AddIssue(ImportIssue::EffectNotTranslated, effect, ConditionOf(effect));
    return isTranslated;
}

// The same for each effect of a walk.
template <typename Take>
void TakeEffects(const EffectContext& context, ConstHandle owner, const Take& take)
{
    RemarkOnFilters(context, owner, IsNeutralFilter);
    for (const ConstHandle filter : owner.GetChildren("filter"))
        if (const ConstHandle effect = ActiveEffect(filter);
            effect && TakeOne(context, effect, take))
            RemarkOnRange(context, owner, filter, IsNeutralFilter);
}

// An item may have a composite mode without an opacity filter.
void AddOpacityOfMode(ItemEffects& effects)
{
    const std::string_view mode = effects.item.GetProperty("compositemode");
    if (!mode.empty() && !effects.opacity)
        effects.opacity = TranslateOpacity(effects.context, {}, mode);
}

// The effect from which the Motion of the item is made.
void RemarkOnMotion(const ItemEffects& effects)
{
    const ConstHandle source = effects.motionSource;
    if (source.GetProperty("effectid") == kMotion.xmeml.id)
        RemarkOnParameters(effects.context, kMotion.params, source);
}

// ---- The result

void Attach(ObjectHandle chain, ObjectHandle component, int id)
{
    component.SetNumber("ID", id);
    chain.AddChild("Component", component);
}

void AttachAll(ObjectHandle chain, const Components& components, int firstId)
{
    for (const ObjectHandle& component : components)
        Attach(chain, component, firstId++);
    chain.SetNumber("NextComponentID", firstId);
}

void AttachItemEffects(ObjectHandle chain, const ItemEffects& effects, ObjectHandle motion)
{
    const std::string_view sequenceId = chain.GetProperty("SeqID");
    if (effects.opacity)
        Attach(chain, effects.opacity, kOpacityId);
    if (motion)
        Attach(chain, motion, kMotionId);
    chain.SetPropertyShared("DefaultOpacity", effects.opacity ? "false" : "true");
    chain.SetPropertyShared("DefaultMotion", motion ? "false" : "true");
    AttachAll(chain, effects.filters, kFirstFilterId);
    for (const ObjectHandle& component : chain.GetChildren("Component"))
        component.SetPropertyShared("SequenceID", sequenceId);
}

// The first component of a match name.
ConstHandle FindComponent(ConstHandle chain, std::string_view matchName)
{
    for (const ConstHandle component : ComponentsOf(chain))
        if (ComponentMatchName(component) == matchName)
            return component;
    return {};
}

} // namespace

ObjectHandle BuildSequenceChain(const EffectContext& context, ConstHandle item,
                                ObjectHandle subClip, std::string_view sequenceId,
                                ConstHandle title)
{
    Document& document = context.document;
    const ObjectHandle chain =
        document.NewObject("VideoComponentChain", {{"SeqID", document.Store(sequenceId)},
                                                   {"DefaultOpacity", "true"},
                                                   {"DefaultMotion", "true"}});
    if (context.frameTicks == 0) {
        if (item.HasChild("filter") || title)
            context.AddRemark(RemarkKind::EffectsWithoutRate);
        return chain;
    }
    ItemEffects effects{.context = context, .item = item, .subClip = subClip};
    const auto take = [&](ConstHandle effect) { return TakeEffect(effects, effect); };
    if (title)
        TakeOne(context, title, take);
    TakeEffects(context, item, take);
    AddOpacityOfMode(effects);
    RemarkOnMotion(effects);
    AttachItemEffects(chain, effects,
                      TranslateMotion(context, effects.motionSource, effects.distortSource));
    return chain;
}

void AddMasterChainEffects(const EffectContext& context, ConstHandle owner, ObjectHandle chain)
{
    Components components;
    TakeEffects(context, owner,
                [&](ConstHandle effect) { return TakeMasterEffect(context, effect, components); });
    AttachAll(chain, components, IntProperty(chain, "NextComponentID", 1));
}

void AddMasterChainEffect(const EffectContext& context, ConstHandle effect, ObjectHandle chain)
{
    Components components;
    TakeOne(context, effect,
            [&](ConstHandle taken) { return TakeMasterEffect(context, taken, components); });
    AttachAll(chain, components, IntProperty(chain, "NextComponentID", 1));
}

void VideoChainToXmeml(const EffectContext& context, ConstHandle chain, ObjectHandle item)
{
    if (const ConstHandle motion = FindComponent(chain, kMotion.project.match)) {
        const double stretch = MotionToXmeml(context, motion, item);
        if (stretch != 1.0)
            ApplyAspect(context.document, item, AspectOfRatio(stretch));
        if (stretch != 1.0 && context.openInterchange && IsTrue(motion, "Bypass"))
            FindEffect(item, kDistort.xmeml.id).SetPropertyShared("velaBypass", "true");
    }
    if (const ConstHandle opacity = FindComponent(chain, kOpacity.project.match))
        OpacityToXmeml(context, opacity, item);
    FiltersToXmeml(context, chain, item);
}

} // namespace XPJ
