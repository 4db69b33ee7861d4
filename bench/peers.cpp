// Other programs' work on a file, each a process of its own as a user would run it:
//   bench_peers expat FILE            reads the file and runs expat's SAX parse over it
//   bench_peers pugixml FILE OUTPUT   loads the file and saves it again
#include "bench/jobs.h"

#include <cstdio>
#include <fstream>
#include <string>
#include <string_view>

namespace {

using namespace XPJ::Bench;

bool ReadFile(const char* path, std::string& text)
{
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    if (!file)
        return false;
    text.resize(static_cast<std::size_t>(file.tellg()));
    file.seekg(0);
    return static_cast<bool>(file.read(text.data(), static_cast<std::streamsize>(text.size())));
}

} // namespace

int main(int argc, char** argv)
{
    const std::string_view peer = argc > 2 ? argv[1] : "";
    if (peer == "expat") {
        std::string text;
        if (!ReadFile(argv[2], text))
            return 1;
        std::printf("%zu\n", SaxParse(text));
        return 0;
    }
    if (peer == "pugixml" && argc > 3) {
        pugi::xml_document document;
        return document.load_file(argv[2]) && document.save_file(argv[3], "", pugi::format_raw) ? 0
                                                                                                : 1;
    }
    std::fputs("usage: bench_peers expat FILE | bench_peers pugixml FILE OUTPUT\n", stderr);
    return 64;
}
