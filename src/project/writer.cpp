// A tree as a project document: a flat list of objects, first those with a number, then those with
// a GUID, each mentioned by others through its number or GUID.
#include "project/writer.h"

#include "project/object_list.h"
#include "project/object_printer.h"

#include <algorithm>
#include <deque>
#include <future>
#include <memory>
#include <ostream>
#include <span>
#include <thread>
#include <vector>

namespace XPJ {

namespace {

// Some hundred KB of text.
constexpr std::size_t kObjectsPerBlock = 1024;
constexpr std::size_t kMostThreads = 4;

// Writes objects in order, a block of them at a time, while other threads print the next blocks.
class BlockWriter {
public:
    BlockWriter(const ObjectList& objects, std::ostream& output)
        : objects_(objects), output_(output)
    {
    }

    // False when cancelled.
    bool Write(std::span<const ObjectHandle> objects, StageScope& stage);

private:
    // The printer outlives the thread that uses it.
    struct Block {
        std::unique_ptr<ObjectPrinter> printer;
        std::size_t size;
        std::future<void> printed;
    };

    void Start(std::span<const ObjectHandle> objects, std::launch policy);
    std::size_t Finish();

    const ObjectList& objects_;
    std::ostream& output_;
    std::deque<Block> blocks_;
    std::vector<std::unique_ptr<ObjectPrinter>> idle_;
};

bool BlockWriter::Write(std::span<const ObjectHandle> objects, StageScope& stage)
{
    // A thread that can't be started leaves its work to the one that waits for it.
    const bool isShort = objects.size() <= kObjectsPerBlock;
    const auto policy =
        isShort ? std::launch::deferred : std::launch::async | std::launch::deferred;
    const std::size_t threads =
        std::clamp<std::size_t>(std::thread::hardware_concurrency(), 1, kMostThreads);
    while (!objects.empty() || !blocks_.empty()) {
        while (!objects.empty() && blocks_.size() <= threads) {
            const std::size_t size = std::min(objects.size(), kObjectsPerBlock);
            Start(objects.first(size), policy);
            objects = objects.subspan(size);
        }
        if (!stage.Step(static_cast<unsigned>(Finish())))
            return false;
    }
    return true;
}

void BlockWriter::Start(std::span<const ObjectHandle> objects, std::launch policy)
{
    if (idle_.empty())
        idle_.push_back(std::make_unique<ObjectPrinter>(objects_));
    Block& block = blocks_.emplace_back(Block{std::move(idle_.back()), objects.size(), {}});
    idle_.pop_back();
    block.printed =
        std::async(policy, [printer = block.printer.get(), objects] { printer->Print(objects); });
}

// The first block; the number of its objects.
std::size_t BlockWriter::Finish()
{
    Block& block = blocks_.front();
    const std::size_t size = block.size;
    block.printed.get();
    block.printer->WriteTo(output_);
    idle_.push_back(std::move(block.printer));
    blocks_.pop_front();
    return size;
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
