// GUIDs and their text: lower case, 8-4-4-4-12.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include <boost/uuid/uuid.hpp>

namespace XPJ {

using Guid = boost::uuids::uuid;

// All zero: "the whole project" where a sequence can be chosen.
constexpr Guid kZeroGuid{};

// 36 characters, letters of either case; anything else gives the zero GUID.
Guid StringToGUID(std::string_view text) noexcept;
// Lower-case text of 36 characters.
std::string AsString(const Guid& guid);

} // namespace XPJ
