#include "tree/object.h"
#include "tree/property_table.h"

#include <array>
#include <cstddef>
#include <string>

#include <fmt/format.h>
#include <gtest/gtest.h>

namespace XPJ {
namespace {

std::string TextOf(ConstHandle node)
{
    std::string text;
    for (const Property& property : node.Properties())
        text.append(property.NameView()).append("=").append(property.Value()).append(";");
    return text;
}

TEST(Object, PropertiesAreSetOrAdded)
{
    Document document;
    const ObjectHandle node = document.NewObject("clip");
    std::string value = "A";
    node.SetProperty("name", value);
    node.AddProperty("name", "B");
    value = "changed";
    EXPECT_EQ(node.GetProperty("name"), "A");
    node.SetProperty("name", "C");
    node.AddProperty("in", "");
    EXPECT_EQ(node.GetProperty("name"), "C");
    EXPECT_TRUE(node.HasProperty("in"));
    EXPECT_FALSE(HasValue(node, "in"));
    EXPECT_EQ(IntProperty(node, "in", -1), -1);
    // Removing the last one must leave a list that can be appended to.
    node.RemoveProperty("in");
    node.RemoveProperty("none");
    node.AddProperty("out", "5");
    EXPECT_EQ(IntProperty(node, "out", -1), 5);
    EXPECT_FALSE(node.HasProperty("in"));
}

TEST(Object, PropertiesOfANewNodeAreOrdinaryOnes)
{
    Document document;
    const ObjectHandle node =
        document.NewObject("clip", {{"name", "A"}, {"in", document.StoreNumber(-12)}});
    node.SetProperty("name", "B");
    node.SetNumber("out", 250);
    EXPECT_EQ(TextOf(node), "name=B;in=-12;out=250;");
    EXPECT_FALSE(document.NewObject("clip", {}).HasProperties());
}

// Neighbours in memory or apart, in every combination of four.
TEST(Object, PropertiesKeepTheirOrderWhereverTheyLie)
{
    const std::array<Name, 4> names{"a", "b", "c", "d"};
    for (unsigned apart = 0; apart < 16; ++apart)
        for (std::size_t removed = 0; removed < names.size(); ++removed) {
            Document document;
            const ObjectHandle node = document.NewObject("clip");
            std::string expected;
            for (std::size_t i = 0; i < names.size(); ++i) {
                if (apart >> i & 1)
                    document.NewObject("rate");
                node.SetNumber(names[i], static_cast<int>(i));
                if (i != removed)
                    expected.append(names[i].View()).append(fmt::format("={};", i));
            }
            node.RemoveProperty(names[removed]);
            EXPECT_EQ(TextOf(node), expected) << apart << " without " << removed;
            node.SetProperty("e", "5");
            EXPECT_EQ(TextOf(node), expected + "e=5;") << apart << " without " << removed;
        }
}

TEST(Object, ChildrenMayBeSharedRemovedAndAppendedWhileWalked)
{
    Document document;
    const ObjectHandle parent = document.NewObject("track");
    const ObjectHandle a = document.NewObject("clipitem");
    const ObjectHandle b = document.NewObject("clipitem");
    parent.AddChild(a);
    parent.AddChild("alias", a);
    parent.AddChild(b);
    parent.AddChild(ObjectHandle());
    EXPECT_EQ(parent.GetChild("alias"), a);
    int count = 0;
    for (const ObjectHandle& child : parent.GetChildren("clipitem")) {
        if (++count == 1)
            parent.AddChild(child);
    }
    EXPECT_EQ(count, 3);
    EXPECT_TRUE(parent.RemoveChild(a));
    EXPECT_EQ(parent.GetChild("clipitem"), b);
    EXPECT_TRUE(parent.RemoveChild(a));
    EXPECT_TRUE(parent.RemoveChild(a));
    EXPECT_FALSE(parent.RemoveChild(a));
    parent.AddChild("last", a);
    EXPECT_EQ(parent.GetChild("last"), a);
}

TEST(Object, NullHandlesReadEmptyAndTakeWrites)
{
    const ObjectHandle null;
    null.SetProperty("name", "A");
    null.AddChild(null);
    EXPECT_EQ(null.GetProperty("name"), "");
    EXPECT_FALSE(FindPath(null, {"media", "video"}));
    EXPECT_EQ(null.UniqueId(), 0u);
    for (const ObjectHandle& child : null.GetChildren())
        EXPECT_TRUE(child);
}

TEST(Object, AdoptedTextsStayInPlace)
{
    Document document;
    const std::string_view first = document.Adopt("short");
    for (int i = 0; i < 100; ++i)
        document.Adopt(std::to_string(i));
    EXPECT_EQ(first, "short");
}

TEST(Object, TextsOutliveFreedNodes)
{
    Document source;
    Document result;
    const ObjectHandle copy = result.NewObject("VideoClip");
    {
        const ObjectHandle node = source.NewObject("clip");
        node.SetProperty("name", "Slate");
        copy.SetPropertyShared("Name", node.GetProperty("name"));
    }
    source.FreeNodes();
    EXPECT_EQ(copy.GetProperty("Name"), "Slate");
    EXPECT_EQ(source.NodeCount(), 1u) << "progress goes by it";
    EXPECT_EQ(source.NewObject("clip").GetName(), "clip");
}

TEST(PropertyTable, HasThoseOfTheLastNodeAlone)
{
    Document document;
    const ObjectHandle first = document.NewObject("clip");
    first.SetProperty("name", "Slate");
    first.SetProperty("duration", "");
    const ObjectHandle second = document.NewObject("clip");
    second.SetProperty("name", "Board");

    PropertyTable table;
    EXPECT_EQ(table.Find(NameId("name")), nullptr);
    table.Take(first);
    ASSERT_NE(table.Find(NameId("duration")), nullptr) << "empty, but there";
    EXPECT_EQ(table.Find(NameId("name"))->Value(), "Slate");
    EXPECT_EQ(table.Find(NameId("a name that no node has")), nullptr);
    table.Take(second);
    EXPECT_EQ(table.Find(NameId("duration")), nullptr);
    EXPECT_EQ(table.Find(NameId("name"))->Value(), "Board");
    table.Take({});
    EXPECT_EQ(table.Find(NameId("name")), nullptr);
}

TEST(NodeSet, TakesNodesInAnyOrder)
{
    Document document;
    std::vector<ObjectHandle> nodes(1000);
    for (ObjectHandle& node : nodes)
        node = document.NewObject("x");
    NodeSet set;
    EXPECT_FALSE(set.Contains(nodes[0]));
    for (std::size_t i = 0; i < nodes.size(); ++i)
        EXPECT_TRUE(set.Insert(nodes[i * 617 % 1000])) << i;
    for (const ObjectHandle& node : nodes) {
        EXPECT_TRUE(set.Contains(node));
        EXPECT_FALSE(set.Insert(node));
    }
    EXPECT_FALSE(set.Contains(document.NewObject("y")));
    set.Clear();
    EXPECT_FALSE(set.Contains(nodes[5]));
    EXPECT_TRUE(set.Insert(nodes[5]));
}

} // namespace
} // namespace XPJ
