// The whole text of a document in memory: views into it are what the tree is made of.
#pragma once

#include "core/encoding.h"
#include "platform/files.h"
#include "tree/object.h"

#include <functional>
#include <iosfwd>
#include <string_view>

namespace XPJ {

// Called with the number of bytes of each block that was read; false ends the reading.
using BlockStep = std::function<bool(std::size_t bytes)>;

// All of an open file, to its end. False when it can't be read (the file has the error) or
// `step` ended it.
bool ReadInput(CoreFile& file, Document& document, std::string_view& bytes,
               const BlockStep& step = {});

// All that the stream still gives.
std::string_view ReadInput(std::istream& input, Document& document);

// The text of a document's bytes, which live as long as the document: they themselves where they
// are UTF-8.
std::string_view DecodeInput(std::string_view bytes, Document& document, EncodingFaults& faults);

} // namespace XPJ
