// A tree as a project document: a flat list of objects, first those with a number, then those with
// a GUID, each mentioned by others through its number or GUID.
#include "project/writer.h"

#include "project/object_list.h"
#include "project/object_printer.h"

#include <algorithm>
#include <condition_variable>
#include <exception>
#include <memory>
#include <mutex>
#include <ostream>
#include <span>
#include <system_error>
#include <thread>
#include <vector>

namespace XPJ {

namespace {

// About a hundred KB of text, which stays in a processor's cache until it is written.
constexpr std::size_t kObjectsPerBlock = 256;
constexpr std::size_t kMostThreads = 4;
constexpr std::size_t kSlotsPerThread = 4; // so that nobody waits for a large block

std::size_t ThreadCount()
{
    return std::clamp<std::size_t>(std::thread::hardware_concurrency(), 1, kMostThreads);
}

// Writes objects in order, in blocks of them. A block is printed by whichever thread is free; the
// one that writes prints as well while the block that it needs is not ready, so all works the same
// with one processor, and where no other thread can be started.
class BlockWriter {
public:
    BlockWriter(const ObjectList& objects, std::ostream& output);
    ~BlockWriter();
    BlockWriter(const BlockWriter&) = delete;
    BlockWriter& operator=(const BlockWriter&) = delete;

    // False when cancelled. Throws what the printing of a block threw.
    bool Write(std::span<const ObjectHandle> objects, StageScope& stage);

private:
    struct Block {
        explicit Block(const ObjectList& objects) : printer(objects) {}

        ObjectPrinter printer;
        bool isPrinted = false;
        std::exception_ptr fault; // thrown while it was printed
    };
    using Lock = std::unique_lock<std::mutex>;

    std::size_t BlockCount() const;
    std::span<const ObjectHandle> ObjectsOf(std::size_t block) const;
    Block& SlotOf(std::size_t block) { return *slots_[block % slots_.size()]; }

    void StartThreads();
    void PrintBlocks();
    bool CanPrint() const;
    void PrintNext(Lock& lock);
    void AwaitPrinted(std::size_t block);

    std::ostream& output_;
    std::vector<std::unique_ptr<Block>> slots_; // blocks take turns in them
    std::vector<std::thread> threads_;

    std::mutex mutex_; // guards what follows, and the state of the blocks
    std::condition_variable changed_;
    std::span<const ObjectHandle> objects_;
    std::size_t begun_ = 0;   // blocks that are printed or being printed
    std::size_t written_ = 0; // blocks
    bool isEnded_ = false;
};

BlockWriter::BlockWriter(const ObjectList& objects, std::ostream& output) : output_(output)
{
    for (std::size_t i = 0; i < kSlotsPerThread * ThreadCount(); ++i)
        slots_.push_back(std::make_unique<Block>(objects));
}

BlockWriter::~BlockWriter()
{
    {
        const Lock lock(mutex_);
        isEnded_ = true;
    }
    changed_.notify_all();
    for (std::thread& thread : threads_)
        thread.join();
}

bool BlockWriter::Write(std::span<const ObjectHandle> objects, StageScope& stage)
{
    {
        const Lock lock(mutex_);
        objects_ = objects;
        begun_ = written_ = 0;
    }
    if (BlockCount() > 1)
        StartThreads();
    for (std::size_t i = 0; i < BlockCount(); ++i) {
        AwaitPrinted(i);
        SlotOf(i).printer.WriteTo(output_);
        {
            const Lock lock(mutex_);
            SlotOf(i).isPrinted = false;
            ++written_;
        }
        changed_.notify_all();
        if (!stage.Step(static_cast<unsigned>(ObjectsOf(i).size())))
            return false;
    }
    return true;
}

std::size_t BlockWriter::BlockCount() const
{
    return (objects_.size() + kObjectsPerBlock - 1) / kObjectsPerBlock;
}

std::span<const ObjectHandle> BlockWriter::ObjectsOf(std::size_t block) const
{
    const std::span<const ObjectHandle> rest = objects_.subspan(block * kObjectsPerBlock);
    return rest.first(std::min(rest.size(), kObjectsPerBlock));
}

void BlockWriter::StartThreads()
{
    try {
        while (threads_.size() + 1 < ThreadCount())
            threads_.emplace_back(&BlockWriter::PrintBlocks, this);
    } catch (const std::system_error&) {
        return; // the others do the work
    }
    changed_.notify_all();
}

// What a thread does until the writer's end.
void BlockWriter::PrintBlocks()
{
    Lock lock(mutex_);
    for (;;) {
        changed_.wait(lock, [this] { return isEnded_ || CanPrint(); });
        if (isEnded_)
            return;
        PrintNext(lock);
    }
}

bool BlockWriter::CanPrint() const
{
    return begun_ < BlockCount() && begun_ < written_ + slots_.size();
}

void BlockWriter::PrintNext(Lock& lock)
{
    const std::span<const ObjectHandle> objects = ObjectsOf(begun_);
    Block& block = SlotOf(begun_++);
    lock.unlock();
    std::exception_ptr fault;
    try {
        block.printer.Print(objects);
    } catch (...) {
        fault = std::current_exception();
    }
    lock.lock();
    block.fault = fault;
    block.isPrinted = true;
    changed_.notify_all();
}

void BlockWriter::AwaitPrinted(std::size_t block)
{
    Lock lock(mutex_);
    while (!SlotOf(block).isPrinted)
        CanPrint() ? PrintNext(lock) : changed_.wait(lock);
    if (SlotOf(block).fault)
        std::rethrow_exception(SlotOf(block).fault);
}

} // namespace

int WriteProjectDocument(ObjectHandle document, Progress& progress, std::ostream& output,
                         bool sn2vlMode)
{
    StageScope stage(progress, 1, 3);
    ObjectList objects;
    objects.Collect(document);
    if (!stage.Step())
        return kWriteCancelled;

    ObjectPrinter head(objects);
    head.PrintHead(document, sn2vlMode);
    head.WriteTo(output);
    BlockWriter writer(objects, output);
    {
        StageScope numbered(progress, 1, objects.Numbered().size());
        if (!writer.Write(objects.Numbered(), numbered))
            return kWriteCancelled;
    }
    if (!stage.Step())
        return kWriteCancelled;
    SilentProgress silent;
    StageScope withGuid(silent, 1, objects.WithGuid().size());
    writer.Write(objects.WithGuid(), withGuid);
    output << "</VelaData>\n";
    output.flush();
    return stage.Step() ? kWriteDone : kWriteCancelled;
}

} // namespace XPJ
