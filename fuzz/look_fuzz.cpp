// A look that reads is written as a text that reads, and is written again as the same bytes.
#include "grading/look.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    using namespace XPJ;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    CZvError error;
    const std::optional<CGrading> grading = ReadLookDocument(text, "name", &error);
    if (!grading) {
        if (error.message.empty() || error.line < 1 || error.column < 1)
            std::abort();
        return 0;
    }
    const std::string written = Serialize(*grading);
    const std::optional<CGrading> again = ReadLookDocument(written, "another name");
    if (!again || Serialize(*again) != written)
        std::abort();
    return 0;
}
