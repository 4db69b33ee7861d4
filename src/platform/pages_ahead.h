// Memory that is about to be used, made ready by a thread beside the one that will use it.
//
// The system finds and clears a page when it is first written, and the writing thread waits for it:
// on a virtual machine up to a fifth of an import's time. Where the system cannot do it ahead, or
// no thread can be started, pages come as they would without.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <thread>
#include <vector>

namespace XPJ {

class PagesAhead {
public:
    PagesAhead() = default;
    PagesAhead(const PagesAhead&) = delete;
    PagesAhead& operator=(const PagesAhead&) = delete;
    ~PagesAhead();

    // Returns at once; the contents stay. `begin` is a multiple of kLargePage in a block of memory
    // that is not freed before `Forget`. Of a longer piece the last pages come first: who writes it
    // from its start needs them last.
    void Prepare(char* begin, std::size_t size);
    // What is not ready yet will not be made so.
    void Forget();

private:
    struct Piece {
        char* begin;
        std::size_t size;
    };

    void Run();
    Piece TakePage();

    std::mutex mutex_; // guards what follows
    std::condition_variable changed_;
    std::vector<Piece> pieces_;
    bool isBusy_ = false;
    bool isEnded_ = false;

    std::thread thread_; // from the first piece on
};

} // namespace XPJ
