#include "frame/progress_stack.h"

#include <algorithm>

namespace XPJ {

unsigned ProgressStack::Begin(unsigned steps, unsigned total)
{
    ProgressStage stage;
    stage.id = nextId_++;
    stage.total = std::max(total, 1u);
    if (!stages_.empty()) {
        const ProgressStage& parent = stages_.back();
        stage.base = parent.Fraction();
        stage.span = static_cast<double>(steps) / parent.total * parent.span;
    }
    stages_.push_back(stage);
    position_ = stage.base;
    return stage.id;
}

void ProgressStack::Advance(unsigned count)
{
    if (stages_.empty())
        return;
    ProgressStage& top = stages_.back();
    top.current += std::min(count, top.total - top.current);
    position_ = top.Fraction();
}

void ProgressStack::End()
{
    if (stages_.empty())
        return;
    stages_.pop_back();
    if (stages_.empty())
        position_ = 1;
}

} // namespace XPJ
