#include "project/marker_record.h"

#include "core/json.h"
#include "core/numbers.h"
#include "core/text.h"

#include <algorithm>
#include <cstdint>
#include <limits>

#include <nlohmann/json.hpp>

namespace XPJ {

namespace {

using Json = nlohmann::json;

// Begins the key of the cue point that carries the color; a GUID follows.
constexpr std::string_view kKeywordKey = "keywordExtHULv1_";

// The UTF-16 unit of the escape at `position`, "\u00e9"; 0 where there is none.
unsigned EscapedUnit(std::string_view json, std::size_t position)
{
    constexpr std::size_t kLength = 6;
    if (json.substr(std::min(position, json.size()), 2) != "\\u" ||
        position + kLength > json.size())
        return 0;
    unsigned unit = 0;
    for (const char c : json.substr(position + 2, kLength - 2)) {
        const int digit = HexDigit(c);
        if (digit < 0)
            return 0;
        unit = unit * 16 + static_cast<unsigned>(digit);
    }
    return unit;
}

bool IsBetween(unsigned unit, unsigned first, unsigned last)
{
    return unit >= first && unit <= last;
}

// A name that was cut within a character ends in half of it, which no reader of JSON takes; it is
// read as U+FFFD.
std::string WithWholeCharacters(std::string_view json)
{
    std::string text = ToUTF8(ToUTF16(json));
    for (std::size_t i = text.find('\\'); i != text.npos; i = text.find('\\', i)) {
        const unsigned unit = EscapedUnit(text, i);
        const bool isPair =
            IsBetween(unit, 0xD800, 0xDBFF) && IsBetween(EscapedUnit(text, i + 6), 0xDC00, 0xDFFF);
        if (IsBetween(unit, 0xD800, 0xDFFF) && !isPair)
            text.replace(i, 6, "\\ufffd");
        i += isPair ? 12 : 2;
    }
    return text;
}

// Documents escape the text for XML; most records parse as they are, and keep their entities.
Json ParseEscaped(std::string_view text)
{
    const std::string unescaped = UnescapeXML(text);
    for (const std::string_view stated : {text, std::string_view(unescaped)}) {
        if (Json json = ParseJson(stated); !json.is_discarded())
            return json;
        if (Json json = ParseJson(WithWholeCharacters(stated)); !json.is_discarded())
            return json;
    }
    return Json(Json::value_t::discarded);
}

// The member, null if there is none.
const Json* Find(const Json& object, std::string_view key)
{
    if (!object.is_object())
        return nullptr;
    const auto found = object.find(key);
    return found == object.end() ? nullptr : &*found;
}

std::string TextOf(const Json& object, std::string_view key)
{
    const Json* const value = Find(object, key);
    return value && value->is_string() ? value->get<std::string>() : std::string();
}

// A number, or a text that holds one.
Ticks NumberOf(const Json& value)
{
    if (value.is_number_unsigned()) {
        constexpr auto kMax = static_cast<std::uint64_t>(std::numeric_limits<Ticks>::max());
        return static_cast<Ticks>(std::min(value.get<std::uint64_t>(), kMax));
    }
    if (value.is_number_integer())
        return value.get<Ticks>();
    if (value.is_number_float())
        return ToTicks(value.get<double>());
    return value.is_string() ? ParseInt64(value.get_ref<const std::string&>()) : 0;
}

Ticks TimeOf(const Json& record, std::string_view key)
{
    const Json* const time = Find(record, key);
    const Json* const ticks = time ? Find(*time, "ticks") : nullptr;
    return ticks ? NumberOf(*ticks) : 0;
}

// The value of the cue point is a JSON text in its turn.
std::string ColorOf(const Json& record)
{
    const Json* const cuePoints = Find(record, "mCuePointList");
    if (!cuePoints || !cuePoints->is_array())
        return {};
    for (const Json& cuePoint : *cuePoints) {
        if (!TextOf(cuePoint, "mKey").starts_with(kKeywordKey))
            continue;
        const Json keyword = ParseEscaped(TextOf(cuePoint, "mValue"));
        const Json* const color = Find(keyword, "color");
        const Ticks number = color ? NumberOf(*color) : 0;
        return number == 0 ? std::string() : IntToString(number);
    }
    return {};
}

} // namespace

std::optional<MarkerRecord> ParseMarkerRecord(std::string_view text)
{
    const Json outer = ParseEscaped(text);
    if (!outer.is_object())
        return std::nullopt;
    const Json* const inner = Find(outer, "HULMarker");
    const Json& record = inner ? *inner : outer;
    return MarkerRecord{.name = TextOf(record, "mName"),
                        .comment = TextOf(record, "mComment"),
                        .type = TextOf(record, "mType"),
                        .start = TimeOf(record, "mStartTime"),
                        .duration = TimeOf(record, "mDuration"),
                        .color = ColorOf(record)};
}

} // namespace XPJ
