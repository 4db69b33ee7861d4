// Faults in a document's encoding, as issues.
#pragma once

#include "core/account.h"
#include "core/encoding.h"

namespace XPJ {

// One issue for an unknown encoding, one for all invalid bytes.
void AddEncodingIssues(const EncodingFaults& faults, Direction direction, Account& account);

} // namespace XPJ
