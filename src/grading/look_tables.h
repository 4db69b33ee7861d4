// Lookup tables in the text of a look and in the bytes behind it.
#pragma once

#include "grading/element_writer.h"
#include "grading/grading.h"
#include "grading/xml_file.h"

#include <cstddef>
#include <string_view>

namespace XPJ {

// Behind the StartTag of a `lut`. Fails, naming the table, when the entries don't fit the size or
// a number is none.
CZv3DLUT ReadInlineTable(CZvXMLFile& file);
// Behind the StartTag of an `embeddedlut`.
ExternalTable ReadExternalTable(CZvXMLFile& file);

// Reads the tables behind the document (16 bytes of hash, a 32-bit little-endian length, the
// table's bytes) and moves each that is referred to from `externalLUTs` to `embeddedLUTs`; equal
// references share it. The first record that overruns the tail ends it.
void ReadTableTail(std::string_view tail, CGrading& grading);

// The fields of a table, without the `lut` around them.
void WriteInlineTable(ElementWriter& writer, std::size_t indent, const CZv3DLUT& table);
void WriteExternalTable(ElementWriter& writer, std::size_t indent, const ExternalTable& table);

} // namespace XPJ
