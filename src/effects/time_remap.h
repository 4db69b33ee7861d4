// Speed that varies along a clip. A constant speed is a value of the clip itself.
#pragma once

#include "core/ticks.h"
#include "effects/effect_list.h"
#include "tree/object.h"

namespace XPJ {

// True for a `timeremap` effect of a picture whose graph has points of its own, beside those that
// only frame the clip.
bool IsVariableSpeed(ObjectHandle effect);

// Gives the clip of a SubClip the graph of a `timeremap`, unless it has one; false without a clip.
bool AddTimeRemapping(Document& document, ObjectHandle effect, Ticks frameTicks,
                      ObjectHandle subClip);

EffectListing ListTimeRemap();

} // namespace XPJ
