// The names of elements and properties, as tables of the two vocabularies hold them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <type_traits>

namespace XPJ {

// The first and the last bytes of both, which are all of up to twice as many.
template <class Bytes>
bool AreEndsEqual(const char* a, const char* b, std::size_t size)
{
    const auto load = [](const char* from) {
        Bytes bytes;
        std::memcpy(&bytes, from, sizeof bytes);
        return bytes;
    };
    const std::size_t last = size - sizeof(Bytes);
    return load(a) == load(b) && load(a + last) == load(b + last);
}

// Most names have at most 16 letters, which are compared without a call; most that are equal are
// one literal. `a` and `b` may be empty; neither is looked at beyond its length.
constexpr bool IsSameName(std::string_view a, std::string_view b)
{
    const std::size_t size = a.size();
    if (size != b.size())
        return false;
    if (std::is_constant_evaluated())
        return a == b;
    if (a.data() == b.data() || size == 0)
        return true;
    if (size >= 8)
        return size <= 16 ? AreEndsEqual<std::uint64_t>(a.data(), b.data(), size) : a == b;
    if (size >= 4)
        return AreEndsEqual<std::uint32_t>(a.data(), b.data(), size);
    return a[0] == b[0] && a[size / 2] == b[size / 2] && a[size - 1] == b[size - 1];
}

// An element or property name: a string literal, or text of a table, to the process's end.
class Name {
public:
    constexpr Name() = default;
    template <std::size_t N>
    consteval Name(const char (&literal)[N]) // NOLINT(google-explicit-constructor)
        : text_(literal), size_(N - 1)
    {
    }

    // A name of a table that lives to the process's end.
    static constexpr Name OfStatic(std::string_view text)
    {
        return {text.data(), static_cast<std::uint32_t>(text.size())};
    }

    constexpr std::string_view View() const { return {text_, size_}; }
    constexpr const char* Text() const { return text_; }
    constexpr std::uint32_t Size() const { return size_; }
    constexpr bool IsEmpty() const { return size_ == 0; }

    friend constexpr bool operator==(const Name& a, const Name& b)
    {
        return IsSameName(a.View(), b.View());
    }
    friend constexpr bool operator==(const Name& a, std::string_view b)
    {
        return IsSameName(a.View(), b);
    }
    // Literals are names and views alike; this one and its like below decide for them.
    template <std::size_t N>
    friend constexpr bool operator==(const Name& a, const char (&literal)[N])
    {
        return IsSameName(a.View(), std::string_view(literal, N - 1));
    }

private:
    constexpr Name(const char* text, std::uint32_t size) : text_(text), size_(size) {}

    const char* text_ = "";
    std::uint32_t size_ = 0;
};

} // namespace XPJ
