// Chains of picture effects, written as filters and shown as lines.
#pragma once

#include "effects/effect_fixture.h"
#include "effects/effect_text.h"
#include "effects/video_chain.h"
#include "support/golden.h"
#include "support/tree.h"

#include <string>
#include <vector>

namespace XPJ {

class VideoEffectsTest : public EffectTest {
protected:
    ObjectHandle Chain(const std::string& itemChildren)
    {
        const ObjectHandle item = ReadClipItem(document_, itemChildren);
        subClip_ = document_.NewObject("SubClip");
        clip_ = document_.NewObject("VideoClip");
        subClip_.AddChild("Clip", clip_);
        return BuildSequenceChain(context_, item, subClip_, "7");
    }
    // The only component of a chain but for the intrinsic ones; null if there is none.
    ObjectHandle FilterOf(const std::string& filters)
    {
        ObjectHandle found;
        for (const ObjectHandle& component : Chain(filters).GetChildren("Component"))
            if (component.GetProperty("Intrinsic") == "false")
                found = component;
        return found;
    }
    ObjectHandle Intrinsic(ObjectHandle chain, std::string_view displayName)
    {
        for (const ObjectHandle& component : chain.GetChildren("Component"))
            if (component.GetProperty("Intrinsic") == "true" &&
                component.GetProperty("DisplayName") == displayName)
                return component;
        return {};
    }
    // "2 Opacity, 1 Motion, 3 Crop"
    static std::string Components(ObjectHandle chain)
    {
        std::string text;
        for (const ObjectHandle& component : chain.GetChildren("Component"))
            text += (text.empty() ? "" : ", ") + std::string(component.GetProperty("ID")) + " " +
                    std::string(component.GetProperty("DisplayName"));
        return text;
    }
    // The value before the first keyframe, which is also that of a still parameter.
    static std::string Value(ObjectHandle param)
    {
        const std::string_view start = param.GetProperty("StartKeyframe");
        const std::size_t comma = start.find(',') + 1;
        return std::string(start.substr(comma, start.find(',', comma) - comma));
    }
    static ObjectHandle Param(ObjectHandle component, std::string_view name)
    {
        for (const ObjectHandle& param : component.GetChildren("Param"))
            if (param.GetProperty("Name") == name)
                return param;
        return {};
    }
    // Of all parameters, in order: "Left=0., Top=12"
    static std::string Values(ObjectHandle component)
    {
        std::string text;
        for (const ObjectHandle& param : component.GetChildren("Param"))
            text += (text.empty() ? "" : ", ") + std::string(param.GetProperty("Name")) + "=" +
                    Value(param);
        return text;
    }

    // Frames of 10 ticks.
    EffectContext context_{.document = document_,
                           .issues = issues_,
                           .place = {.sequence = "Cut",
                                     .clip = "A",
                                     .trackKind = 1,
                                     .trackIndex = 2,
                                     .time = "01:00:00:00"},
                           .frameTicks = 10};
    ObjectHandle subClip_;
    ObjectHandle clip_;
};

} // namespace XPJ
