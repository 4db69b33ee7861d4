// Elements for tests, read from `xmeml` text.
#pragma once

#include "tree/reading.h"
#include "xmeml/reader.h"

#include <gtest/gtest.h>

#include <string>

namespace XPJ {

class XmemlTest : public ::testing::Test {
protected:
    // The sequence of that content.
    ObjectHandle ParseSequence(const std::string& content)
    {
        ObjectHandle root;
        const std::string_view text = document_.Store("<xmeml version=\"4\"><sequence id=\"s\">" +
                                                      content + "</sequence></xmeml>");
        EXPECT_EQ(ParseFCPXML(text, document_, root), kReadDone) << text;
        return root.GetChild("sequence");
    }

    Document document_;
};

} // namespace XPJ
