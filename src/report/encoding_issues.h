// What was wrong with a document's bytes, as issues.
#pragma once

#include "core/encoding.h"
#include "core/translation_issue.h"

namespace XPJ {

// One issue for an encoding that nobody knows, one for all bytes that mean nothing.
void AddEncodingIssues(const EncodingFaults& faults, Direction direction, IssueSet& issues);

} // namespace XPJ
