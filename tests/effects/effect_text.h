// Effects written as document text, read by the reader that imports use.
#pragma once

#include "model/object.h"
#include "model/reader.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace XPJ {

// An `effect` of a clip item from the text of its children.
inline ObjectHandle ReadEffect(Document& document, std::string_view children)
{
    const std::string text =
        "<xmeml version=\"5\"><sequence id=\"s\"><media><video><track><clipitem "
        "id=\"c\"><filter><effect>" +
        std::string(children) +
        "</effect></filter></clipitem></track></video></media></sequence>"
        "</xmeml>";
    ObjectHandle root;
    EXPECT_EQ(ParseFCPXML(document.Store(text), document, root), kReadDone);
    const ObjectHandle effect =
        FindPath(root, {"sequence", "media", "video", "track", "clipitem", "filter", "effect"});
    EXPECT_TRUE(effect);
    return effect;
}

// The `parameter` of an effect that has just one.
inline ObjectHandle ReadParameter(Document& document, std::string_view children)
{
    return ReadEffect(document, "<parameter>" + std::string(children) + "</parameter>")
        .GetChild("parameter");
}

} // namespace XPJ
