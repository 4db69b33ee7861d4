#include "effects/video_chain.h"

#include "core/numbers.h"
#include "effects/effect_walk.h"
#include "effects/motion.h"
#include "effects/no_op_tests.h"
#include "effects/opacity.h"
#include "effects/parameters.h"
#include "effects/time_remap.h"
#include "effects/video_filters.h"

namespace XPJ {

namespace {

constexpr int kMotionId = 1;
constexpr int kOpacityId = 2;
constexpr int kFirstFilterId = 3;

// What the filters of an item come to.
struct ItemEffects {
    const EffectContext& context;
    ObjectHandle item;
    ObjectHandle subClip;
    ObjectHandle opacity = {};
    ObjectHandle motionSource = {};
    ObjectHandle distortSource = {};
    Components filters = {};
};

// ---- Intrinsic effects; false when one is not translated

// The first one stands.
bool TakeOpacity(ItemEffects& effects, ObjectHandle effect)
{
    if (!effects.opacity)
        effects.opacity =
            TranslateOpacity(effects.context, effect, effects.item.GetProperty("compositemode"));
    return true;
}

bool TakeMotion(ItemEffects& effects, ObjectHandle effect)
{
    effects.motionSource = effect;
    return true;
}

// Motion has no corners, but it can take an aspect.
bool TakeDistort(ItemEffects& effects, ObjectHandle effect)
{
    if (IsNoOp("deformation", effect))
        return true;
    if (!IsAspectOnly(effect))
        return false;
    effects.distortSource = effect;
    return true;
}

// A constant speed stands on the clip already.
bool TakeSpeed(ItemEffects& effects, ObjectHandle effect)
{
    return !IsVariableSpeed(effect) ||
           AddTimeRemapping(effects.context.document, effect, effects.context.frameTicks,
                            effects.subClip);
}

void AddBasic3D(const EffectContext& context, ObjectHandle effect, Components& components,
                ObjectHandle& motionSource)
{
    if (IsNoOp("Basic 3D", effect))
        return;
    const Basic3D basic3D = TranslateBasic3D(context, effect);
    if (basic3D.component)
        components.push_back(basic3D.component);
    if (basic3D.isMotionSource && !motionSource)
        motionSource = effect;
}

bool TakeBasic3D(ItemEffects& effects, ObjectHandle effect)
{
    AddBasic3D(effects.context, effect, effects.filters, effects.motionSource);
    return true;
}

constexpr struct {
    std::string_view effectId;
    bool (*take)(ItemEffects& effects, ObjectHandle effect);
} kIntrinsics[] = {
    {"opacity", TakeOpacity}, {"basic", TakeMotion},     {"deformation", TakeDistort},
    {"timeremap", TakeSpeed}, {"Basic 3D", TakeBasic3D},
};

bool TakeEffect(ItemEffects& effects, ObjectHandle effect)
{
    const std::string_view id = effect.GetProperty("effectid");
    for (const auto& row : kIntrinsics)
        if (row.effectId == id)
            return row.take(effects, effect);
    return DispatchFilter(effects.context, effect, effects.filters);
}

bool TakeMasterEffect(const EffectContext& context, ObjectHandle effect, Components& components)
{
    const std::string_view id = effect.GetProperty("effectid");
    if (id == "timeremap")
        return true;
    if (id != "Basic 3D")
        return DispatchFilter(context, effect, components);
    ObjectHandle motionSource;
    AddBasic3D(context, effect, components, motionSource);
    return true;
}

// ---- The walk

// Calls `take(effect)`; one that gives false is entered as not translated.
template <typename Take>
void TakeOne(const EffectContext& context, ObjectHandle effect, const Take& take)
{
    if (!take(effect))
        context.AddIssue(ImportIssue::EffectNotTranslated, EffectName(effect));
}

// The same for each effect of a walk.
template <typename Take>
void TakeEffects(const EffectContext& context, ObjectHandle owner, const Take& take)
{
    ForEachEffect(owner, [&](ObjectHandle effect) { TakeOne(context, effect, take); });
}

// An item may have a composite mode without an opacity filter.
void AddOpacityOfMode(ItemEffects& effects)
{
    const std::string_view mode = effects.item.GetProperty("compositemode");
    if (!mode.empty() && !effects.opacity)
        effects.opacity = TranslateOpacity(effects.context, {}, mode);
}

// ---- The result

void Attach(ObjectHandle chain, ObjectHandle component, int id)
{
    component.SetProperty("ID", IntToString(id));
    chain.AddChild("Component", component);
}

void AttachAll(ObjectHandle chain, const Components& components, int firstId)
{
    for (const ObjectHandle& component : components)
        Attach(chain, component, firstId++);
    chain.SetProperty("NextComponentID", IntToString(firstId));
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

} // namespace

ObjectHandle BuildSequenceChain(const EffectContext& context, ObjectHandle item,
                                ObjectHandle subClip, std::string_view sequenceId,
                                ObjectHandle title)
{
    const ObjectHandle chain = context.document.NewObject("VideoComponentChain");
    chain.SetProperty("SeqID", sequenceId);
    chain.SetPropertyShared("DefaultOpacity", "true");
    chain.SetPropertyShared("DefaultMotion", "true");
    if (context.frameTicks == 0)
        return chain;
    ItemEffects effects{.context = context, .item = item, .subClip = subClip};
    const auto take = [&](ObjectHandle effect) { return TakeEffect(effects, effect); };
    if (title)
        TakeOne(context, title, take);
    TakeEffects(context, item, take);
    AddOpacityOfMode(effects);
    AttachItemEffects(chain, effects,
                      TranslateMotion(context, effects.motionSource, effects.distortSource));
    return chain;
}

void AddMasterChainEffects(const EffectContext& context, ObjectHandle owner, ObjectHandle chain)
{
    Components components;
    TakeEffects(context, owner,
                [&](ObjectHandle effect) { return TakeMasterEffect(context, effect, components); });
    AttachAll(chain, components, IntProperty(chain, "NextComponentID", 1));
}

void AddMasterChainEffect(const EffectContext& context, ObjectHandle effect, ObjectHandle chain)
{
    Components components;
    TakeOne(context, effect,
            [&](ObjectHandle taken) { return TakeMasterEffect(context, taken, components); });
    AttachAll(chain, components, IntProperty(chain, "NextComponentID", 1));
}

} // namespace XPJ
