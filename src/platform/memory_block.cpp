#include "platform/memory_block.h"

#include <sys/mman.h>

#include <limits>
#include <new>

namespace XPJ {

namespace {

char* AllocateLarge(std::size_t size)
{
    if (size > std::numeric_limits<std::size_t>::max() - kLargePage)
        return nullptr;
    const std::size_t whole = (size + kLargePage - 1) / kLargePage * kLargePage;
    void* const block = std::aligned_alloc(kLargePage, whole);
#ifdef MADV_HUGEPAGE
    // A request; without it the block is as good.
    if (block)
        static_cast<void>(madvise(block, whole, MADV_HUGEPAGE));
#endif
    return static_cast<char*>(block);
}

} // namespace

MemoryBlock MakeBlock(std::size_t size)
{
    MemoryBlock block(size >= kLargeBlock ? AllocateLarge(size)
                                          : static_cast<char*>(std::malloc(size)));
    if (!block)
        throw std::bad_alloc();
    return block;
}

} // namespace XPJ
