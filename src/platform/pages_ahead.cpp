#include "platform/pages_ahead.h"

#include "platform/memory_block.h"

#include <sys/mman.h>

#include <system_error>

namespace XPJ {

namespace {

#ifdef MADV_POPULATE_WRITE
// A request; an older system refuses it.
void MakeReady(char* begin, std::size_t size)
{
    static_cast<void>(madvise(begin, size, MADV_POPULATE_WRITE));
}
constexpr bool kCanPrepare = true;
#else
void MakeReady(char*, std::size_t) {}
constexpr bool kCanPrepare = false;
#endif

} // namespace

PagesAhead::~PagesAhead()
{
    {
        const std::lock_guard lock(mutex_);
        isEnded_ = true;
    }
    changed_.notify_all();
    if (thread_.joinable())
        thread_.join();
}

void PagesAhead::Prepare(char* begin, std::size_t size)
{
    if (!kCanPrepare || size == 0)
        return;
    {
        const std::lock_guard lock(mutex_);
        pieces_.push_back({begin, size});
    }
    changed_.notify_all();
    if (thread_.joinable())
        return;
    try {
        thread_ = std::thread([this] { Run(); });
    } catch (const std::system_error&) {
        return; // pages come as without
    }
}

void PagesAhead::Forget()
{
    std::unique_lock lock(mutex_);
    pieces_.clear();
    changed_.wait(lock, [this] { return !isBusy_; });
}

void PagesAhead::Run()
{
    std::unique_lock lock(mutex_);
    for (;;) {
        changed_.wait(lock, [this] { return isEnded_ || !pieces_.empty(); });
        if (isEnded_)
            return;
        const Piece page = TakePage();
        isBusy_ = true;
        lock.unlock();
        MakeReady(page.begin, page.size);
        lock.lock();
        isBusy_ = false;
        changed_.notify_all();
    }
}

// The last page of the last piece.
PagesAhead::Piece PagesAhead::TakePage()
{
    Piece& piece = pieces_.back();
    const std::size_t before = (piece.size - 1) / kLargePage * kLargePage;
    const Piece page{piece.begin + before, piece.size - before};
    piece.size = before;
    if (before == 0)
        pieces_.pop_back();
    return page;
}

} // namespace XPJ
