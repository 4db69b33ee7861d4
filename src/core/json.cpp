#include "core/json.h"

#include <nlohmann/json.hpp>

namespace XPJ {

nlohmann::json ParseJson(std::string_view text)
{
    return nlohmann::json::parse(text, nullptr, false);
}

std::string JsonText(const nlohmann::json& json)
{
    return json.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

std::string JsonText(const nlohmann::ordered_json& json, int indentation)
{
    return json.dump(indentation, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
}

} // namespace XPJ
