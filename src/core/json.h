// JSON values from text and back. In the library these are templates, and each file that called
// them would compile a parser or serializer of its own, for longer than all the rest of it takes.
#pragma once

#include <string>
#include <string_view>

#include <nlohmann/json_fwd.hpp>

namespace XPJ {

// A discarded value for what is no JSON.
nlohmann::json ParseJson(std::string_view text);

// In one line without an indentation. Ill-formed UTF-8 becomes U+FFFD.
std::string JsonText(const nlohmann::json& json);
std::string JsonText(const nlohmann::ordered_json& json, int indentation = -1);

} // namespace XPJ
