// The whole text of a document in memory, for as long as it is read: a tree has its values copied.
#pragma once

#include "core/encoding.h"
#include "platform/files.h"
#include "platform/memory_block.h"

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <string>
#include <string_view>

namespace XPJ {

// Called with the number of bytes of each block that was read; false ends the reading.
using BlockStep = std::function<bool(std::size_t bytes)>;

//   InputText text;
//   if (text.Read(file)) Use(text.Decode(faults));
class InputText {
public:
    // All of an open file, to its end. False when it can't be read (the file has the error) or
    // `step` ended it.
    bool Read(CoreFile& file, const BlockStep& step = {});
    // All that the stream still gives.
    void Read(std::istream& input);

    std::string_view Bytes() const { return bytes_; }
    // The bytes' text: they themselves where they are UTF-8.
    std::string_view Decode(EncodingFaults& faults);

private:
    std::string_view bytes_;
    MemoryBlock buffer_;    // where the size was known before
    std::string collected_; // where it was not
    std::string decoded_;
};

} // namespace XPJ
