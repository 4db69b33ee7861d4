// Constant speed of a track item as its `timeremap` filter states it.
#pragma once

#include "tree/object.h"

namespace XPJ {

struct ItemSpeed {
    double speed = 1.0; // above 0
    bool playBackwards = false;
    bool frameBlending = false;
    bool isStopped = false; // stated as 0, which counts as 1
};

ItemSpeed SpeedOfItem(ConstHandle item);

} // namespace XPJ
