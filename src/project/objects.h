// What the builders of project objects have in common.
#pragma once

#include "platform/platform.h"
#include "tree/object.h"

#include <string_view>

namespace XPJ {

// Gives a project object the GUID by which others refer to it.
inline void AddUid(ObjectHandle object)
{
    object.SetProperty("uid", NewGuidText());
}

constexpr std::string_view BoolText(bool value)
{
    return value ? "true" : "false";
}

} // namespace XPJ
