// One run of all rules of a direction over a tree.
#pragma once

#include "dialects/dialects.h"
#include "dialects/file_uses.h"
#include "dialects/parts.h"

#include <optional>
#include <span>
#include <string_view>

namespace XPJ {

class DialectPass {
public:
    DialectPass(Document& document, ObjectHandle root, AssumptionList& assumptions,
                const WritingRequest& request = {})
        : document_(document), root_(root), assumptions_(assumptions), request_(request)
    {
    }

    // Owns new nodes.
    Document& Nodes() { return document_; }
    ObjectHandle Root() const { return root_; }
    const WritingRequest& Request() const { return request_; }

    // The tree's parts; a rule that adds or moves some calls `PartsChanged`.
    void PartsChanged()
    {
        parts_.reset();
        files_.reset();
    }
    const TreeParts& Parts()
    {
        if (!parts_)
            parts_ = FindParts(root_, document_.NodeCount());
        return *parts_;
    }

    // What items and clips need of the files, of the same parts.
    FileUseTable& Files()
    {
        if (!files_)
            files_ = FindFileUses(Parts());
        return *files_;
    }

    void Run(std::span<const DialectRule> rules);

    // The current rule guessed something about the named file, clip or sequence.
    void Assume(std::string_view subject) { assumptions_.push_back({current_, subject}); }

private:
    void ApplyToEffects(std::span<const DialectRule> rules);

    Document& document_;
    ObjectHandle root_;
    AssumptionList& assumptions_;
    WritingRequest request_;
    std::optional<TreeParts> parts_;
    std::optional<FileUseTable> files_;
    const DialectRule* current_ = nullptr;
};

// A new child of `parent`.
inline ObjectHandle AddNew(Document& document, ObjectHandle parent, Name name)
{
    const ObjectHandle child = document.NewObject(name);
    parent.AddChild(child);
    return child;
}

// The first child of that name, a new one if there is none.
inline ObjectHandle GetOrAddChild(Document& document, ObjectHandle parent, Name name)
{
    const ObjectHandle child = parent.GetChild(name);
    return child ? child : AddNew(document, parent, name);
}

// Makes `rate` the only one of `node`: the first of several is the one that counts.
inline void SetRate(ObjectHandle node, ObjectHandle rate)
{
    while (const ObjectHandle old = node.GetChild("rate"))
        node.RemoveChild(old);
    node.AddChild(rate);
}

} // namespace XPJ
