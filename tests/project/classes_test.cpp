#include "project/classes.h"

#include "support/source_literals.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace XPJ {
namespace {

// A row that names a field. Parts count as soon as a field in them does, and the children of pairs
// and of a list by GUID are used whatever their name.
bool IsField(RowKind kind)
{
    return kind != RowKind::Part && kind != RowKind::Wrapper && kind != RowKind::End &&
           kind != RowKind::Include && kind != RowKind::PropertyList && kind != RowKind::Pairs &&
           kind != RowKind::GuidList;
}

template <class Use>
void ForEachField(std::span<const BodyRow> rows, Use use)
{
    for (const BodyRow& row : rows) {
        ForEachField(row.rows, use);
        if (IsField(row.kind) && !row.list)
            use(row);
    }
}

// A field that is read is used by a translation, or its row gives the reason. A name is
// all fields of that name.
TEST(Classes, FieldsAreUsedOrSkippedWithAReason)
{
    const Literals used =
        LiteralsOf({"core", "export", "effects", "inspect", "project"},
                   {"class_rows.h", "classes.cpp", "class_rules.cpp", "writer.cpp"});
    const Literals usedByExport = LiteralsOf({"export"}, {"unread_objects.cpp"});
    ASSERT_FALSE(usedByExport.empty());
    Literals read;
    for (const ProjectClass& row : ProjectClasses())
        if (row.use.isRead)
            ForEachField(row.body, [&read](const BodyRow& field) {
                if (field.use.isRead && field.use.isUsed)
                    read.emplace(field.tag.View());
            });
    for (const ProjectClass& row : ProjectClasses()) {
        if (!row.use.isRead)
            continue;
        ForEachField(row.body, [&](const BodyRow& field) {
            if (field.kind == RowKind::ReadPart)
                return;
            const std::string name(field.tag.View());
            if (field.use.isRead && field.use.isUsed) {
                EXPECT_TRUE(used.contains(name))
                    << name << " of " << row.name << " is used by no translation: why?";
            } else if (field.use.isRead && !read.contains(name)) {
                EXPECT_FALSE(usedByExport.contains(name))
                    << name << " of " << row.name << " is used after all";
            }
        });
    }
}

TEST(Classes, WhatIsNotUsedInBothDirectionsHasAReason)
{
    const auto isPlain = [](const FieldUse& use) {
        return use.isRead && use.isUsed && use.isWritten;
    };
    for (const ProjectClass& row : ProjectClasses()) {
        EXPECT_EQ(row.use.reason.empty(), isPlain(row.use)) << row.name;
        ForEachField(row.body, [&](const BodyRow& field) {
            EXPECT_EQ(field.use.reason.empty(), isPlain(field.use))
                << row.name << " " << field.tag.View();
        });
    }
}

} // namespace
} // namespace XPJ
