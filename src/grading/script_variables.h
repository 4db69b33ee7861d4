// Variables of an expression script: those the host sets, among them vectors, and those the script
// makes. Compiled code refers to a variable by its slot.
//
// A coordinate of a host's vector is a variable of its own: of a vector "v" those are "v.x", "v.y",
// "v.z" and "v.w", which the script may also call "v.r" to "v.a".
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace XPJ {

class ScriptVariables {
public:
    enum class Match { None, Variable, Vector, NoCoordinate };
    struct Found {
        Match match = Match::None;
        std::uint32_t slot = 0; // of a Variable
    };

    // From the host. A vector of fewer than 2 or more than 4 values is ignored.
    void Set(std::string_view name, double value);
    void Set(std::string_view name, std::span<const double> vector);

    // False, and *value untouched, for an unknown name and for a variable without a value yet.
    bool Get(std::string_view name, double* value) const;

    Found Find(std::string_view name) const;
    // Slot of the variable that the script assigns; made where there is none.
    std::uint32_t Declare(std::string_view name);

    // Before a compilation: what an earlier script made is gone, and slots are numbered anew.
    void KeepHostVariables();
    // Before a run: the script's own variables lose their values.
    void ForgetScriptValues();

    double Load(std::uint32_t slot) const { return slots[slot].value; }
    void Store(std::uint32_t slot, double value)
    {
        slots[slot].value = value;
        slots[slot].assigned = true;
    }

private:
    struct Slot {
        double value = 0;
        bool assigned = false;
        bool fromHost = false;
    };

    void SetFromHost(std::string_view name, double value);

    std::vector<Slot> slots;
    std::map<std::string, std::uint32_t, std::less<>> names;
    std::map<std::string, std::size_t, std::less<>> vectorSizes;
};

} // namespace XPJ
