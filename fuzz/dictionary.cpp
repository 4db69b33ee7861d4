// Prints a libFuzzer dictionary: the tags and attributes of both vocabularies, what the tokeniser
// looks at, and some of looks, of the script and of timecodes.
#include "project/classes.h"
#include "tree/reading_table.h"
#include "xmeml/elements.h"

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
                             "LUT_1D_SIZE 2\\x0a",
                             "LUT_3D_SIZE 2\\x0a",
                             "DOMAIN_MAX 2 2 2\\x0a",
                             "0 0 0\\x0a",
                             "0 0 0 0\\x0a",
                             "Truelight Cube v2.0\\x0awidth 2 2 2\\x0aCube\\x0a",
                             "3DMESH\\x0aMesh 1 10\\x0a",
                             "LUT_SIZE : 2 2 2\\x0aentries = 8\\x0a",
                             "<?xml?><look><LUT><size>2</size><data>",
                             "ZTX3\\x02\\x00\\x00\\x00\\x01\\x00\\x00\\x00",
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
    for (const ReadingTable* table : {&XmemlReadingTable(), &ProjectReadingTable()}) {
        for (const Name& tag : table->Tags())
            tags.insert(tag.View());
        for (const Rule& rule : table->Rules())
            for (const Name& attribute : rule.attributes)
                attributes.insert(attribute.View());
    }
    for (const std::string_view tag : tags)
        std::cout << "\"<" << tag << ">\"\n\"</" << tag << ">\"\n";
    for (const std::string_view attribute : attributes)
        std::cout << "\" " << attribute << "=\\\"\"\n";
}
