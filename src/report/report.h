// The translation report: what a conversion could not carry over.
#pragma once

#include "core/account.h"
#include "platform/files.h"
#include "tree/object.h"

#include <string>
#include <string_view>

namespace XPJ {

// How a report states names: as in the documents, with their entities ("A &amp; B"), as hosts
// expect it, or in plain text.
enum class NameStyle { AsInDocument, Plain };

// Two lines for each issue, in set order, ending in CR LF.
//   Translation issue:
//   <tab>Sequence <Cut 1> at 01:00:00:00, video track 1: Effect <Sepia> on Clip <A> not translated.
std::string IssueReportText(const IssueSet& issues, Direction direction,
                            NameStyle names = NameStyle::AsInDocument);

// Creates the first of "base.txt", "base (1).txt", "base (2).txt" and so on that doesn't exist, and
// leaves it open in `file`: no two runs get the same one. Gives its path; empty when none could be
// created.
std::string MakeUniqueFileName(const std::string& base, std::string_view extension, CoreFile& file);

// Writes the report into `folder` (with its last separator; empty for the current one) under a name
// of its own with the local time. Gives its path; empty when it could not be written.
std::string WriteReport(std::string_view folder, const IssueSet& issues, Direction direction,
                        NameStyle names = NameStyle::AsInDocument);

// Adds the report to the main bin of the project, if the project has one.
void AddReportItem(ObjectHandle projectDocument, std::string_view reportPath);

} // namespace XPJ
