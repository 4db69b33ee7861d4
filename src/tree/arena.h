// Memory that is handed out piece by piece and freed all at once.
#pragma once

#include "platform/memory_block.h"
#include "platform/pages_ahead.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace XPJ {

class Arena {
public:
    // `ahead`: prepares the memory of one that gets much, as far as a page ahead; null for none.
    explicit Arena(PagesAhead* ahead = nullptr) : ahead_(ahead) {}
    Arena(const Arena&) = delete;
    Arena& operator=(const Arena&) = delete;

    // `alignment` is a power of two, and none above that of every type.
    void* Allocate(std::size_t size, std::size_t alignment)
    {
        const std::size_t padding = -reinterpret_cast<std::uintptr_t>(next_) & (alignment - 1);
        if (padding > left_ || size > left_ - padding)
            return AllocateMore(size, alignment);
        char* const piece = next_ + padding;
        next_ = piece + size;
        left_ -= padding + size;
        return piece;
    }

    // Makes the piece that ends at `end` longer in place: only the last one handed out, while there
    // is memory behind it. False if nothing was done.
    bool Extend(const void* end, std::size_t size)
    {
        if (end != next_ || size > left_)
            return false;
        next_ += size;
        left_ -= size;
        return true;
    }

    // Much will be needed: memory comes in large blocks from the start.
    void ExpectMuch() { blockSize_ = std::max(blockSize_, kLargeBlock); }

    // Frees all pieces.
    void Clear()
    {
        if (ahead_)
            ahead_->Forget();
        blocks_.clear();
        next_ = nullptr;
        left_ = closed_ = 0;
    }

private:
    static constexpr std::size_t kFirstBlock = std::size_t{64} * 1024;
    static constexpr std::size_t kLargestBlock = 4 * kLargeBlock;

    // A large piece has a block of its own, and what is left of the current one stays in use.
    void* AllocateMore(std::size_t size, std::size_t alignment)
    {
        if (size > blockSize_ / 4)
            return NewBlock(size);
        if (closed_ == 0)
            StartBlock();
        if (closed_ > 0)
            OpenPage();
        return Allocate(size, alignment);
    }

    void StartBlock()
    {
        next_ = NewBlock(blockSize_);
        left_ = blockSize_;
        if (ahead_ && blockSize_ >= kLargeBlock)
            closed_ = std::exchange(left_, 0);
        blockSize_ = std::min(2 * blockSize_, kLargestBlock);
    }

    // The next page is prepared while this one fills.
    void OpenPage()
    {
        left_ += kLargePage;
        closed_ -= kLargePage;
        if (closed_ > 0)
            ahead_->Prepare(next_ + left_, kLargePage);
    }

    char* NewBlock(std::size_t size) { return blocks_.emplace_back(MakeBlock(size)).get(); }

    PagesAhead* ahead_;
    char* next_ = nullptr;
    std::size_t left_ = 0;
    std::size_t closed_ = 0; // the pages of the current block behind what is left
    std::size_t blockSize_ = kFirstBlock;
    std::vector<MemoryBlock> blocks_;
};

} // namespace XPJ
