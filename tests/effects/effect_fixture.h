// A document for effects, and their findings.
#pragma once

#include "effects/effect_context.h"
#include "support/golden.h"

#include <gtest/gtest.h>

#include <string>

namespace XPJ {

class EffectTest : public testing::Test {
protected:
    // The findings so far, which are dropped.
    std::string TakeIssues()
    {
        const std::string text = IssueText(issues_, Direction::Import);
        issues_.clear();
        return text;
    }

    Document document_;
    IssueSet issues_;
};

} // namespace XPJ
