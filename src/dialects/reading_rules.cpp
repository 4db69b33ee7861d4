// What other writers mean: the rules between the reader and the import.
#include "dialects/dialects.h"
#include "dialects/pass.h"
#include "dialects/reading_times.h"

namespace XPJ {

namespace {

constexpr DialectRule kReadingRules[] = {
    {.name = "timecode as text",
     .seen = "a `timecode` with a `string` and no `frame`",
     .does = "The frame is computed from the text, its rate and `displayformat`.",
     .apply = CountTimecodes},
};

} // namespace

std::span<const DialectRule> ReadingRules()
{
    return kReadingRules;
}

void RestateAsMeant(Document& document, ObjectHandle root, AssumptionList& assumptions)
{
    DialectPass(document, root, assumptions).Run(kReadingRules);
}

} // namespace XPJ
