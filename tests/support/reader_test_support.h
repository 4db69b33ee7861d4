// A tree as text, so that a test shows what it reads and what comes out.
#pragma once

#include "project/reader.h"
#include "tree/reading.h"
#include "xmeml/reader.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace XPJ {

// One node a line, four blanks a level, properties in order of insertion:
//   clip id="c" name="A"
//       rate timebase="25"
inline void AppendOutline(ObjectHandle node, std::size_t level, std::string& text)
{
    text.append(4 * level, ' ').append(node.GetName().View());
    for (const Property& property : node.Properties())
        text.append(" ").append(property.NameView()).append("=\"").append(property.Value()) += '"';
    text += '\n';
    const ChildRange children = node.GetChildren();
    for (auto child = children.begin(); child != children.end(); ++child) {
        const ObjectHandle object = *child;
        if (child.EntryName() != object.GetName().View())
            text.append(4 * (level + 1), ' ').append(child.EntryName()).append(" ->\n");
        AppendOutline(object, level + 1, text);
    }
}

inline std::string Outline(ObjectHandle node)
{
    std::string text;
    AppendOutline(node, 0, text);
    return text;
}

// The outline of the children of the document element that is around `content`.
inline std::string FCPXMLOutline(const std::string& content)
{
    Document document;
    ObjectHandle root;
    const std::string text = "<xmeml version=\"5\">" + content + "</xmeml>";
    EXPECT_EQ(ParseFCPXML(text, document, root), kReadDone);
    std::string outline;
    for (const ObjectHandle& child : root.GetChildren())
        AppendOutline(child, 0, outline);
    return outline;
}

inline std::string ProjectOutline(const std::string& content)
{
    Document document;
    ObjectHandle root;
    std::istringstream stream("<VelaData Version=\"3\">" + content + "</VelaData>");
    EXPECT_EQ(ReadProjectDocument(stream, document, root), kReadDone);
    return Outline(root);
}

} // namespace XPJ
