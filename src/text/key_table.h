// Keys of the objects in text and shape documents. One table of rows (name, member) drives reading
// and writing; the order of the rows is that of the written document. On reading, a key that is
// missing or of the wrong kind leaves its member as it is; unknown keys are ignored.
#pragma once

#include "text/json_blob.h"
#include "text/text_parameters.h"

#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace XPJ::GVE {

// The kinds of values, by the type of the member that takes them.
template <class T>
using Member = std::variant<int T::*, double T::*, bool T::*, std::string T::*, Channel T::*,
                            PackedColor T::*, AnyValue T::*, TextRun T::*,
                            std::vector<TextRun> T::*, std::vector<StyleParam> T::*>;

template <class T>
struct Key {
    std::string_view name;
    Member<T> member;
};

// Numbers of either kind fit members of either kind; what is out of a member's range becomes the
// nearest value in it.
void ReadValue(const Json& json, int& value);
void ReadValue(const Json& json, double& value);
void ReadValue(const Json& json, bool& value);
void ReadValue(const Json& json, std::string& value);
void ReadValue(const Json& json, Channel& value); // above 1 it counts as 0 to 255
void ReadValue(const Json& json, PackedColor& value);
void ReadValue(const Json& json, AnyValue& value); // unless nested too deep to be written back
void ReadValue(const Json& json, TextRun& value);
void ReadValue(const Json& json, std::vector<TextRun>& value);
void ReadValue(const Json& json, std::vector<StyleParam>& value);

void AppendValue(int value, std::string& json);
void AppendValue(double value, std::string& json);
void AppendValue(bool value, std::string& json);
void AppendValue(const std::string& value, std::string& json);
void AppendValue(const Channel& value, std::string& json);
void AppendValue(const PackedColor& value, std::string& json);
void AppendValue(const AnyValue& value, std::string& json);
void AppendValue(const TextRun& value, std::string& json);
void AppendValue(const std::vector<TextRun>& value, std::string& json);
void AppendValue(const std::vector<StyleParam>& value, std::string& json);

// `"name":`
void AppendName(std::string_view name, std::string& json);

// Written only if it isn't empty.
inline bool IsOmitted(const std::vector<StyleParam>& sheet)
{
    return sheet.empty();
}
template <class Value>
bool IsOmitted(const Value&)
{
    return false;
}

// The member of that name; null if there is none, or if `object` is no object.
const Json* Find(const Json& object, std::string_view name);

template <class T>
void ReadKeys(const Json& object, std::span<const Key<T>> keys, T& values)
{
    for (const Key<T>& key : keys)
        if (const Json* const json = Find(object, key.name))
            std::visit([&](auto member) { ReadValue(*json, values.*member); }, key.member);
}

template <class T>
void AppendKeys(const T& values, std::span<const Key<T>> keys, std::string& json)
{
    char separator = '{';
    for (const Key<T>& key : keys) {
        std::visit(
            [&](auto member) {
                if (IsOmitted(values.*member))
                    return;
                json += separator;
                AppendName(key.name, json);
                AppendValue(values.*member, json);
                separator = ',';
            },
            key.member);
    }
    json += '}';
}

} // namespace XPJ::GVE
