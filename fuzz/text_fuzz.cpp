// Numbers, base64, URLs and entities take any text, and what can be undone is.
#include "core/base64.h"
#include "core/numbers.h"
#include "core/paths.h"
#include "core/text.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    using namespace XPJ;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    if (DecodeBase64(EncodeBase64(text)) != text)
        std::abort();
    const std::string escaped = EscapeXML(text);
    if (EscapeXML(escaped) != escaped)
        std::abort();
    const std::string utf8 = ToUTF8(ToUTF16(text));
    if (ToUTF8(ToUTF16(utf8)) != utf8)
        std::abort();
    if (ParseInt(IntToString(ParseInt(text))) != ParseInt(text) ||
        ParseInt64(IntToString(ParseInt64(text))) != ParseInt64(text))
        std::abort();
    DoubleToString(ParseDouble(text));
    DecodeBase64(text);
    UnescapeXML(text);
    BlobChecksum(text);
    for (const PathStyle style : {PathStyle::Posix, PathStyle::Windows})
        MakePathUrl(PathFromUrl(text, "/base/", style));
    return 0;
}
