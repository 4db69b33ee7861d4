#include "media/header_bytes.h"

#include <algorithm>

namespace XPJ {

namespace {

std::uint64_t Byte(std::string_view bytes, std::size_t at)
{
    return at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0;
}

} // namespace

HeaderBytes::HeaderBytes(std::istream& file) : file_(file)
{
    file_.seekg(0, std::ios::end);
    const std::streamoff end = file_.tellg();
    size_ = end > 0 ? static_cast<std::uint64_t>(end) : 0;
}

std::string HeaderBytes::Read(std::uint64_t offset, std::size_t count)
{
    if (offset >= size_ || readsLeft_ <= 0)
        return {};
    --readsLeft_;
    std::string bytes(static_cast<std::size_t>(std::min<std::uint64_t>(count, size_ - offset)),
                      '\0');
    file_.clear();
    file_.seekg(static_cast<std::streamoff>(offset));
    file_.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(std::max<std::streamsize>(file_.gcount(), 0)));
    return bytes;
}

std::uint64_t BigEndian(std::string_view bytes, std::size_t at, std::size_t count)
{
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < count; ++i)
        value = value << 8 | Byte(bytes, at + i);
    return value;
}

std::uint64_t LittleEndian(std::string_view bytes, std::size_t at, std::size_t count)
{
    std::uint64_t value = 0;
    for (std::size_t i = count; i > 0; --i)
        value = value << 8 | Byte(bytes, at + i - 1);
    return value;
}

} // namespace XPJ
