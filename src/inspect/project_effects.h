// Components and transitions of projects.
#pragma once

#include "inspect/timeline.h"
#include "tree/object.h"

namespace XPJ::Inspection {

// The components of a track item, and its pan.
std::vector<Effect> ReadProjectEffects(ObjectHandle trackItem);

std::vector<Keyframe> ReadProjectSpeedKeyframes(ObjectHandle clip);

Transition ReadProjectTransition(ObjectHandle transition);

} // namespace XPJ::Inspection
