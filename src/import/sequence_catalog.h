// The sequences of an import: elements and Sequences, and how far their translation is.
//
// A master around an empty Sequence exists for each `sequence` and multiclip before anything is
// translated. The Sequence begins, with its GUID and number, when it is filled; what refers to it
// needs only the node.
#pragma once

#include "core/media_type.h"
#include "core/ticks.h"
#include "project/master_clip.h"
#include "tree/object.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace XPJ {

class SequenceCatalog {
public:
    // The stated or generated id of a `sequence`.
    std::string_view IdOf(ConstHandle sequence) const;
    void SetGeneratedId(ConstHandle sequence, std::string_view id);

    // The master of a `sequence`, by id; null for an unknown or empty one.
    BuiltMaster MasterOf(std::string_view id) const;
    void AddMaster(std::string_view id, BuiltMaster master);

    // The `sequence` or `multiclip` of a Sequence; null for one that the import generated.
    ConstHandle ElementOf(ConstHandle projectSequence) const;
    void SetElement(ConstHandle projectSequence, ConstHandle element);

    // True the first time: the translation of a `sequence` begins once.
    bool BeginElement(ConstHandle sequence) { return begunElements_.Insert(sequence); }

    // Gives a Sequence its `uid` and `ID`, which is returned; 0, and nothing happens, if it has
    // them.
    int Begin(ObjectHandle projectSequence);
    bool HasBegun(ConstHandle projectSequence) const { return begun_.Contains(projectSequence); }
    // The Sequence of an `ID`; null for an unknown one.
    ObjectHandle OfNumber(int number) const;
    // The `ID` after the last one given.
    int NextNumber() const { return nextNumber_; }

    // Sequences that an item shows and that had not begun then.
    void AddShown(ObjectHandle projectSequence) { shown_.push_back(projectSequence); }
    const std::vector<ObjectHandle>& Shown() const { return shown_; }

private:
    std::unordered_map<std::uint64_t, std::string> generatedIds_; // by `uniqueId` of the element
    std::unordered_map<std::string_view, BuiltMaster> masters_;
    std::unordered_map<std::uint64_t, ConstHandle> elements_; // by `uniqueId` of the Sequence
    NodeSet begunElements_;
    NodeSet begun_;
    int nextNumber_ = 1;
    std::unordered_map<int, ObjectHandle> byNumber_;
    std::vector<ObjectHandle> shown_;
};

// The source that an item at a rate shows of a master's. Every item of a nested sequence has one of
// its own.
ObjectHandle SourceForItem(Document& document, SequenceCatalog& sequences, MediaType type,
                           ObjectHandle source, Ticks rateTicks);

} // namespace XPJ
