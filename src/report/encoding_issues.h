// Faults in a document's encoding, as issues.
#pragma once

#include "core/encoding.h"
#include "core/translation_issue.h"

namespace XPJ {

// One issue for an unknown encoding, one for all invalid bytes.
void AddEncodingIssues(const EncodingFaults& faults, Direction direction, IssueSet& issues);

} // namespace XPJ
