// Multiclips: several angles of one event behind one clip.
#pragma once

#include "tree/object.h"
#include "xmeml/rates.h"

#include <cstdint>
#include <unordered_map>

namespace XPJ {

// The `multiclip` of a clip or track item: a child of it, else of the item that opens the first
// video or audio track of its `media`. Null if there is none.
ConstHandle FindMulticlip(ConstHandle element);

// A collapsed multiclip, the usual kind, counts as the clip of its active angle.
bool IsCollapsed(ConstHandle multiclip);

// Audio `track`s of an angle's `clip`.
int AudioTracksOfAngle(ConstHandle clip);

// Length of the longest angle in frames, and the most audio tracks of one.
struct AngleExtent {
    Frames duration = 0;
    int audioTracks = 0;
};
AngleExtent ExtentOfAngles(ConstHandle multiclip);

struct ActiveAngle {
    int number = 1;   // from 1
    ConstHandle clip; // null if the angle has none
};

// The first angle that is active for the video, else for the audio, else the first of all.
ActiveAngle FindActiveAngle(ConstHandle multiclip);

// Those of all multiclips: many items may show the same one, and have it looked through each time.
class ActiveAngles {
public:
    void Add(ConstHandle multiclip);
    ActiveAngle Of(ConstHandle multiclip) const;

private:
    std::unordered_map<std::uint64_t, ActiveAngle> angles_; // by `uniqueId` of the `multiclip`
};

} // namespace XPJ
