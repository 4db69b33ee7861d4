// Binary values in project documents: base64 text with a checksum of the raw bytes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace XPJ {

// Standard alphabet, "=" padding, no line breaks; appended to `text`.
void AppendBase64(std::string_view bytes, std::string& text);
std::string EncodeBase64(std::string_view bytes);

// Skips every byte outside the alphabet (hosts wrap lines) and stops at "=".
std::string DecodeBase64(std::string_view text);

// The host's blob checksum: a 64-bit register shifted left a byte at a time, fed from the low bytes
// of the reflected CRC-32 table; its low 32 bits. Neither CRC-32 nor CRC-64.
std::uint32_t BlobChecksum(std::string_view bytes) noexcept;

} // namespace XPJ
