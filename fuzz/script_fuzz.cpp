// A script ends, with a message or a result; a message is terminated and empty on success alone.
#include "grading/script_parser.h"

#include <cstdlib>
#include <cstring>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    using namespace XPJ;
    const std::string_view script(reinterpret_cast<const char*>(data), size);
    CZvScriptParser parser;
    char error[CZvScriptParser::kErrorSize];
    const double vector[] = {1, 2, 3};
    parser.Set("h", 0.5);
    parser.Set("v", vector);
    const bool compiled = parser.Compile(script, error);
    if (compiled != (error[0] == '\0') || std::memchr(error, 0, sizeof error) == nullptr)
        std::abort();
    const bool ran = parser.Run(error);
    if (ran != (error[0] == '\0') || (ran && !compiled))
        std::abort();
    double value = 0;
    if (!parser.Get("h", &value) || !parser.Get("v.b", &value))
        std::abort();
    parser.Get(script, &value);
    return 0;
}
