// A tree made from the table of elements, written, read back and compared: what is lost is what the
// table skips.
#include "gtest/gtest.h"

#include "support/lost_names.h"
#include "support/writer_test_support.h"

#include "tree/reading.h"
#include "xmeml/elements.h"
#include "xmeml/reader.h"
#include "xmeml/writer.h"

#include <algorithm>
#include <set>

namespace XPJ {
namespace {

class XmemlTree {
public:
    XmemlTree(Document& document, Losses& expected) : document_(document), expected_(expected) {}

    ObjectHandle Build(std::string_view elementName)
    {
        const XmemlElement* const element = FindXmemlElement(elementName);
        const ObjectHandle node = document_.NewObject(element->tag);
        open_.push_back(element->name);
        for (const XmemlAttribute& attribute : element->attributes)
            AddAttribute(node, attribute);
        for (const XmemlField& field : element->fields)
            AddField(node, field);
        open_.pop_back();
        return node;
    }

private:
    std::string Text() { return "v" + std::to_string(++count_); }

    // What the reader skips to the letter, by the table.
    void Expect(ObjectHandle node, Name name, const FieldUse& use)
    {
        if (!use.isRead || use.isOpenOnly)
            expected_[node.GetName().Text()].insert(name.Text());
    }

    void AddAttribute(ObjectHandle node, const XmemlAttribute& attribute)
    {
        if (!attribute.use.isWritten)
            return;
        if (attribute.kind == AttributeKind::List) {
            for (const Name& name : attribute.list())
                node.SetProperty(name, Text());
        } else {
            node.SetProperty(attribute.name,
                             attribute.text.empty() ? Text() : std::string(attribute.text));
            Expect(node, attribute.name, attribute.use);
        }
    }

    void AddChild(ObjectHandle node, const XmemlField& field)
    {
        if (std::find(open_.begin(), open_.end(), field.element) != open_.end())
            return;
        Expect(node, field.name, field.use);
        node.AddChild(field.name, Build(field.element));
    }

    void AddField(ObjectHandle node, const XmemlField& field)
    {
        if (!field.use.isWritten)
            return;
        switch (field.kind) {
        case FieldKind::Required:
        case FieldKind::Leaf:
            // A value is a text or a child, never both.
            if (!(field.name == Name("value")) || node.GetName() == Name("valueentry")) {
                node.AddProperty(field.property, Text());
                Expect(node, field.property, field.use);
            }
            break;
        case FieldKind::Fixed:
            node.SetProperty(field.name, field.text);
            break;
        case FieldKind::LeafBy:
            if (field.rule == XmemlRule::ClipDuration)
                node.SetProperty(field.name, Text());
            break;
        case FieldKind::Child:
        case FieldKind::Each:
        case FieldKind::Mixed:
        case FieldKind::Whole:
            AddChild(node, field);
            break;
        case FieldKind::ChildBy:
            if (field.rule == XmemlRule::AudioOfFile)
                AddAudioOfFile(node);
            else if (field.rule != XmemlRule::SequenceUnlessFile)
                AddChild(node, field);
            break;
        }
    }

    // The channel type is read from the number and the layout of the elements.
    void AddAudioOfFile(ObjectHandle media)
    {
        const ObjectHandle audio =
            Make(document_, "audio", {{"channelcount", "1"}, {"channeltype", "0"}},
                 {{"samplecharacteristics", Build("samplecharacteristics")}});
        media.AddChild(audio);
        expected_["audio"].insert("channeltype");
    }

    Document& document_;
    Losses& expected_;
    std::vector<std::string_view> open_;
    int count_ = 0;
};

void Compare(ObjectHandle made, ObjectHandle read, Losses& losses)
{
    const std::string holder(made.GetName().View());
    for (const Property& property : made.Properties())
        if (read.GetProperty(property.name.AsName()) != property.Value())
            losses[holder].insert(std::string(property.NameView()));
    std::set<std::string> seen;
    const ChildRange children = made.GetChildren();
    for (auto child = children.begin(); child != children.end(); ++child) {
        const std::string name(child.EntryName());
        ASSERT_TRUE(seen.insert(name).second);
        const ObjectHandle back = read.GetChild(Name::OfStatic(child.EntryName()));
        if (!back)
            losses[holder].insert(name);
        else
            Compare(*child, back, losses);
    }
}

// The root of what is read into `read`.
ObjectHandle WrittenAndRead(Document& d, ObjectHandle project, Document& read)
{
    SilentProgress progress;
    std::ostringstream text;
    WriteFCPXML(Make(d, "xmeml", {}, {{"project", project}}), progress, false, text);
    ObjectHandle root;
    EXPECT_EQ(ParseFCPXML(read.Store(text.str()), read, root), kReadDone);
    return root;
}

TEST(RoundTrip, Xmeml)
{
    Document d;
    Losses expected;
    const ObjectHandle project = XmemlTree(d, expected).Build("project");
    Document read;
    const ObjectHandle root = WrittenAndRead(d, project, read);
    Losses losses;
    Compare(project, root.GetChild(Name("project")), losses);
    EXPECT_EQ(Print(losses), Print(expected));
}

// A value that is plain text is a property on writing and a child that holds it on reading.
TEST(RoundTrip, PlainValues)
{
    Document d;
    const ObjectHandle keyframe = Make(d, "keyframe", {{"when", "1"}, {"value", "2"}});
    const ObjectHandle parameter = Make(d, "parameter", {{"value", "3"}}, {{"keyframe", keyframe}});
    const ObjectHandle effect = Make(d, "effect", {}, {{"parameter", parameter}});
    const ObjectHandle filter = Make(d, "filter", {}, {{"effect", effect}});
    const ObjectHandle sequence = Make(d, "sequence", {{"id", "s"}}, {{"filter", filter}});
    const ObjectHandle children = Make(d, "children", {}, {{"sequence", sequence}});
    const ObjectHandle project = Make(d, "project", {}, {{"children", children}});
    Document read;
    const ObjectHandle root = WrittenAndRead(d, project, read);
    const ObjectHandle back =
        FindPath(root, {"project", "children", "sequence", "filter", "effect", "parameter"});
    EXPECT_EQ(back.GetChild(Name("value")).GetProperty(Name("value")), "3");
    EXPECT_EQ(FindPath(back, {"keyframe", "value"}).GetProperty(Name("value")), "2");
}

} // namespace
} // namespace XPJ
