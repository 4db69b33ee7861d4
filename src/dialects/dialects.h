// Dialects: what other programs mean by the `xmeml` that they write, and what they can read.
//
// The translations take documents at their word. These two passes change the tree instead: the one
// between reader and import restates in words that the import knows what a writer meant; the one
// between export and writer restates the document in words that other programs read. A rule that
// can't be a change of the tree is a test on `Settings::openInterchange` at the location that
// decides; its row states where.
#pragma once

#include "tree/object.h"

#include <span>
#include <string_view>
#include <vector>

namespace XPJ {

class DialectPass;
struct EffectPart;

// A rule of one direction. The texts are those of docs/dialects.md.
struct DialectRule {
    std::string_view name;
    std::string_view seen; // the documents, or programs, that need it
    std::string_view does;
    // Changes the tree; null for a rule that is a test elsewhere, in `file` below src/.
    void (*apply)(DialectPass& pass) = nullptr;
    // The same for each effect of the tree. Neighbouring rules of this kind run over the effects
    // together.
    void (*applyToEffect)(DialectPass& pass, const EffectPart& part) = nullptr;
    std::string_view file = {};
};

// In the order in which they are applied.
std::span<const DialectRule> ReadingRules();
std::span<const DialectRule> WritingRules();

// What a rule had to guess: nothing in the document states it.
struct Assumption {
    const DialectRule* rule = nullptr;
    std::string_view subject; // name of the file, clip or sequence in the tree
};
using AssumptionList = std::vector<Assumption>;

// Applies the rules of reading to an `xmeml` tree just read. New nodes are made in `document`.
void RestateAsMeant(Document& document, ObjectHandle root, AssumptionList& assumptions);

// What of the request the rules of writing need.
struct WritingRequest {
    bool oneSequence = false; // the document is to hold one sequence, not a project
};

// Applies the rules of writing to an `xmeml` tree about to be written.
void RestateForOthers(Document& document, ObjectHandle root, const WritingRequest& request,
                      AssumptionList& assumptions);

} // namespace XPJ
