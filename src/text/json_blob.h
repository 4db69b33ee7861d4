// The envelope of every text and shape document: a 64-bit little-endian count of bytes, then that
// many bytes of UTF-16 (little-endian, no byte order mark) with
//   {"SerializerWrappedObject":{...}}
#pragma once

#include <string>
#include <string_view>

#include <nlohmann/json_fwd.hpp>

namespace XPJ::GVE {

using Json = nlohmann::json;

// Objects and arrays inside one another, in a document that is read.
inline constexpr int kMaxDepth = 64;

// The object inside the envelope. Bytes after the count are ignored. Throws std::runtime_error
// "JSON not well-formed" when there is none: the count runs past the bytes or splits a unit, the
// text is no JSON or deeper than kMaxDepth. Stack and time don't depend on the depth of a rejected
// text.
Json ReadBlob(std::string_view blob);

// The blob of the text of an object.
std::string WriteBlob(std::string_view object);

// As JSON: quoted and escaped; ill-formed UTF-8 becomes U+FFFD.
void AppendString(std::string_view text, std::string& json);
// In the fewest digits that read back as the same number, and never like an integer;
// a number that JSON has no text for is 0.0.
void AppendReal(double value, std::string& json);

} // namespace XPJ::GVE
