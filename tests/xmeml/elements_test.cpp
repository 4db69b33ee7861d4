#include "xmeml/elements.h"

#include "support/source_literals.h"
#include "xmeml/element_listing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <vector>

namespace XPJ {
namespace {

// With VELA_ACCEPT=1 in the environment the tables in docs/xmeml.md are written anew.
TEST(Elements, AreListedInTheDocumentation)
{
    std::ifstream file(VELA_DOCS "/xmeml.md");
    std::ostringstream content;
    content << file.rdbuf();
    const std::string document = content.str();
    const std::size_t head = document.find("\n### ");
    ASSERT_NE(head, document.npos);
    if (std::getenv("VELA_ACCEPT"))
        std::ofstream(VELA_DOCS "/xmeml.md") << document.substr(0, head) << ElementListing();
    else
        EXPECT_EQ(document.substr(head), ElementListing());
}

struct ReadField {
    std::string element;
    std::string name;
    bool isUsed;
};

// The fields that the reader takes, except those inside elements that are skipped.
std::vector<ReadField> ReadFields()
{
    std::vector<ReadField> fields;
    std::vector<std::string_view> tags = {"root"};
    for (std::size_t i = 0; i < tags.size(); ++i) {
        for (const XmemlElement& element : XmemlElements()) {
            if (element.tag.View() != tags[i])
                continue;
            for (const XmemlAttribute& attribute : element.attributes)
                if (attribute.use.isRead && !attribute.list)
                    fields.push_back(
                        {std::string(element.name), attribute.name.Text(), attribute.use.isUsed});
            for (const XmemlField& field : element.fields) {
                if (!field.use.isRead)
                    continue;
                fields.push_back({std::string(element.name), field.name.Text(), field.use.isUsed});
                if (field.IsChild() && field.use.isUsed &&
                    std::ranges::find(tags, field.name.View()) == tags.end())
                    tags.push_back(field.name.View());
            }
        }
    }
    return fields;
}

// A field that is read is used by a translation, or its row gives the reason. A name is
// all fields of that name.
TEST(Elements, FieldsAreUsedOrSkippedWithAReason)
{
    const Literals used = LiteralsOf({"core", "import", "effects", "dialects", "inspect", "xmeml"},
                                     {"elements.cpp", "element_rows.h", "writer.cpp"});
    const Literals usedByImport = LiteralsOf({"import"}, {"unread_elements.cpp"});
    ASSERT_FALSE(usedByImport.empty());
    const std::vector<ReadField> fields = ReadFields();
    for (const ReadField& field : fields) {
        const bool isUsedElsewhere = std::ranges::any_of(fields, [&field](const ReadField& other) {
            return other.isUsed && other.name == field.name;
        });
        if (field.isUsed) {
            EXPECT_TRUE(used.contains(field.name))
                << field.name << " of " << field.element << " is used by no translation: why?";
        } else if (!isUsedElsewhere) {
            EXPECT_FALSE(usedByImport.contains(field.name))
                << field.name << " of " << field.element << " is used after all";
        }
    }
}

TEST(Elements, WhatIsNotUsedInBothDirectionsHasAReason)
{
    const auto isPlain = [](const FieldUse& use) {
        return use.isRead && use.isUsed && use.isWritten && !use.isOpenOnly;
    };
    for (const XmemlElement& element : XmemlElements()) {
        for (const XmemlField& field : element.fields)
            EXPECT_EQ(field.use.reason.empty(), isPlain(field.use))
                << element.name << " " << field.name.View();
        for (const XmemlAttribute& attribute : element.attributes)
            EXPECT_EQ(attribute.use.reason.empty(), isPlain(attribute.use))
                << element.name << " " << attribute.name.View();
    }
}

} // namespace
} // namespace XPJ
