#include "core/encoding.h"

#include "core/text.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>

#include <iconv.h>
#include <utf8.h>

namespace XPJ {

namespace {

constexpr std::string_view kUtf8 = "UTF-8";
constexpr std::string_view kReplacement = "\xEF\xBF\xBD";
// A declaration is at the very start, and short.
constexpr std::size_t kMaxDeclaration = 256;

using namespace std::string_view_literals;

// Longer marks first: one starts with another.
constexpr struct {
    std::string_view mark;
    const char* encoding;
} kByteOrderMarks[] = {
    {"\x00\x00\xFE\xFF"sv, "UTF-32BE"}, {"\xFF\xFE\x00\x00"sv, "UTF-32LE"},
    {"\xEF\xBB\xBF"sv, "UTF-8"},        {"\xFE\xFF"sv, "UTF-16BE"},
    {"\xFF\xFE"sv, "UTF-16LE"},
};

// The first "<" of a document without a mark, and an ASCII character after it.
constexpr struct {
    std::string_view start; // "x" for any byte but 0
    const char* encoding;
} kStarts[] = {
    {"\0\0\0<\0\0\0x"sv, "UTF-32BE"},
    {"<\0\0\0x\0\0\0"sv, "UTF-32LE"},
    {"\0<\0x"sv, "UTF-16BE"},
    {"<\0x\0"sv, "UTF-16LE"},
};

// Names that documents use and the system's converter doesn't know.
constexpr struct {
    std::string_view name;
    const char* encoding;
} kAliases[] = {
    {"x-mac-roman", "MACINTOSH"}, {"macroman", "MACINTOSH"}, {"x-mac-cyrillic", "MAC-CYRILLIC"},
    {"x-sjis", "CP932"},          {"x-euc-jp", "EUC-JP"},
};

// These are UTF-8, or a subset of it.
constexpr std::string_view kUtf8Names[] = {"UTF-8", "UTF8", "US-ASCII", "ASCII"};

class Converter {
public:
    explicit Converter(const char* encoding) : handle_(iconv_open("UTF-8", encoding)) {}
    ~Converter()
    {
        if (IsOpen())
            iconv_close(handle_);
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    bool IsOpen() const
    {
        return handle_ != reinterpret_cast<iconv_t>(-1); // NOLINT(performance-no-int-to-ptr): POSIX
    }

    enum class Stop { End, Full, Bad };
    // Converts from the start of `in`, and removes what it has used.
    Stop Convert(std::string_view& in, char*& out, std::size_t& room)
    {
        char* bytes = const_cast<char*>(in.data()); // iconv doesn't change them
        std::size_t left = in.size();
        const std::size_t result = iconv(handle_, &bytes, &left, &out, &room);
        const int error = errno;
        in.remove_prefix(in.size() - left);
        if (result != static_cast<std::size_t>(-1))
            return Stop::End;
        return error == E2BIG ? Stop::Full : Stop::Bad;
    }
    // What a stateful encoding still buffers.
    void Finish(char*& out, std::size_t& room) { iconv(handle_, nullptr, nullptr, &out, &room); }

private:
    iconv_t handle_;
};

bool Matches(std::string_view bytes, std::string_view start)
{
    return bytes.size() >= start.size() &&
           std::equal(start.begin(), start.end(), bytes.begin(), [](char expected, char byte) {
               return expected == 'x' ? byte != 0 : byte == expected;
           });
}

// The declaration up to "?>"; empty without one.
std::string_view DeclarationOf(std::string_view bytes)
{
    const std::string_view head = bytes.substr(0, kMaxDeclaration);
    const std::size_t end = head.find("?>");
    return head.starts_with("<?xml") && end != head.npos ? head.substr(0, end) : ""sv;
}

// A name as XML allows it: letters, digits, ".", "_", "-".
std::string_view DeclaredEncoding(std::string_view declaration)
{
    constexpr std::string_view kKey = "encoding";
    constexpr std::string_view kNameBytes =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789._-";
    const std::size_t key = declaration.find(kKey);
    if (key == declaration.npos)
        return {};
    std::string_view rest = Trimmed(declaration.substr(key + kKey.size()));
    if (!rest.starts_with('='))
        return {};
    rest = Trimmed(rest.substr(1));
    if (rest.empty() || (rest.front() != '"' && rest.front() != '\''))
        return {};
    const std::string_view name = rest.substr(1, rest.find(rest.front(), 1) - 1);
    return name.find_first_not_of(kNameBytes) == name.npos ? name : ""sv;
}

std::string SystemName(std::string_view name)
{
    for (const auto& row : kAliases)
        if (EqualsIgnoreCase(row.name, name))
            return row.encoding;
    return std::string(name);
}

bool IsUtf8Name(std::string_view name)
{
    return std::any_of(std::begin(kUtf8Names), std::end(kUtf8Names),
                       [name](std::string_view known) { return EqualsIgnoreCase(known, name); });
}

bool ReadsAsItself(Converter& converter, std::string_view declaration)
{
    char text[4 * kMaxDeclaration];
    char* out = text;
    std::size_t room = sizeof(text);
    std::string_view rest = declaration;
    return converter.Convert(rest, out, room) == Converter::Stop::End &&
           std::string_view(text, sizeof(text) - room) == declaration;
}

// The encoding of the bytes, by the system's name.
std::string EncodingOf(std::string_view bytes, EncodingFaults& faults)
{
    for (const auto& row : kByteOrderMarks)
        if (bytes.starts_with(row.mark))
            return row.encoding;
    for (const auto& row : kStarts)
        if (Matches(bytes, row.start))
            return row.encoding;
    const std::string_view declaration = DeclarationOf(bytes);
    const std::string_view declared = DeclaredEncoding(declaration);
    if (declared.empty() || IsUtf8Name(declared))
        return std::string(kUtf8);
    std::string name = SystemName(declared);
    Converter converter(name.c_str());
    if (!converter.IsOpen())
        faults.unknown = declared;
    else if (ReadsAsItself(converter, declaration))
        return name;
    return std::string(kUtf8);
}

bool IsAscii(char byte)
{
    return static_cast<unsigned char>(byte) < 0x80;
}

// Length of the ASCII text at the start of `text`.
std::size_t AsciiLength(std::string_view text)
{
    std::size_t i = 0;
    for (std::uint64_t word = 0; i + sizeof(word) <= text.size(); i += sizeof(word)) {
        std::memcpy(&word, text.data() + i, sizeof(word));
        if ((word & 0x8080808080808080) != 0)
            break;
    }
    while (i < text.size() && IsAscii(text[i]))
        ++i;
    return i;
}

// Length of the character beyond ASCII that `text` starts with; 0 if it is invalid.
std::size_t CharacterLength(std::string_view text)
{
    const auto lead = static_cast<unsigned char>(text.front());
    const std::string_view bytes = text.substr(0, lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2);
    return utf8::is_valid(bytes.begin(), bytes.end()) ? bytes.size() : 0;
}

void CountBadRun(std::string_view textBefore, EncodingFaults& faults)
{
    if (faults.badRuns++ > 0)
        return;
    const TextPosition position = PositionOf(textBefore, textBefore.size());
    faults.firstLine = position.line;
    faults.firstColumn = position.column;
}

void CheckUtf8(std::string_view text, EncodingFaults& faults)
{
    bool isRun = false; // the byte before is invalid
    for (std::size_t i = 0; i < text.size();) {
        const std::string_view rest = text.substr(i);
        const std::size_t length = IsAscii(text[i]) ? AsciiLength(rest) : CharacterLength(rest);
        if (length == 0 && !isRun)
            CountBadRun(text.substr(0, i), faults);
        isRun = length == 0;
        i += std::max<std::size_t>(length, 1);
    }
}

std::size_t UnitSize(std::string_view encoding)
{
    return encoding.starts_with("UTF-16") ? 2 : encoding.starts_with("UTF-32") ? 4 : 1;
}

void Decode(std::string_view bytes, std::string& text, EncodingFaults& faults)
{
    constexpr std::size_t kLeastRoom = 64;
    const std::size_t unit = UnitSize(faults.encoding);
    Converter converter(faults.encoding.c_str());
    std::size_t size = 0;
    bool isRun = false; // the byte before is invalid
    text.resize(bytes.size() + bytes.size() / 2 + kLeastRoom);
    for (Converter::Stop stop = Converter::Stop::Full; stop != Converter::Stop::End;) {
        if (text.size() - size < kLeastRoom)
            text.resize(2 * text.size());
        char* out = text.data() + size;
        std::size_t room = text.size() - size;
        const std::size_t before = size;
        stop = converter.Convert(bytes, out, room);
        if (stop == Converter::Stop::End)
            converter.Finish(out, room);
        size = text.size() - room;
        isRun = isRun && size == before;
        if (stop != Converter::Stop::Bad)
            continue;
        if (!isRun) {
            CountBadRun(std::string_view(text).substr(0, size), faults);
            text.resize(std::max(text.size(), size + kLeastRoom));
            size += kReplacement.copy(text.data() + size, kReplacement.size());
        }
        isRun = true;
        bytes.remove_prefix(std::min(unit, bytes.size()));
    }
    text.resize(size);
}

} // namespace

std::string_view DecodeDocument(std::string_view bytes, std::string& decoded,
                                EncodingFaults& faults)
{
    faults = {};
    faults.encoding = EncodingOf(bytes, faults);
    if (faults.encoding == kUtf8) {
        CheckUtf8(bytes, faults);
        return bytes;
    }
    Decode(bytes, decoded, faults);
    return decoded;
}

TextPosition PositionOf(std::string_view text, std::size_t offset)
{
    const std::string_view before = text.substr(0, offset);
    TextPosition position;
    std::size_t lineStart = 0;
    for (std::size_t i = 0; i < before.size(); ++i) {
        const bool isPair = before[i] == '\r' && i + 1 < before.size() && before[i + 1] == '\n';
        if (before[i] == '\n' || (before[i] == '\r' && !isPair)) {
            ++position.line;
            lineStart = i + 1;
        }
    }
    position.column = offset - lineStart + 1;
    return position;
}

} // namespace XPJ
