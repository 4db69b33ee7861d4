#include "inspect/ignored.h"

#include "inspect/compare.h"
#include "inspect_fixture.h"

#include <fstream>
#include <sstream>

namespace XPJ::Inspection {
namespace {

TEST(Ignored, TakesEachNameThatItLists)
{
    std::istringstream names(IgnorableNames());
    int count = 0;
    for (std::string name; std::getline(names, name, ','); ++count)
        EXPECT_TRUE(Ignored().Add(name)) << name;
    EXPECT_GT(count, 30);
    EXPECT_EQ(IgnorableNames().find("bin,"), IgnorableNames().rfind("bin,")); // once for both
    for (const char* unknown : {"", "colour", "Label", "label,path", "labels"})
        EXPECT_FALSE(Ignored().Add(unknown)) << unknown;
}

TEST(Ignored, IsDocumented)
{
    std::ifstream file(VELA_DOCS "/inspecting.md");
    std::ostringstream docs;
    docs << file.rdbuf();
    std::istringstream names(IgnorableNames());
    for (std::string name; std::getline(names >> std::ws, name, ',');)
        EXPECT_NE(docs.str().find("`" + name + "`"), std::string::npos) << name;
}

TEST(Ignored, SkipsSubjectsAndProperties)
{
    const Difference differences[] = {
        {.subject = Subject::Item, .kind = Property::Label},
        {.subject = Subject::Bin},
        {.subject = Subject::BinClip, .kind = Property::Bin},
        {.subject = Subject::Item, .kind = Property::Parameter, .property = "Crop: left"},
    };
    const struct {
        std::vector<const char*> names;
        std::vector<std::size_t> kept; // of the differences
    } rows[] = {
        {{}, {0, 1, 2, 3}},
        {{"label"}, {1, 2, 3}},
        {{"bin"}, {0, 3}},
        {{"bin clip"}, {0, 1, 3}},
        {{" parameter", "clip "}, {1, 2}},
    };
    for (const auto& row : rows) {
        Ignored ignored;
        for (const char* name : row.names)
            EXPECT_TRUE(ignored.Add(name)) << name;
        std::vector<std::size_t> kept;
        for (std::size_t i = 0; i < std::size(differences); ++i)
            if (!ignored.Has(differences[i]))
                kept.push_back(i);
        EXPECT_EQ(kept, row.kept) << &row - rows;
    }
}

} // namespace
} // namespace XPJ::Inspection
