// Looks and lookup tables: what is measured and how it is printed.
#pragma once

namespace XPJ::Bench {

// A 65-point `.cube`, read and serialised, beside an expat parse of 25 MB; the growth of a look
// from 500 to 2,000 layers.
void PrintLooks(int rounds);

} // namespace XPJ::Bench
