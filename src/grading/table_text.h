// The text of a table, line by line: keywords and numbers. All formats of text share its rules:
// LF, CR and both together end a line, blanks are spaces and tabs, empty lines do not count, and
// numbers never depend on the locale.
//
//   TableText text(source, Hash::Comment);
//   while (text.StartLine()) {
//       if (text.Word("SIZE")) { if (!text.Integer(size) || !text.EndLine()) return false; }
//       else text.SkipLine();
//   }
#pragma once

#include "grading/table_readers.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace XPJ {

// What a "#" at the start of a line is.
enum class Hash {
    Comment, // the line does not count
    Blank,   // its words count all the same
};

class TableText {
public:
    // A byte-order mark at the start is passed over. `source.at` follows every step; a step that
    // fails leaves it before what it could not take.
    TableText(TableSource& source, Hash hash);

    // Moves to the first word of the next line that has any; false at the end of the text.
    bool StartLine();
    // False if the line goes on.
    bool EndLine();
    void SkipLine();

    // Takes a keyword, in any case.
    bool Word(std::string_view word);
    // Takes this character.
    bool Sign(char sign);
    // True before a digit, a sign or a point: the line holds data.
    bool AtNumber();

    // Take one number and the blanks before it; false for none, one out of range, one that runs
    // into another word.
    bool Integer(std::uint32_t& value);
    bool Number(float& value);
    bool Number(double& value);

    // The rest of the line as exactly so many numbers.
    bool LineOf(std::span<float> values);
    bool LineOf(std::span<double> values);
    bool LineOf(std::span<std::uint32_t> values);
    // The rest of the line as the three colors of one more entry.
    bool LineOf(std::vector<LUTEntry>& entries);

private:
    void SkipBlanks();
    bool AtWordEnd(std::size_t offset) const;
    template <typename T>
    bool Float(T& value);

    TableSource& source_;
    Hash hash_;
};

// Whether the rest of the text can hold so many lines of `numbers` numbers each.
bool HasRoom(const TableSource& source, std::uint64_t lines, std::uint64_t numbers);

} // namespace XPJ
