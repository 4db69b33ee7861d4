// Any bytes of a stream give a tree or a result code.
#include "project/reader.h"
#include "tree/reading.h"

#include <cstdlib>
#include <sstream>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    using namespace XPJ;
    std::istringstream stream(std::string(reinterpret_cast<const char*>(data), size));
    Document document;
    ObjectHandle root;
    const int result = ReadProjectDocument(stream, document, root);
    if (static_cast<bool>(root) != (result == kReadDone))
        std::abort();
    return 0;
}
