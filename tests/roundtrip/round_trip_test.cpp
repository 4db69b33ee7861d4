#include "inspect/compare.h"
#include "inspect/timeline_text.h"
#include "roundtrip/losses.h"
#include "roundtrip/passes.h"

#include <set>
#include <sstream>

#include <gtest/gtest.h>

namespace XPJ {
namespace {

// "changed V1 00:00:04:00 clip "A": out 10 (...) -> 11 (...)", with its sequence in front.
std::string LineOf(const Inspection::Difference& difference)
{
    std::istringstream text(Inspection::DifferencesText({difference}));
    std::string sequence;
    std::string line;
    std::getline(text, sequence);
    std::getline(text, line);
    return sequence + ": " + line.substr(line.find_first_not_of(' '));
}

// Differences that aren't listed, and entries of the list that nothing needs.
void ExpectOnly(std::span<const Loss> losses, Inspection::Project Passes::*before,
                Inspection::Project Passes::*after)
{
    static const std::vector<Passes> all = PassesOfAllDocuments();
    std::set<const Loss*> met;
    for (const Passes& passes : all)
        for (const auto& difference : Inspection::Compare(passes.*before, passes.*after)) {
            const std::string line = LineOf(difference);
            const Loss* const loss = FindLoss(losses, passes.document, line);
            EXPECT_TRUE(loss) << passes.document << ": " << line;
            met.insert(loss);
        }
    for (const Loss& loss : losses)
        EXPECT_TRUE(met.contains(&loss)) << "no longer lost: " << loss.document << ": "
                                         << loss.difference << " (" << loss.why << ")";
}

TEST(RoundTrip, ProjectsComeBackButForWhatIsListed)
{
    ExpectOnly(LossesOfProjects(), &Passes::project, &Passes::returnedProject);
}

TEST(RoundTrip, DocumentsDoNotDriftFromPassToPass)
{
    ExpectOnly(LossesOfSecondPass(), &Passes::xmeml, &Passes::returnedXmeml);
}

} // namespace
} // namespace XPJ
