// Texts of messages in another language, from files that translators edit.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace XPJ {

// A catalog is a text file in UTF-8 with a line for each message, in any order:
//
//   # a comment
//   $$$/Vela/FCP/Layer=Ebene $1
//
// What is no such line is ignored, and its message keeps the default text.
class MessageCatalog {
public:
    // Adds the messages of a file; those that are there already stay.
    void Add(std::string_view text);

    // The text for "$$$/Vela/FCP/Layer=Layer $1"; nothing if there is none, or if its placeholders
    // ($1, %s) are not those of the default text.
    std::optional<std::string_view> Find(std::string_view keyWithDefault) const;

    // Keys, without a default text.
    std::vector<std::string_view> Keys() const;

private:
    std::map<std::string, std::string, std::less<>> texts_;
};

// The names of the catalogs for a locale, the closest first:
//   "de_AT.UTF-8@euro" has "de_AT" and "de"; "C" and "POSIX" have none
std::vector<std::string> CatalogNames(std::string_view locale);

// The catalog of the user's language (LC_ALL, else LC_MESSAGES, else LANG) that is installed with
// the module that holds this code, the tool or the plug-in; empty if there is none. It is read
// once.
//
// Catalogs are in share/vela_fcpxml/messages, in the first folder above the module that has it.
const MessageCatalog& InstalledCatalog();

} // namespace XPJ
