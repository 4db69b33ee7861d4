// Elements for tests, read from `xmeml` text, with an import's state around them.
#pragma once

#include "core/progress.h"
#include "import/import_state.h"
#include "tree/reading.h"
#include "xmeml/reader.h"

#include <gtest/gtest.h>

#include <string>

namespace XPJ {

class XmemlTest : public ::testing::Test {
protected:
    // The first child of an `xmeml` with that content.
    ObjectHandle Parse(const std::string& content)
    {
        ObjectHandle root;
        const std::string_view text =
            document_.Store("<xmeml version=\"4\">" + content + "</xmeml>");
        EXPECT_EQ(ParseFCPXML(text, document_, root), kReadDone) << text;
        const ChildRange children = root.GetChildren();
        return children.begin() != children.end() ? *children.begin() : ObjectHandle();
    }

    ObjectHandle ParseSequence(const std::string& content)
    {
        return Parse("<sequence id=\"s\">" + content + "</sequence>");
    }

    // A clip whose one picture item has a file "f" with that content.
    ObjectHandle ParseClip(const std::string& clip, const std::string& file)
    {
        const ObjectHandle result = Parse(
            "<clip id=\"c\">" + clip + "<media><video><track><clipitem id=\"i\"><file id=\"f\">" +
            file + "</file></clipitem></track></video></media></clip>");
        file_ = FindPath(result, {"media", "video", "track", "clipitem", "file"});
        state_.files["f"] = file_;
        return result;
    }

    Document document_;
    SilentProgress progress_;
    IssueSet issues_;
    ImportState state_{document_, progress_, issues_};
    ObjectHandle file_; // of the last ParseClip
};

} // namespace XPJ
