// Components and transitions of projects.
#pragma once

#include "inspect/timeline.h"
#include "project/accessors.h"
#include "tree/object.h"

namespace XPJ::Inspection {

// The components of a track item, and its pan.
std::vector<Effect> ReadProjectEffects(TrackItem trackItem);

std::vector<Keyframe> ReadProjectSpeedKeyframes(ConstHandle clip);

Transition ReadProjectTransition(ConstHandle transition);

} // namespace XPJ::Inspection
