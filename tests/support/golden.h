// Golden cases: one short file with a document, what becomes of it, and the issues.
//
//   # An unknown label leaves no trace
//   %% import
//   <xmeml version="5">...</xmeml>
//   %% project only=BinProjectItem
//   %% issues
//
// The first section is the input, all others are outputs: whole documents, selected objects, or
// outlines (`%% outline`, `%% media`, `%% effects`, see the outline.h of each folder). With
// VELA_ACCEPT=1 in the environment the outputs in the file are rewritten with what came out; the
// change is then reviewed as a diff.
#pragma once

#include "core/account.h"
#include "platform/default_platform.h"
#include "platform/platform.h"

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace XPJ {

struct GoldenSection {
    std::string name;      // "project"
    std::string arguments; // "only=BinProjectItem,RootProjectItem"
    std::string text;      // whole lines
};

// What follows `key` in the arguments of an output, "only=" say.
std::string_view ArgumentOf(const GoldenSection& output, std::string_view key);

// "read 2" or "result 6" for a conversion that failed.
std::string FailureText(int read, int result);

struct GoldenCase {
    std::string comment;
    std::vector<GoldenSection> sections;
};

GoldenCase ParseGoldenCase(std::string_view text);
std::string FormatGoldenCase(const GoldenCase& golden);

// Text of an output section, made from the case's input.
using GoldenOutput = std::function<std::string(const GoldenSection& input, const GoldenSection&)>;

// The differences between a case's outputs and what `produce` gives, empty if there are none.
std::string CheckGoldenCase(const std::filesystem::path& path, const GoldenOutput& produce);

// All cases of a folder of the test data, by name.
std::vector<std::filesystem::path> GoldenCases(std::string_view folder);

// Name of a case as a test, from its file's.
std::string GoldenCaseName(const testing::TestParamInfo<std::filesystem::path>& info);

// Line by line, without the common start and end.
std::string LineDiff(std::string_view expected, std::string_view actual);

// The objects of a project text whose class is in the comma-separated list; all of it for an empty
// list.
std::string SelectObjects(std::string_view project, std::string_view classes);

// Numbers objects from 1, and GUIDs of a `GoldenPlatform` as G1, G2, in the order of appearance.
std::string NormaliseIds(std::string_view text);

// One line an issue, `EffectNotTranslated clip="A" subject="Sepia"`, in the report's order.
std::string IssueText(const IssueSet& issues, Direction direction);

// One line a remark: id, location, subject, detail.
//   track.effect [Cut, A1] <Reverb>
std::string RemarkLines(const Account& account);

// Items without media, one a line.
std::string SkippedLines(const Account& account);

// Its GUIDs differ from all that documents fix.
class GoldenPlatform final : public DefaultPlatform {
public:
    Guid CreateUniqueGuid() override;

private:
    unsigned count_ = 0;
};

} // namespace XPJ
