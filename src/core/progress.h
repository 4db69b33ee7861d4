// How a long job reports its progress and learns that it has to stop.
#pragma once

#include <algorithm>
#include <cstddef>

namespace XPJ {

// A stack of stages; the top one moves. The slots are those of the host's progress interface.
class Progress {
public:
    virtual ~Progress() = default;
    virtual bool IsCancelled() = 0;
    // Covers `steps` of the parent's total, and has `total` steps of its own. Gives a stage id.
    virtual unsigned BeginStage(unsigned steps, unsigned total) = 0;
    virtual void Advance(unsigned stage, unsigned count) = 0;
    // Pops the top stage, whatever the id. Does not move the parent.
    virtual void EndStage(unsigned stage) = 0;
};

// For callers that show nothing and never cancel.
class SilentProgress final : public Progress {
public:
    bool IsCancelled() override { return false; }
    unsigned BeginStage(unsigned, unsigned) override { return 1; }
    void Advance(unsigned, unsigned) override {}
    void EndStage(unsigned) override {}
};

// A stage that ends on every way out of its block.
class StageScope {
public:
    // A total below 1 counts as 1.
    StageScope(Progress& progress, unsigned steps, std::size_t total)
        : progress_(progress),
          id_(progress.BeginStage(steps, static_cast<unsigned>(std::max<std::size_t>(total, 1))))
    {
    }
    ~StageScope() { progress_.EndStage(id_); }
    StageScope(const StageScope&) = delete;
    StageScope& operator=(const StageScope&) = delete;

    void Advance(unsigned count = 1) { progress_.Advance(id_, count); }
    // Advances, then checks for cancellation: true when the job may go on.
    bool Step(unsigned count = 1)
    {
        Advance(count);
        return !progress_.IsCancelled();
    }

private:
    Progress& progress_;
    unsigned id_;
};

} // namespace XPJ
