// A grading as a look document holds it: keyframes of ordered layers, masks, lookup tables. Plain
// values; texts whose meaning no conversion needs are kept as the document spells them.
//
//   grading
//     animation
//       keyframes at a time
//         layers, each one shader with its named parameters, perhaps under a mask
//     tables that layers name, inside or beside the document
//     properties
#pragma once

#include "grading/lookup_table.h"
#include "grading/property_list.h"
#include "grading/shading_mask.h"
#include "grading/values.h"

#include "core/guid.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace XPJ {

// Layers that mean something to the reader or the writer of looks; compared without case.
inline constexpr std::string_view kGroupBeginLayer = "__GroupBegin";
inline constexpr std::string_view kColorLayer = "__VlColor";                       // the host's own
inline constexpr std::string_view kColorPlaceholderLayer = "__VlColorPlaceholder"; // never written

// One layer: a shader and what it is set to.
struct CZvShaderParamStorage {
    std::string name; // of the shader
    // customname, visible, lockedvisible, opacity, mask, vectormask, linked: those it states. The
    // two masks are names.
    CZvValues fields;
    std::optional<CZvShadingMask> shaderMask; // inside the layer
    CZvValues parameters;                     // by name, in the order of the document
};

// The layers at one moment.
struct CZvGradingParamStorage {
    std::vector<CZvShaderParamStorage> layers;
};

struct GradingKeyframe {
    double time = 0; // seconds
    std::string tween = "0";
    double easeIn = 0;
    double easeOut = 0;
    std::string selectedLayer = "0";
    std::string base; // read, never written
    CZvGradingParamStorage storage;
};

struct CZvGradingAnimation {
    std::string name;
    std::vector<GradingKeyframe> keyframes;
};

// A reference to a table beside the document that was not found there.
struct ExternalTable {
    std::string hash; // 32 hexadecimal digits
    std::string fileName;
};

struct CGrading {
    std::int32_t version = 1;
    CZvGradingAnimation animation;
    std::vector<CZv3DLUT> embeddedLUTs;
    std::vector<ExternalTable> externalLUTs;
    std::string name;
    Guid guid = kZeroGuid;
    std::optional<CZvPropertyList> properties;
    std::optional<CZvShadingMask> mask; // a definition that layers refer to by its name
};

} // namespace XPJ
