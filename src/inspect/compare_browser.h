// Comparison of the browsers of two documents: bins, bin clips, and the entries of sequences.
//
// Bins are matched by their path and name, then by name alone, wherever they are: such a bin has
// moved, and what is in it has not. Of what remains, bins with equally many entries in the same bin
// were renamed. Clips are matched by bin and name, then by name, then by bin and path of the media.
//
//   Rushes          Selects          bin "Rushes": name Rushes -> Selects
//     Boat     ->     Boat
//   Music           Music
//     Shanty        Shanty           bin clip "Shanty" in "Music": bin Music -> nothing
//
// A document need not list the clips that its items show. An entry that only one of the two lists,
// for what an item shows, was not added by anyone; nor is it lost where that document is XML and
// the other a project.
#pragma once

#include "inspect/difference_list.h"
#include "inspect/matching.h"
#include "inspect/timeline.h"

#include <string>
#include <vector>

namespace XPJ::Inspection {

class BrowserComparison {
public:
    // Both documents must outlive it.
    BrowserComparison(const Project& left, const Project& right);

    // Bins and clips.
    void CompareEntries(DifferenceList& differences) const;
    // The entries of two sequences that belong together, by their index, if both have one.
    void CompareSequenceEntries(std::size_t left, std::size_t right, const ComparedSubject& subject,
                                DifferenceList& differences) const;

private:
    // Entries go by their index in Project::entries.
    struct Side {
        explicit Side(const Project& read);

        const Entry& At(std::size_t entry) const { return project->entries[entry]; }
        // "Rushes / Day 1", of the bin that the entry is in.
        std::string PathOf(std::size_t entry) const;

        const Project* project;
        std::vector<std::size_t> parents;    // the bin that each entry is in; kNothing: in none
        std::vector<std::size_t> counts;     // how many entries each bin has
        std::vector<std::size_t> bins;       // the entries that are bins
        std::vector<std::size_t> clips;      // likewise
        std::vector<std::size_t> ofSequence; // the entry of each sequence; kNothing: it has none
        std::vector<std::size_t> partners;   // on the other side; kNothing: none
    };

    void MatchBins();
    void MatchClips();
    void KeepPairs(const Matching& matching, const std::vector<std::size_t>& left,
                   const std::vector<std::size_t>& right);
    std::size_t BinOfRight(std::size_t entry) const;
    bool AreSame(std::size_t left, std::size_t right) const;
    void CompareEntry(std::size_t left, std::size_t right, const ComparedSubject& subject,
                      DifferenceList& differences) const;
    void CompareClips(std::size_t left, std::size_t right, const ComparedSubject& subject,
                      DifferenceList& differences) const;

    Side left_;
    Side right_;
};

} // namespace XPJ::Inspection
