#include "grading/script_variables.h"

namespace XPJ {

namespace {

constexpr std::string_view kCoordinates = "xyzw";
constexpr std::string_view kColorCoordinates = "rgba";

std::string CoordinateName(std::string_view vector, std::size_t index)
{
    std::string name(vector);
    name += '.';
    name += kCoordinates[index];
    return name;
}

// Its index in a vector, npos for any other name.
std::size_t CoordinateIndex(std::string_view coordinate)
{
    if (coordinate.size() != 1)
        return std::string_view::npos;
    const std::size_t index = kCoordinates.find(coordinate[0]);
    return index != kCoordinates.npos ? index : kColorCoordinates.find(coordinate[0]);
}

} // namespace

void ScriptVariables::SetFromHost(std::string_view name, double value)
{
    const std::uint32_t slot = Declare(name);
    Store(slot, value);
    slots[slot].fromHost = true;
}

void ScriptVariables::Set(std::string_view name, double value)
{
    const Found found = Find(name);
    if (found.match == Match::NoCoordinate)
        return;
    if (found.match == Match::Vector)
        vectorSizes.erase(vectorSizes.find(name));
    if (found.match != Match::Variable) {
        SetFromHost(name, value);
        return;
    }
    Store(found.slot, value);
    slots[found.slot].fromHost = true;
}

void ScriptVariables::Set(std::string_view name, std::span<const double> vector)
{
    if (vector.size() < 2 || vector.size() > kCoordinates.size())
        return;
    vectorSizes.insert_or_assign(std::string(name), vector.size());
    for (std::size_t index = 0; index < vector.size(); ++index)
        SetFromHost(CoordinateName(name, index), vector[index]);
}

bool ScriptVariables::Get(std::string_view name, double* value) const
{
    const Found found = Find(name);
    if (found.match != Match::Variable || !slots[found.slot].assigned)
        return false;
    *value = slots[found.slot].value;
    return true;
}

ScriptVariables::Found ScriptVariables::Find(std::string_view name) const
{
    if (vectorSizes.contains(name))
        return {Match::Vector};
    const std::size_t dot = name.find('.');
    if (dot != name.npos) {
        const auto vector = vectorSizes.find(name.substr(0, dot));
        if (vector != vectorSizes.end()) {
            const std::size_t index = CoordinateIndex(name.substr(dot + 1));
            if (index >= vector->second)
                return {Match::NoCoordinate};
            return {Match::Variable, names.find(CoordinateName(vector->first, index))->second};
        }
    }
    const auto variable = names.find(name);
    if (variable == names.end())
        return {};
    return {Match::Variable, variable->second};
}

std::uint32_t ScriptVariables::Declare(std::string_view name)
{
    const auto known = names.find(name);
    if (known != names.end())
        return known->second;
    const auto slot = static_cast<std::uint32_t>(slots.size());
    slots.emplace_back();
    names.emplace(name, slot);
    return slot;
}

void ScriptVariables::KeepHostVariables()
{
    std::vector<Slot> kept;
    kept.reserve(names.size());
    for (auto variable = names.begin(); variable != names.end();) {
        const Slot slot = slots[variable->second];
        if (!slot.fromHost) {
            variable = names.erase(variable);
            continue;
        }
        variable->second = static_cast<std::uint32_t>(kept.size());
        kept.push_back(slot);
        ++variable;
    }
    slots = std::move(kept);
}

void ScriptVariables::ForgetScriptValues()
{
    for (Slot& slot : slots)
        if (!slot.fromHost)
            slot = {};
}

} // namespace XPJ
