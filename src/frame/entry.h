// The selectors that a host calls; the exported functions wrap these. They may throw.
#pragma once

#include <vela_fcpxml/plugin.h>

#include <cstdint>

namespace XPJ {

std::int32_t RunSelector(std::int32_t selector, void* record, bool supportsAAF);

// `contextTemplate` with the path `input`, imported with AAF support.
std::int32_t ImportWithTemplate(const char* input, const ConverterContext& contextTemplate);

} // namespace XPJ
