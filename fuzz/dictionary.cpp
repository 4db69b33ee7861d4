// Prints a libFuzzer dictionary: the words of both grammars, what the tokeniser looks at, and
// some of looks, of the script and of timecodes.
#include "model/grammar.h"

#include <iostream>
#include <set>
#include <string_view>

int main()
{
    using namespace XPJ;
    for (const char* word : {"<",
                             "</",
                             "/>",
                             "<!--",
                             "-->",
                             "<![CDATA[",
                             "]]>",
                             "<!DOCTYPE",
                             "</file>",
                             "&amp;",
                             "&#13;",
                             " id=\\\"",
                             " ObjectID=\\\"1\\\"",
                             " ObjectRef=\\\"1\\\"",
                             " ObjectUID=\\\"g\\\"",
                             " ObjectURef=\\\"g\\\"",
                             " BinaryHash=\\\"",
                             "file://localhost/",
                             "<Gradiva>",
                             "</Gradiva>",
                             "<keyframe>",
                             "</keyframe>",
                             "<shader><name>",
                             "</name></shader>",
                             "__GroupBegin",
                             "__VlColorPlaceholder",
                             "<parameters>",
                             "</parameters>",
                             "<mask><data><contour><point><inner>1,2</inner>",
                             "catmull-rom,value:1,2@0",
                             "linear,value:1@0",
                             "<embeddedlut><hash>",
                             "<lut><size>2</size><data>",
                             "<properties><property>",
                             "while (",
                             "else ",
                             "break;",
                             "smoothstep(",
                             "fps, DropFrame",
                             "{Src.FrameNumberPadded.",
                             "\\x00",
                             "\\x0d\\x0a"})
        std::cout << '"' << word << "\"\n";

    std::set<std::string_view> tags;
    std::set<std::string_view> attributes;
    for (const Grammar* grammar : {&FCPXMLGrammar(), &ProjectGrammar()}) {
        for (const Name& tag : grammar->Tags())
            tags.insert(tag.View());
        for (const Rule& rule : grammar->Rules())
            for (const Name& attribute : rule.attributes)
                attributes.insert(attribute.View());
    }
    for (const std::string_view tag : tags)
        std::cout << "\"<" << tag << ">\"\n\"</" << tag << ">\"\n";
    for (const std::string_view attribute : attributes)
        std::cout << "\" " << attribute << "=\\\"\"\n";
}
