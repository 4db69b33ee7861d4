// What other programs read: the rules between the export and the writer.
#include "dialects/dialects.h"
#include "dialects/generators.h"
#include "dialects/pass.h"
#include "dialects/writing_structure.h"

namespace XPJ {

namespace {

constexpr DialectRule kWritingRules[] = {
    // ---- Generated video
    {.name = "generated video",
     .seen = "any reader; a file without a path stops some, and a slug has no text",
     .does = "A `generatoritem` of the effect that others know: a title is a Text, Lower 3rd, "
             "Scrolling Text or Crawl with its words, black video is a Slug, a matte is a Color. "
             "The effects of a graphic, filters, markers and labels are written with it. Bars and "
             "tone stay a file.",
     .file = "export/generators.cpp"},
    {.name = "styles of written titles",
     .seen = "the published examples: plain, bold, italic and both count from 1",
     .does = "`fontstyle` has those numbers.",
     .apply = WriteTitleStyles},

    {.name = "effects without name",
     .seen = "readers that look effects up by id",
     .does = "An `effect` without name and id is not written.",
     .apply = RemoveNamelessEffects},
};

} // namespace

std::span<const DialectRule> WritingRules()
{
    return kWritingRules;
}

void RestateForOthers(Document& document, ObjectHandle root, AssumptionList& assumptions)
{
    DialectPass(document, root, assumptions).Run(kWritingRules);
}

} // namespace XPJ
