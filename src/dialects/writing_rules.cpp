// What other programs read: the rules between the export and the writer.
#include "dialects/dialects.h"
#include "dialects/pass.h"
#include "dialects/writing_structure.h"

namespace XPJ {

namespace {

constexpr DialectRule kWritingRules[] = {
    {.name = "effects without name",
     .seen = "readers that look effects up by id",
     .does = "An `effect` without name and id is not written.",
     .apply = RemoveNamelessEffects},
    {.name = "channels of mono audio",
     .seen = "readers that go by the layout and the labels of the channels",
     .does =
         "Each channel states `layout` mono and a discrete `channellabel`, as pairs state theirs.",
     .apply = LabelMonoAudio},
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
