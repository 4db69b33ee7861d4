// Any bytes give a tree or a result code, and the tokeniser follows its state table.
#include "tree/literal_tokeniser.h"
#include "tree/reading.h"
#include "xmeml/reader.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    using namespace XPJ;
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    for (const bool asLeaf : {false, true})
        if (FastEvents(input, asLeaf) != LiteralEvents(input, asLeaf))
            std::abort();

    Document document;
    ObjectHandle root;
    ReadStop stop;
    const int result = ParseFCPXML(input, document, root, &stop);
    if (static_cast<bool>(root) != (result == kReadDone) || stop.offset > size)
        std::abort();
    return 0;
}
