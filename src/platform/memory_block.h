// Memory for many small pieces.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>

namespace XPJ {

struct FreeBlock {
    void operator()(char* block) const { std::free(block); }
};
using MemoryBlock = std::unique_ptr<char[], FreeBlock>;

// The system maps a block of this size and more in large pages, where it has them: the first use of
// each page of 4 KB would cost a fault. Such a block begins with a page.
constexpr std::size_t kLargePage = std::size_t{2} * 1024 * 1024;
constexpr std::size_t kLargeBlock = std::size_t{8} * 1024 * 1024;

// Uninitialised, aligned for every type. Throws std::bad_alloc.
MemoryBlock MakeBlock(std::size_t size);

} // namespace XPJ
