#include "tree/unread.h"

#include <vector>

namespace XPJ {

namespace {

// Of the node's own properties and children.
bool IsAnyRead(ConstHandle node)
{
    for (const Property* property = node.FirstProperty(); property; property = property->next)
        if (property->isRead)
            return true;
    for (const ConstHandle& child : node.GetChildren())
        if (child.IsRead())
            return true;
    return false;
}

// A value anywhere in it; what nests deeper than fields do counts as one.
bool HasContent(ConstHandle node, int depth = 0)
{
    constexpr int kDeepest = 8;
    for (const Property* property = node.FirstProperty(); property; property = property->next)
        if (property->valueSize > 0)
            return true;
    for (const ConstHandle& child : node.GetChildren())
        if (depth == kDeepest || HasContent(child, depth + 1))
            return true;
    return false;
}

class Walk {
public:
    Walk(const std::function<bool(TreePath, Name)>& isExempt,
         const std::function<void(TreePath, Name)>& visit)
        : isExempt_(isExempt), visit_(visit)
    {
    }

    // With a stack of its own: trees are as deep as documents nest.
    void Run(ConstHandle root)
    {
        Enter(root);
        while (!open_.empty()) {
            if (!(open_.back() != end_)) {
                open_.pop_back();
                path_.pop_back();
                continue;
            }
            const ConstHandle child = *open_.back();
            ++open_.back();
            if (visited_.Insert(child))
                Take(child);
        }
    }

private:
    void Enter(ConstHandle node)
    {
        path_.push_back(node);
        for (const Property* property = node.FirstProperty(); property; property = property->next)
            if (!property->isRead && property->valueSize > 0)
                Report(Name::OfStatic(property->NameView()));
        open_.push_back(node.GetChildren().begin());
    }

    void Take(ConstHandle child)
    {
        if (child.IsRead() || IsAnyRead(child))
            Enter(child);
        else if (HasContent(child))
            Report(child.GetName());
    }

    void Report(Name name)
    {
        if (!isExempt_(path_, name))
            visit_(path_, name);
    }

    const std::function<bool(TreePath, Name)>& isExempt_;
    const std::function<void(TreePath, Name)>& visit_;
    std::vector<ConstHandle> path_;
    std::vector<ConstChildRange::Iterator> open_; // the next child of each node of the path
    const ConstChildRange::Iterator end_ = ConstChildRange(nullptr).end();
    NodeSet visited_;
};

} // namespace

void ForEachUnread(ConstHandle root, const std::function<bool(TreePath, Name)>& isExempt,
                   const std::function<void(TreePath, Name)>& visit)
{
    if (root)
        Walk(isExempt, visit).Run(root);
}

} // namespace XPJ
