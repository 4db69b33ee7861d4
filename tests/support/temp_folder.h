// A folder that goes away with the test.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace XPJ {

class TempFolder {
public:
    TempFolder()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "vela-XXXXXX").string();
        folder_ = mkdtemp(pattern.data()) ? pattern : std::string();
    }
    ~TempFolder()
    {
        std::error_code error;
        if (!folder_.empty())
            std::filesystem::remove_all(folder_, error);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    // With a trailing separator.
    std::string Path() const { return folder_ + "/"; }
    std::string operator/(std::string_view name) const { return Path().append(name); }

    std::string Write(std::string_view name, std::string_view text) const
    {
        std::string path = *this / name;
        std::ofstream(path, std::ios::binary) << text;
        return path;
    }
    // All of a file; empty if there is none.
    static std::string Read(const std::string& path)
    {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    // Of names in the folder.
    std::size_t FileCount() const
    {
        const std::filesystem::directory_iterator entries(folder_);
        return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
    }

private:
    std::string folder_;
};

} // namespace XPJ
