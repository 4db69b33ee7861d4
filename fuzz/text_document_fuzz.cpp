// Text and shape documents take any blob, and what was read comes back from what it is written as.
// An input is taken as a blob, and as JSON in a valid envelope, which gets past the count.
#include "text/json_blob.h"
#include "text/shape_path.h"
#include "text/shape_style.h"
#include "text/text_document.h"

#include <cstdlib>

namespace {

using namespace XPJ::GVE;

void Check(std::string_view blob)
{
    const Document document(blob);
    const std::string written = document.serialize();
    const Document back(written);
    if (back.Parameters() != document.Parameters() || back.serialize() != written)
        std::abort();

    const ShapeStyle style = ShapeStyle::FromBlob(blob);
    const ShapePath path = ShapePath::FromBlob(blob);
    if (ShapeStyle::FromBlob(style.serialize()) != style ||
        ShapePath::FromBlob(path.serialize()) != path)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    Check(bytes);
    Check(WriteBlob(bytes));
    std::string object = R"({"mTextParam":)";
    object += bytes;
    Check(WriteBlob(object + '}'));
    return 0;
}
