// The host's report: the issues of a conversion, with names as in the documents.
#pragma once

#include "core/account.h"
#include "platform/files.h"
#include "tree/object.h"

#include <string>
#include <string_view>

namespace XPJ {

// Two lines for each issue, in set order, ending in CR LF.
//   Translation issue:
//   <tab>Sequence <Cut 1> at 01:00:00:00, video track 1: Effect <Sepia> on Clip <A> not translated.
std::string IssueReportText(const IssueSet& issues, Direction direction);

// Creates the first of "base.txt", "base (1).txt", "base (2).txt" and so on that doesn't exist, and
// leaves it open in `file`: no two runs get the same one. Gives its path; empty when none could be
// created.
std::string MakeUniqueFileName(const std::string& base, std::string_view extension, CoreFile& file);

// What the report doesn't list: the other remarks, by groups.
std::string RemarkReportText(const Account& account);

// Writes `text` as a report into `folder` (with its last separator; empty for the current one)
// under a name of its own with the local time. Gives its path; empty when it could not be written.
std::string WriteReport(std::string_view folder, const std::string& text);

// Adds the report to the main bin of the project, if the project has one.
void AddReportItem(ObjectHandle projectDocument, std::string_view reportPath);

} // namespace XPJ
