#include "core/paths.h"

#include "core/numbers.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace XPJ {

namespace {

constexpr std::string_view kLocalhost = "file://localhost/";
constexpr std::string_view kFile = "file:";

char Separator(PathStyle style)
{
    return style == PathStyle::Windows ? '\\' : '/';
}

bool IsLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool StartsWithDrive(std::string_view text)
{
    return text.size() >= 2 && IsLetter(text[0]) && text[1] == ':';
}

// The first escape that isn't one ends the decoding; what follows stays as it is.
std::string DecodeEscapes(std::string_view url)
{
    std::string text;
    text.reserve(url.size());
    std::size_t i = 0;
    while (i < url.size()) {
        if (url[i] != '%') {
            text += url[i++];
            continue;
        }
        const int high = i + 2 < url.size() ? HexDigit(url[i + 1]) : -1;
        const int low = i + 2 < url.size() ? HexDigit(url[i + 2]) : -1;
        if (high < 0 || low < 0)
            break;
        text += static_cast<char>(high * 16 + low);
        i += 3;
    }
    text += url.substr(i);
    return text;
}

bool IsRelative(std::string_view text)
{
    return !text.empty() && !StartsWithDrive(text) && text.substr(0, 2) != "\\\\" &&
           text[0] != '/' && text.find("://") == text.npos;
}

std::string WindowsPath(std::string text, std::string_view basePath)
{
    if (text.find(kLocalhost) != text.npos)
        text.erase(0, kLocalhost.size());
    else if (text.find(kFile) != text.npos)
        text.erase(0, kFile.size());
    else if (IsRelative(text))
        text.insert(0, FolderOf(basePath, PathStyle::Windows));
    if (text.find("eamedia:") == text.npos)
        std::replace(text.begin(), text.end(), '/', '\\');
    return text;
}

// "/C:/a" is "C:/a": a drive path keeps no leading slash.
void DropSlashBeforeDrive(std::string& text)
{
    if (!text.empty() && text[0] == '/' && StartsWithDrive(std::string_view(text).substr(1)))
        text.erase(0, 1);
}

std::string PosixPath(std::string text, std::string_view basePath)
{
    if (text.find(kLocalhost) != text.npos) {
        text.erase(0, kLocalhost.size() - 1);
        DropSlashBeforeDrive(text);
    } else if (text.find(kFile) != text.npos) {
        text.erase(0, kFile.size());
        const std::size_t slashes = std::min(text.find_first_not_of('/'), text.size());
        if (slashes >= 3)
            text.erase(0, slashes - 1);
        DropSlashBeforeDrive(text);
    }
    if (IsRelative(text))
        text.insert(0, FolderOf(basePath, PathStyle::Posix));
    return text;
}

} // namespace

std::string MakePathUrl(std::string_view path)
{
    constexpr char kHex[] = "0123456789abcdef";
    std::string url;
    url.reserve(path.size() + 32);
    for (const char c : path) {
        const unsigned char byte = static_cast<unsigned char>(c);
        if (c == '\\') {
            url += '/';
        } else if (byte >= 0x21 && byte <= 0x7F && c != '%' && c != ':') {
            url += c;
        } else {
            url += '%';
            url += kHex[byte >> 4];
            url += kHex[byte & 15];
        }
    }
    if (url.empty())
        return url;
    const bool isRooted = url[0] == '/';
    const bool isServer = url.substr(0, 2) == "//";
    std::string result(isServer ? "file:" : isRooted ? "file://localhost" : "file://localhost/");
    result += url;
    return result;
}

std::string PathFromUrl(std::string_view url, std::string_view basePath, PathStyle style)
{
    std::string text = DecodeEscapes(url);
    return style == PathStyle::Windows ? WindowsPath(std::move(text), basePath)
                                       : PosixPath(std::move(text), basePath);
}

std::string AbsolutePath(std::string_view path)
{
    std::error_code error;
    const std::filesystem::path absolute = std::filesystem::absolute(path, error);
    return error ? std::string(path) : absolute.string();
}

std::string_view FolderOf(std::string_view path, PathStyle style)
{
    return path.substr(0, path.rfind(Separator(style)) + 1);
}

std::string_view FileNameOf(std::string_view path, PathStyle style)
{
    return path.substr(path.rfind(Separator(style)) + 1);
}

std::string_view ExtensionOf(std::string_view path, PathStyle style)
{
    const std::string_view name = FileNameOf(path, style);
    const std::size_t dot = name.rfind('.');
    return dot == name.npos ? std::string_view() : name.substr(dot + 1);
}

} // namespace XPJ
