// Effects written as document text, read by the reader that imports use.
#pragma once

#include "tree/object.h"
#include "tree/reading.h"
#include "xmeml/reader.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace XPJ {

// A clip item of a picture track from the text of its children.
inline ObjectHandle ReadClipItem(Document& document, std::string_view children)
{
    const std::string text =
        "<xmeml version=\"5\"><sequence id=\"s\"><media><video><track><clipitem id=\"c\">" +
        std::string(children) + "</clipitem></track></video></media></sequence></xmeml>";
    ObjectHandle root;
    EXPECT_EQ(ParseFCPXML(document.Store(text), document, root), kReadDone);
    const ObjectHandle item = FindPath(root, {"sequence", "media", "video", "track", "clipitem"});
    EXPECT_TRUE(item);
    return item;
}

// An `effect` of a clip item from the text of its children.
inline ObjectHandle ReadEffect(Document& document, std::string_view children)
{
    const ObjectHandle item =
        ReadClipItem(document, "<filter><effect>" + std::string(children) + "</effect></filter>");
    const ObjectHandle effect = FindPath(item, {"filter", "effect"});
    EXPECT_TRUE(effect);
    return effect;
}

// The `parameter` of an effect that has just one.
inline ObjectHandle ReadParameter(Document& document, std::string_view children)
{
    return ReadEffect(document, "<parameter>" + std::string(children) + "</parameter>")
        .GetChild("parameter");
}

// "value" is a number, or "h:v" for a point.
inline std::string ValueElement(const std::string& value)
{
    const std::size_t colon = value.find(':');
    if (colon == value.npos)
        return "<value>" + value + "</value>";
    return "<value><horiz>" + value.substr(0, colon) + "</horiz><vert>" + value.substr(colon + 1) +
           "</vert></value>";
}

inline std::string Parameter(const std::string& id, const std::string& value,
                             const std::string& more = {})
{
    return "<parameter><parameterid>" + id + "</parameterid>" + ValueElement(value) + more +
           "</parameter>";
}

inline std::string Keyframe(int when, const std::string& value, const std::string& more = {})
{
    return "<keyframe><when>" + std::to_string(when) + "</when>" + ValueElement(value) + more +
           "</keyframe>";
}

inline std::string Filter(const std::string& id, const std::string& parameters = {},
                          const std::string& marks = {})
{
    return "<filter>" + marks + "<effect><name>My " + id + "</name><effectid>" + id +
           "</effectid>" + parameters + "</effect></filter>";
}

} // namespace XPJ
