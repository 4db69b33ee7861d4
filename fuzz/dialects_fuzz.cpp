// Any bytes that read as an `xmeml` document are restated in both directions: the rules come to an
// end, leave nothing to assume for a second run, and the document can be written.
#include "dialects/dialects.h"
#include "document_check.h"
#include "tree/reading.h"
#include "xmeml/reader.h"
#include "xmeml/writer.h"

#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    using namespace XPJ;
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    Document document;
    ObjectHandle root;
    if (ParseFCPXML(input, document, root) != kReadDone)
        return 0;

    AssumptionList assumptions;
    RestateAsMeant(document, root, assumptions);
    assumptions.clear();
    RestateAsMeant(document, root, assumptions);
    for (const Assumption& assumption : assumptions)
        std::fprintf(stderr, "assumed again: %s: %s\n", std::string(assumption.rule->name).c_str(),
                     std::string(assumption.subject).c_str());
    if (!assumptions.empty())
        std::abort();

    RestateForOthers(document, root, {}, assumptions);
    SilentProgress progress;
    std::ostringstream text;
    if (WriteFCPXML(root, progress, false, text) != kWriteDone)
        std::abort();
    CheckWellFormed(text.str());
    return 0;
}
