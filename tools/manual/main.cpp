// Prints the manual of the tool: vela_manual man|markdown|bash|zsh|fish
#include "manual/completions.h"
#include "manual/manual.h"
#include "manual/pages.h"

#include <iostream>
#include <string_view>

int main(int argc, char** argv)
{
    using namespace XPJ::Manual;
    const std::string_view kind = argc == 2 ? argv[1] : "";
    const Content content = ReadContent();
    if (kind == "man") {
        std::cout << ManualPage(content, {VELA_VERSION, VELA_RELEASE_DATE});
    } else if (kind == "markdown") {
        std::cout << Reference(content);
    } else if (kind == "bash") {
        std::cout << BashCompletion(content);
    } else if (kind == "zsh") {
        std::cout << ZshCompletion(content);
    } else if (kind == "fish") {
        std::cout << FishCompletion(content);
    } else {
        std::cerr << "usage: vela_manual man|markdown|bash|zsh|fish\n";
        return 64;
    }
    return 0;
}
