#include "xmeml/sniff.h"

#include "platform/files.h"

#include <algorithm>
#include <array>

namespace XPJ {

namespace {

constexpr std::size_t kSniffedBytes = 1000;

constexpr std::string_view kDocumentMark = "<xmeml version=";
// At least one of these has to be there as well.
constexpr std::string_view kContentMarks[] = {"<!doctype xmeml>", "<sequence", "<clip", "<bin",
                                              "<project"};
// All of these make it a hand-off.
constexpr std::string_view kHandOffOptions[] = {"<importoptions>", "<sn2vl>"};

char LowerCase(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

} // namespace

FileKind SniffText(std::string_view text)
{
    std::string head(text.substr(0, kSniffedBytes));
    std::transform(head.begin(), head.end(), head.begin(), LowerCase);
    const auto holds = [&head](std::string_view mark) { return head.find(mark) != head.npos; };

    FileKind kind;
    kind.isFCPXML = holds(kDocumentMark) &&
                    std::any_of(std::begin(kContentMarks), std::end(kContentMarks), holds);
    kind.sn2vlMode =
        kind.isFCPXML && std::all_of(std::begin(kHandOffOptions), std::end(kHandOffOptions), holds);
    return kind;
}

FileKind SniffFile(const std::string& path)
{
    std::array<char, kSniffedBytes> head;
    std::size_t size = 0;
    CoreFile file;
    if (!file.Open(path, false) || !file.Read(head.data(), head.size(), size))
        return {};
    return SniffText({head.data(), size});
}

} // namespace XPJ
