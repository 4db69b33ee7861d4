#include "inspect/columns.h"

#include <algorithm>
#include <sstream>

namespace XPJ::Inspection {

namespace {

struct Column {
    std::size_t width = 0;
    bool isNumeric = true;
};

// UTF-8 characters.
std::size_t WidthOf(const std::string& cell)
{
    return static_cast<std::size_t>(std::ranges::count_if(
        cell, [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

bool IsNumber(const std::string& cell)
{
    return cell.find_first_not_of("0123456789.") == cell.npos;
}

std::vector<Column> ColumnsOf(const std::vector<Row>& rows)
{
    std::vector<Column> columns;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        columns.resize(std::max(columns.size(), rows[i].size()));
        for (std::size_t j = 0; j < rows[i].size(); ++j) {
            columns[j].width = std::max(columns[j].width, WidthOf(rows[i][j]));
            columns[j].isNumeric = columns[j].isNumeric && (i == 0 || IsNumber(rows[i][j]));
        }
    }
    return columns;
}

} // namespace

std::string ColumnsText(const std::vector<Row>& rows)
{
    const std::vector<Column> columns = ColumnsOf(rows);
    std::string text;
    for (const Row& row : rows) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i) {
            const std::string blanks(columns[i].width - WidthOf(row[i]), ' ');
            line += i == 0 ? "" : "  ";
            line += columns[i].isNumeric ? blanks + row[i] : row[i] + blanks;
        }
        line.erase(line.find_last_not_of(' ') + 1);
        text += line + "\n";
    }
    return text;
}

std::vector<std::string> WrappedLines(std::string_view text, std::size_t width)
{
    std::vector<std::string> lines;
    std::istringstream words{std::string(text)};
    std::string line;
    for (std::string word; words >> word;) {
        if (!line.empty() && line.size() + 1 + word.size() > width) {
            lines.push_back(line);
            line.clear();
        }
        line.append(line.empty() ? "" : " ").append(word);
    }
    lines.push_back(line);
    return lines;
}

} // namespace XPJ::Inspection
