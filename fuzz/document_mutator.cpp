// Damages documents as people and programs do: odd values, references that lead elsewhere, elements
// that are missing, doubled or in the wrong place. Blind mutations rarely leave a document.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

namespace {

using Random = std::minstd_rand;

constexpr std::string_view kOddValues[] = {
    "",     "-1", "0",    "1",     "2",    "3",     "24",          "30",
    "48",   "60", "100",  "-100",  "1.5",  "-0.5",  "1e308",       "nan",
    "TRUE", "x",  "&amp", "&#0;",  "]]>",  "false", "2147483647",  "-2147483648",
    "7%",   ":",  "1:2",  "0,0,0", "\xff", "1e-9",  "2147483648",  "9223372036854775807",
    "inf",  ",",  "/",    "..",    "true", "%zz",   "01:00:00:00", "-9223372036854775808",
};

struct Span {
    std::size_t begin = 0;
    std::size_t end = 0;
};

std::size_t Below(Random& random, std::size_t bound)
{
    return bound == 0 ? 0 : random() % bound;
}

// Texts of elements that hold nothing else.
std::vector<Span> TextsOf(std::string_view document)
{
    std::vector<Span> texts;
    for (std::size_t open = document.find('>'); open != document.npos;
         open = document.find('>', open + 1)) {
        const std::size_t next = document.find('<', open);
        if (next != document.npos && document.substr(next, 2) == "</")
            texts.push_back({open + 1, next});
    }
    return texts;
}

// Values of attributes.
std::vector<Span> AttributesOf(std::string_view document)
{
    std::vector<Span> values;
    for (std::size_t open = document.find("=\""); open != document.npos;) {
        const std::size_t close = document.find('"', open + 2);
        if (close == document.npos)
            break;
        values.push_back({open + 2, close});
        open = document.find("=\"", close + 1);
    }
    return values;
}

// A whole element, from its "<" to behind its end tag; empty if it has no end.
Span ElementAt(std::string_view document, std::size_t begin)
{
    int level = 0;
    for (std::size_t at = begin; at != document.npos; at = document.find('<', at + 1)) {
        const std::size_t close = document.find('>', at);
        if (close == document.npos)
            break;
        if (document[at + 1] == '/')
            --level;
        else if (document[close - 1] != '/')
            ++level;
        if (level <= 0)
            return {begin, close + 1};
    }
    return {begin, begin};
}

Span AnyElement(std::string_view document, Random& random)
{
    const std::size_t begin = document.find('<', Below(random, document.size()));
    if (begin == document.npos || document.substr(begin, 2) == "</")
        return {};
    return ElementAt(document, begin);
}

void ReplaceOne(std::string& document, const std::vector<Span>& spans, Random& random)
{
    if (spans.empty())
        return;
    const Span target = spans[Below(random, spans.size())];
    const Span other = spans[Below(random, spans.size())];
    const std::string value = Below(random, 3) == 0
                                  ? document.substr(other.begin, other.end - other.begin)
                                  : std::string(kOddValues[Below(random, std::size(kOddValues))]);
    document.replace(target.begin, target.end - target.begin, value);
}

void RemoveElement(std::string& document, Random& random)
{
    const Span element = AnyElement(document, random);
    document.erase(element.begin, element.end - element.begin);
}

void CopyElement(std::string& document, Random& random)
{
    const Span element = AnyElement(document, random);
    const std::string copy = document.substr(element.begin, element.end - element.begin);
    const std::size_t place = document.find('<', Below(random, document.size()));
    document.insert(std::min(place, document.size()), copy);
}

void Damage(std::string& document, Random& random)
{
    switch (Below(random, 5)) {
    case 0:
    case 1:
        return ReplaceOne(document, TextsOf(document), random);
    case 2:
        return ReplaceOne(document, AttributesOf(document), random);
    case 3:
        return RemoveElement(document, random);
    default:
        return CopyElement(document, random);
    }
}

} // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t maxSize, unsigned seed)
{
    Random random(seed);
    std::string document(reinterpret_cast<const char*>(data), size);
    if (size == 0 || Below(random, 8) == 0)
        return LLVMFuzzerMutate(data, size, maxSize);
    for (std::size_t count = 1 + Below(random, 4); count > 0 && !document.empty(); --count)
        Damage(document, random);
    const std::size_t result = std::min(document.size(), maxSize);
    std::copy_n(document.begin(), result, data);
    return result;
}
