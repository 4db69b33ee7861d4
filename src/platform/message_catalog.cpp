#include "platform/message_catalog.h"

#include "core/messages.h"
#include "core/text.h"
#include "platform/files.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include <dlfcn.h>
#include <link.h>
#include <utf8.h>

namespace XPJ {

namespace {

constexpr std::string_view kKeyPrefix = "$$$/";
constexpr std::string_view kCatalogs = "share/vela_fcpxml/messages";
constexpr std::size_t kMaxCatalogSize = std::size_t{1} << 20;

// "$1" and "%s", sorted.
std::vector<std::string_view> Placeholders(std::string_view text)
{
    std::vector<std::string_view> found;
    for (std::size_t i = 0; i + 1 < text.size(); ++i) {
        const bool isArgument = text[i] == '$' && text[i + 1] >= '1' && text[i + 1] <= '9';
        if (isArgument || text.substr(i, 2) == "%s")
            found.push_back(text.substr(i, 2));
    }
    std::ranges::sort(found);
    return found;
}

std::string Environment(const char* name)
{
    // This process never writes the environment.
    const char* const value = std::getenv(name); // NOLINT(concurrency-mt-unsafe)
    return value ? value : "";
}

std::string MessageLocale()
{
    for (const char* const name : {"LC_ALL", "LC_MESSAGES", "LANG"})
        if (std::string locale = Environment(name); !locale.empty())
            return locale;
    return {};
}

// The program or the library that this code is linked into.
std::filesystem::path ModulePath()
{
    static const char kInModule = 0;
    Dl_info info = {};
    link_map* module = nullptr;
    // The interface takes the structure by a pointer to void.
    if (dladdr1(&kInModule, &info, reinterpret_cast<void**>(&module), RTLD_DL_LINKMAP) == 0)
        return {};
    std::error_code error;
    const bool isProgram = !module || !module->l_name || *module->l_name == '\0';
    return std::filesystem::canonical(isProgram ? "/proc/self/exe" : module->l_name, error);
}

std::filesystem::path CatalogFolder()
{
    // From PREFIX/lib/ARCHITECTURE/vela/plugins to PREFIX.
    constexpr int kLevels = 5;
    std::filesystem::path folder = ModulePath().parent_path();
    for (int level = 0; level < kLevels && folder.has_relative_path(); ++level) {
        std::error_code error;
        if (std::filesystem::is_directory(folder / kCatalogs, error))
            return folder / kCatalogs;
        folder = folder.parent_path();
    }
    return {};
}

MessageCatalog ReadInstalledCatalog()
{
    MessageCatalog catalog;
    const std::vector<std::string> names = CatalogNames(MessageLocale());
    const std::filesystem::path folder = names.empty() ? "" : CatalogFolder();
    if (folder.empty())
        return catalog;
    for (const std::string& name : names)
        if (const auto text = ReadRegularFile(folder / (name + ".txt"), kMaxCatalogSize))
            catalog.Add(*text);
    return catalog;
}

} // namespace

void MessageCatalog::Add(std::string_view text)
{
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(kByteOrderMark))
        text.remove_prefix(kByteOrderMark.size());
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string_view line = Trimmed(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        const std::size_t equals = line.find('=');
        if (!line.starts_with(kKeyPrefix) || equals == line.npos || equals + 1 == line.size() ||
            !utf8::is_valid(line.begin(), line.end()))
            continue;
        texts_.try_emplace(std::string(line.substr(0, equals)), line.substr(equals + 1));
    }
}

std::optional<std::string_view> MessageCatalog::Find(std::string_view keyWithDefault) const
{
    const auto found = texts_.find(keyWithDefault.substr(0, keyWithDefault.find('=')));
    if (found == texts_.end())
        return std::nullopt;
    const std::string_view standard = DefaultText(keyWithDefault);
    if (standard.empty() || Placeholders(found->second) != Placeholders(standard))
        return std::nullopt;
    return found->second;
}

std::vector<std::string_view> MessageCatalog::Keys() const
{
    std::vector<std::string_view> keys;
    for (const auto& [key, text] : texts_)
        keys.push_back(key);
    return keys;
}

std::vector<std::string> CatalogNames(std::string_view locale)
{
    locale = locale.substr(0, locale.find_first_of(".@"));
    const auto isPart = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
    };
    if (locale.empty() || locale == "C" || locale == "POSIX" ||
        !std::ranges::all_of(locale, isPart))
        return {};
    std::vector<std::string> names = {std::string(locale)};
    if (const std::size_t territory = locale.find('_'); territory != locale.npos && territory > 0)
        names.emplace_back(locale.substr(0, territory));
    return names;
}

const MessageCatalog& InstalledCatalog()
{
    static const MessageCatalog catalog = ReadInstalledCatalog();
    return catalog;
}

} // namespace XPJ
