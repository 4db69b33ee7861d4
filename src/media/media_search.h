// The files below some folders by their names. The folders are walked once, when the first file is
// looked for. A folder counts once, however many links lead to it.
#pragma once

#include "platform/files.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace XPJ {

class MediaSearch {
public:
    explicit MediaSearch(std::vector<std::string> folders) : folders_(std::move(folders)) {}

    bool HasFolders() const { return !folders_.empty(); }

    // Absolute paths of the files of that name; of those that differ in case only if no other is
    // there. In an order that is always the same. Nothing when `wantsStop` ended the walk; the next
    // call then begins it anew.
    std::vector<std::string> FilesNamed(std::string_view name, const StopCheck& wantsStop);

private:
    bool Walk(const StopCheck& wantsStop);

    std::vector<std::string> folders_;
    bool isWalked_ = false;
    std::unordered_map<std::string, std::vector<std::string>> files_; // by name in lower case
};

} // namespace XPJ
