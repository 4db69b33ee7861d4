// Objects made from the table of classes, written, read back and compared: a class is one node of
// the same shape before and after, and what is lost is what the table says.
#include "gtest/gtest.h"

#include "support/lost_names.h"
#include "support/writer_test_support.h"

#include "project/classes.h"
#include "project/reader.h"
#include "tree/reading.h"

#include <algorithm>

namespace XPJ {
namespace {

struct Mention {
    Name tag;
    std::string value; // of the property, or `Tag` or `Title` of the object referred to
    FieldUse use;
    Name via = {};
};

void Fill(Document& d, ObjectHandle node, std::span<const BodyRow> rows, std::vector<Mention>& made)
{
    const auto text = [&] { return "v" + std::to_string(made.size()); };
    for (const BodyRow& row : rows) {
        switch (row.kind) {
        case RowKind::Include:
            Fill(d, node, row.rows, made);
            break;
        case RowKind::Value:
            made.push_back({row.tag, text(), row.use});
            node.SetProperty(row.key, made.back().value);
            break;
        case RowKind::Blob:
        case RowKind::SharedBlob:
            made.push_back({row.tag, text(), row.use});
            node.SetProperty(row.tag, made.back().value);
            break;
        case RowKind::PropertyList:
            for (const Name& name : row.list()) {
                made.push_back({name, text(), row.use});
                node.SetProperty(name, made.back().value);
            }
            break;
        case RowKind::Reference:
        case RowKind::ReferenceList:
        case RowKind::Pairs: {
            made.push_back({row.tag, text(), row.use, row.via});
            ObjectHandle owner = node;
            if (!row.via.IsEmpty())
                node.AddChild(row.via, owner = d.NewObject("LinkContainer"));
            owner.AddChild(row.tag, Make(d, "Dependency", {{"Tag", made.back().value}}));
            break;
        }
        case RowKind::GuidReference:
        case RowKind::OptionalGuidReference:
        case RowKind::GuidList:
            made.push_back({row.tag, text(), row.use});
            node.AddChild(
                row.tag,
                Make(d, "Media", {{"uid", made.back().value}, {"Title", made.back().value}}));
            break;
        default:
            break;
        }
    }
}

// True if the node has the property or refers to the object.
bool Holds(ObjectHandle node, const Mention& mention)
{
    if (node.GetProperty(mention.tag) == mention.value)
        return true;
    const ObjectHandle owner = mention.via.IsEmpty() ? node : node.GetChild(mention.via);
    const ObjectHandle child = owner.GetChild(mention.tag);
    return child &&
           child.GetProperty(child.GetName() == Name("Media") ? Name("Title") : Name("Tag")) ==
               mention.value;
}

TEST(RoundTrip, Project)
{
    Losses expected;
    Losses losses;
    for (const ProjectClass& row : ProjectClasses()) {
        if (row.identity == Identity::None)
            continue;
        Document d;
        const ObjectHandle node = d.NewObject(Name::OfStatic(row.name));
        node.SetProperty("uid", "own");
        std::vector<Mention> made;
        Fill(d, node, row.body, made);
        const ObjectHandle holder = Make(d, "AudioTrackInlet", {}, {{"Source", node}});
        std::istringstream text(ProjectText(Make(d, "Document", {}, {{"Holder", holder}})));

        Document read;
        ObjectHandle root;
        ASSERT_EQ(ReadProjectDocument(text, read, root), kReadDone);
        const ObjectHandle back = root.GetChild(Name::OfStatic(row.name));
        const std::string name(row.name);
        EXPECT_EQ(static_cast<bool>(back), row.use.isRead) << name;
        if (!back)
            continue;
        for (const Mention& mention : made) {
            if (!mention.use.isRead)
                expected[name].insert(mention.tag.Text());
            if (!Holds(back, mention))
                losses[name].insert(mention.tag.Text());
        }
    }
    EXPECT_EQ(Print(losses), Print(expected));
}

} // namespace
} // namespace XPJ
