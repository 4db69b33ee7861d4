// Components and transitions of projects.
#pragma once

#include "inspect/timeline.h"
#include "project/accessors.h"
#include "tree/object.h"

namespace XPJ::Inspection {

// The components of a track item, and its pan.
std::vector<Effect> ReadProjectEffects(TrackItem trackItem);

// As documents name it; empty for the normal one.
std::string ReadProjectCompositeMode(TrackItem trackItem);
// Of a mode that documents have no name for.
inline constexpr std::string_view kOtherCompositeMode = "other";

std::vector<Keyframe> ReadProjectSpeedKeyframes(ConstHandle clip);

Transition ReadProjectTransition(ConstHandle transition);

} // namespace XPJ::Inspection
