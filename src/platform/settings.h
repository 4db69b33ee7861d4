// The flags of the host's debug database that change a translation.
#pragma once

namespace XPJ {

struct Settings {
    bool convertTitles = false;         // text generators become text effects, not title documents
    bool titlesAsMasterEffects = false; // those effects belong to the master clip
    bool exportTransform = false;       // Transform effects are exported too
    // Documents are read as other programs mean them and written as those can read them, instead of
    // to the letter.
    bool openInterchange = false;
};

// The flags as the current platform has them, to be read once a conversion.
Settings ReadSettings();

} // namespace XPJ
