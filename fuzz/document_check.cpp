#include "document_check.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <unordered_set>

#include <expat.h>

namespace XPJ {
namespace {

struct References {
    std::unordered_set<std::string> defined;
    std::unordered_set<std::string> used;
};

void StartElement(void* userData, const XML_Char*, const XML_Char** attributes)
{
    auto& references = *static_cast<References*>(userData);
    for (; *attributes != nullptr; attributes += 2) {
        const std::string_view name = attributes[0];
        if (name == "ObjectID" || name == "ObjectUID")
            references.defined.insert(attributes[1]);
        else if (name == "ObjectRef" || name == "ObjectURef")
            references.used.insert(attributes[1]);
    }
}

[[noreturn]] void Fail(std::string_view text, const std::string& reason)
{
    std::fprintf(stderr, "%s in the document\n%.*s\n", reason.c_str(),
                 static_cast<int>(text.size()), text.data());
    std::abort();
}

References Parse(std::string_view text)
{
    References references;
    const XML_Parser parser = XML_ParserCreate(nullptr);
    XML_SetUserData(parser, &references);
    XML_SetStartElementHandler(parser, StartElement);
    if (XML_Parse(parser, text.data(), static_cast<int>(text.size()), 1) == XML_STATUS_ERROR)
        Fail(text, std::string(XML_ErrorString(XML_GetErrorCode(parser))) + " at line " +
                       std::to_string(XML_GetCurrentLineNumber(parser)));
    XML_ParserFree(parser);
    return references;
}

} // namespace

void CheckWellFormed(std::string_view text)
{
    Parse(text);
}

void CheckProjectText(std::string_view text)
{
    const References references = Parse(text);
    for (const std::string& reference : references.used)
        if (!references.defined.contains(reference))
            Fail(text, "no object for reference " + reference);
}

} // namespace XPJ
