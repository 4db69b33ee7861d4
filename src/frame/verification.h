// The output of a conversion, read back and compared with its input.
#pragma once

#include "core/account.h"
#include "frame/document_timelines.h"

namespace XPJ {

// Enters each difference between the timelines of the two documents that no remark explains, as a
// remark of its own kind. An output that can't be read is one, too. New markers don't count where
// losses are marked.
void AddUnexplained(const ComparedTimelines& documents, bool marksLosses, Account& account);

} // namespace XPJ
