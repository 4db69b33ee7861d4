// The names of elements and properties, as tables of the two vocabularies hold them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <type_traits>

namespace XPJ {

class Document;

// Most names that differ do so by their length or their first letter, most that are equal are one
// literal. `a` and `b` may be empty; neither is looked at beyond its length.
constexpr bool IsSameName(std::string_view a, std::string_view b)
{
    if (a.size() != b.size())
        return false;
    if (!std::is_constant_evaluated() && a.data() == b.data())
        return true;
    return a.empty() || (a.front() == b.front() && a == b);
}

// An element or property name: a string literal, or text that a document has interned.
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
    friend class Document;
    constexpr Name(const char* text, std::uint32_t size) : text_(text), size_(size) {}

    const char* text_ = "";
    std::uint32_t size_ = 0;
};

} // namespace XPJ
