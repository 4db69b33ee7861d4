// The transfer curves a look may name, as the engine spells them, and the keys of their display
// texts. What they compute is the engine's matter.
#pragma once

#include <string_view>

namespace XPJ {

struct TransferCurve {
    std::string_view name;
    std::string_view displayKey; // for the platform's localizer; the text follows the "="
};

inline constexpr TransferCurve kTransferCurves[] = {
    {"Linear", "$$$/ColorCurves/Linear=Linear"},
    {"Arriscan", "$$$/ColorCurves/Arriscan=Arriscan Log"},
    {"AlexaLogCV2", "$$$/ColorCurves/AlexaLogCV2=Alexa LogC V2"},
    {"AlexaLogCV3", "$$$/ColorCurves/AlexaLogCV3=Alexa LogC V3"},
    {"SLog", "$$$/ColorCurves/SLog=S-Log A"},
    {"CineonREDLog", "$$$/ColorCurves/CineonREDLog=Cineon Log / REDlogfilm"},
    {"REDLog", "$$$/ColorCurves/REDLog=REDlog"},
    {"SMPTE", "$$$/ColorCurves/SMPTE=SMPTE-274 SMPTE-292 Panalog"},
    {"JPEG", "$$$/ColorCurves/JPEG=JPEG Gamma (2.2)"},
};

// The row of a name, in any case; null for none of them.
const TransferCurve* FindTransferCurve(std::string_view name);

} // namespace XPJ
