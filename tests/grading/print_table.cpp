// What ReadTable makes of a file, for scripts:  print_table FILE
//
//   1D 3 0 0 0 1 1 1      shape, size, domain
//   3f800000 0 0          red, green and blue of each entry, the bits of a float each
//   3D 2 ...              sub-tables follow
#include "grading/lookup_table.h"

#include <bit>
#include <fstream>
#include <iostream>
#include <sstream>

#include <fmt/format.h>

namespace {

void Print(const XPJ::CZv3DLUT& table)
{
    fmt::print("{} {} {} {} {} {} {} {}\n", table.is3d ? "3D" : "1D", table.size, table.min[0],
               table.min[1], table.min[2], table.max[0], table.max[1], table.max[2]);
    for (const XPJ::LUTEntry& entry : table.entries)
        fmt::print("{:x} {:x} {:x}\n", std::bit_cast<std::uint32_t>(entry.red),
                   std::bit_cast<std::uint32_t>(entry.green),
                   std::bit_cast<std::uint32_t>(entry.blue));
    for (const XPJ::CZv3DLUT& subTable : table.subTables)
        Print(subTable);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2)
        return 64;
    std::ifstream file(argv[1], std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    XPJ::CZvError error;
    const auto table = XPJ::ReadTable(bytes.str(), argv[1], &error);
    if (!table) {
        std::cerr << error.line << ':' << error.column << ": " << error.message << '\n';
        return 1;
    }
    Print(*table);
    return 0;
}
