// The picture filters that the converter knows, by `effectid`, else by `name`.
#pragma once

#include "effects/effect_context.h"
#include "effects/effect_list.h"
#include "tree/object.h"

#include <string_view>
#include <vector>

namespace XPJ {

using Components = std::vector<ObjectHandle>;

// Appends what an effect becomes, which may be nothing; false when it is not translated.
using FilterTranslator = bool (*)(const EffectContext& context, ObjectHandle effect,
                                  Components& components);

// Translates by the row of the table for `effect`; false when there is none, or the row's
// translator refuses. A family of effects plugs in with its rows in that table.
bool DispatchFilter(const EffectContext& context, ObjectHandle effect, Components& components);

struct Basic3D {
    ObjectHandle component;      // null when it doesn't swivel or tilt
    bool isMotionSource = false; // scale, centre or rotation belong to Motion
};

// Neither a filter of the table nor an intrinsic effect: its two halves go two ways.
Basic3D TranslateBasic3D(const EffectContext& context, ObjectHandle effect);

} // namespace XPJ
