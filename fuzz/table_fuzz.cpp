// A table that can be read is valid, and the grading around it is written as a text that reads;
// from then on it is written as the same bytes.
#include "grading/look.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    using namespace XPJ;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    CZvError error;
    const std::optional<CZv3DLUT> table = ReadTable(bytes, "", &error);
    if (!table) {
        if (error.message.empty() || (error.line < 1) != (error.column < 1))
            std::abort();
        return 0;
    }
    if (!IsSound(*table) || table->entries.size() > size || TableFormat(bytes).empty())
        std::abort();
    const std::optional<CGrading> grading = ReadLookupTable(bytes, "table");
    if (!grading)
        std::abort();
    // The first reading adds the host's color layer, as to any look of the old style.
    const std::optional<CGrading> once = ReadLookDocument(Serialize(*grading), "");
    if (!once)
        std::abort();
    const std::string written = Serialize(*once);
    const std::optional<CGrading> again = ReadLookDocument(written, "");
    if (!again || Serialize(*again) != written)
        std::abort();
    return 0;
}
