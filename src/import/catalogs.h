// What the passes of an import find out about sequences, generators and titles. The catalog of
// masters is in a file of its own.
#pragma once

#include "core/frame_format.h"
#include "core/media_type.h"
#include "core/text_hash.h"
#include "core/ticks.h"
#include "platform/settings.h"
#include "project/master_clip.h"
#include "tree/object.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace XPJ {

// The sequences of an import: elements and Sequences, and how far their translation is.
//
// A master around an empty Sequence exists for each `sequence` and multiclip before anything is
// translated. The Sequence begins, with its GUID and number, when it is filled; what refers to it
// needs only the node.
class SequenceCatalog {
public:
    // The stated or generated id of a `sequence`.
    std::string_view IdOf(ConstHandle sequence) const;
    void SetGeneratedId(ConstHandle sequence, std::string_view id);

    // The master of a `sequence`, by id; null for an unknown or empty one.
    MasterClipHandle MasterOf(std::string_view id) const;
    void AddMaster(std::string_view id, MasterClipHandle master);

    // The `sequence` or `multiclip` of a Sequence; null for one that the import generated.
    ConstHandle ElementOf(ConstHandle projectSequence) const;
    void SetElement(ConstHandle projectSequence, ConstHandle element);

    // True the first time: the translation of a `sequence` begins once.
    bool BeginElement(ConstHandle sequence) { return begunElements_.Insert(sequence); }

    // Items that show a sequence which they are in, directly or through others.
    void AddCircle(ConstHandle item) { circles_.Insert(item); }
    bool ClosesCircle(ConstHandle item) const { return circles_.Contains(item); }

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
    TextMap<MasterClipHandle> masters_;
    std::unordered_map<std::uint64_t, ConstHandle> elements_; // by `uniqueId` of the Sequence
    NodeSet begunElements_;
    NodeSet begun_;
    NodeSet circles_;
    int nextNumber_ = 1;
    std::unordered_map<int, ObjectHandle> byNumber_;
    std::vector<ObjectHandle> shown_;
};

// The generators of an import: what was reported and what was made of them.
class GeneratorCatalog {
public:
    // The frame of the `sequence` or `clip` around generators: finding it passes over all items of
    // a track, so it is cached.
    const FrameFormat& FrameOf(ConstHandle owner);

    // True the first time: a `generatoritem` is reported once.
    bool Report(ConstHandle generator) { return reported_.Insert(generator); }

    // Null for one that was not translated yet.
    MasterClipHandle MasterOf(ConstHandle generator) const;
    void Add(ConstHandle generator, MasterClipHandle master);

    // The master of an earlier generator of the same clip with the same effect; null if there is
    // none, and for a generator that names no clip.
    MasterClipHandle MasterOfEqual(ConstHandle generator) const;
    void AddEqual(ConstHandle generator, MasterClipHandle master);

    // The master of the black clip behind slugs, once made.
    MasterClipHandle blackVideo;

private:
    std::unordered_map<std::uint64_t, FrameFormat> frames_; // by `uniqueId` of the owner
    NodeSet reported_;
    std::unordered_map<std::uint64_t, MasterClipHandle> masters_; // by `uniqueId` of the generator
    TextMap<MasterClipHandle, std::string> equals_;               // by clip and effect
};

// Titles and shapes that become graphics: media that the host draws an effect on, which belongs to
// the track item or to the master clip.
class TitleCatalog {
public:
    explicit TitleCatalog(const Settings& settings) : convertTitles_(settings.convertTitles) {}

    // Shapes always become graphics, text generators by the setting. A generator without an effect
    // is what another one of its clip was added as.
    bool IsGraphic(ConstHandle generator) const;
    // Keeps a generator for other items of its clip that state no text of their own.
    void Add(ConstHandle generator);
    // The generator that states what an item shows: another one of its clip if it states nothing
    // itself.
    ConstHandle SourceOf(ConstHandle item) const;

    // The masters that have the effect of a title themselves; their track items have none.
    bool AddTitledMaster(ConstHandle master) { return titledMasters_.Insert(master); }
    bool IsTitled(ConstHandle master) const { return titledMasters_.Contains(master); }

private:
    bool convertTitles_;
    // The first generator that states the text of a clip, by `masterclipid`, else `id`.
    TextMap<ConstHandle> titles_;
    NodeSet titledMasters_;
};

} // namespace XPJ
