#include "text/json_blob.h"

#include "core/json.h"
#include "core/text.h"

#include <cmath>
#include <cstdint>
#include <stdexcept>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace XPJ::GVE {

namespace {

constexpr std::string_view kFrame = "SerializerWrappedObject";
constexpr std::size_t kCountBytes = 8;

[[noreturn]] void ThrowNotWellFormed()
{
    throw std::runtime_error("JSON not well-formed");
}

// Checks the nesting of a text before anything is built from it.
class DepthGuard : public nlohmann::json_sax<Json> {
public:
    bool null() override { return true; }
    bool boolean(bool) override { return true; }
    bool number_integer(number_integer_t) override { return true; }
    bool number_unsigned(number_unsigned_t) override { return true; }
    bool number_float(number_float_t, const string_t&) override { return true; }
    bool string(string_t&) override { return true; }
    bool binary(binary_t&) override { return true; }
    bool key(string_t&) override { return true; }
    bool start_object(std::size_t) override { return ++depth_ <= kMaxDepth; }
    bool start_array(std::size_t) override { return ++depth_ <= kMaxDepth; }
    bool end_object() override { return --depth_ >= 0; }
    bool end_array() override { return --depth_ >= 0; }
    bool parse_error(std::size_t, const std::string&, const Json::exception&) override
    {
        return false;
    }

private:
    int depth_ = 0;
};

// The text after the count, as UTF-8; lone surrogates become U+FFFD.
std::string TextOf(std::string_view blob)
{
    if (blob.size() < kCountBytes)
        ThrowNotWellFormed();
    std::uint64_t count = 0;
    for (std::size_t i = kCountBytes; i-- > 0;)
        count = count << 8 | static_cast<unsigned char>(blob[i]);
    blob.remove_prefix(kCountBytes);
    if (count > blob.size() || count % 2 != 0)
        ThrowNotWellFormed();

    std::u16string text(static_cast<std::size_t>(count / 2), u'\0');
    for (std::size_t i = 0; i < text.size(); ++i)
        text[i] = static_cast<char16_t>(static_cast<unsigned char>(blob[2 * i]) |
                                        static_cast<unsigned char>(blob[2 * i + 1]) << 8);
    return ToUTF8(text);
}

} // namespace

Json ReadBlob(std::string_view blob)
{
    const std::string text = TextOf(blob);
    DepthGuard guard;
    if (!Json::sax_parse(text, &guard))
        ThrowNotWellFormed();
    Json root = ParseJson(text);
    if (!root.is_object())
        ThrowNotWellFormed();
    const auto frame = root.find(kFrame);
    if (frame == root.end() || !frame->is_object() || frame->empty())
        ThrowNotWellFormed();
    return std::move(*frame);
}

std::string WriteBlob(std::string_view object)
{
    const std::u16string text = ToUTF16(fmt::format("{{\"{}\":{}}}", kFrame, object));
    std::string blob;
    blob.reserve(kCountBytes + 2 * text.size());
    const std::uint64_t count = 2 * static_cast<std::uint64_t>(text.size());
    for (std::size_t i = 0; i < kCountBytes; ++i)
        blob += static_cast<char>(count >> (8 * i) & 0xff);
    for (const char16_t unit : text) {
        blob += static_cast<char>(unit & 0xff);
        blob += static_cast<char>(unit >> 8);
    }
    return blob;
}

void AppendString(std::string_view text, std::string& json)
{
    json += JsonText(Json(text));
}

void AppendReal(double value, std::string& json)
{
    const std::string text = fmt::format("{}", std::isfinite(value) ? value : 0.0);
    json += text;
    if (text.find_first_of(".e") == std::string::npos)
        json += ".0";
}

} // namespace XPJ::GVE
