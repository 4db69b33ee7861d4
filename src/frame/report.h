// The translation report: what a conversion could not carry over, in words.
#pragma once

#include "core/translation_issue.h"
#include "model/object.h"

#include <string>
#include <string_view>

namespace XPJ {

// Two lines for each finding, in set order, ending in CR LF. Names stand as in the tree, with their
// entities.
//   Translation issue:
//   <tab>Sequence <Cut 1> at 01:00:00:00, video track 1: Effect <Sepia> on Clip <A> not translated.
std::string IssueReportText(const IssueSet& issues, Direction direction);

// A line for each, in words.
//   Sequence <Cut 1> at 01:00:00:00, video track 1: Clip <A> has no media, left out.
std::string LeftOutText(const LeftOutList& leftOut);

// The first of "base.txt", "base (1).txt" to "base (99).txt" that is free; empty if none is.
std::string MakeUniqueFileName(const std::string& base, std::string_view extension);

// Writes the report into `folder` (with its last separator; empty for the current one) under a name
// with the local time. Gives its path; empty when it could not be written.
std::string WriteReport(std::string_view folder, const IssueSet& issues, Direction direction);

// Adds the report to the main bin of the project, if the project has one.
void AddReportItem(ObjectHandle projectDocument, std::string_view reportPath);

} // namespace XPJ
