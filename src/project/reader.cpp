// What a project document has beyond its classes: objects by number or GUID, and references to
// them.
#include "project/reader.h"

#include "core/text_hash.h"
#include "project/classes.h"
#include "project/unused_fields.h"
#include "tree/input.h"
#include "tree/reading.h"
#include "tree/tree_reader.h"

#include <istream>
#include <string_view>
#include <vector>

namespace XPJ {

namespace {

constexpr Name kNumberType = "IDObject";
constexpr Name kGuidType = "UIDObject";
constexpr Name kBlob = "StartKeyframeValue";

class ProjectReader final : public TreeReader {
public:
    ProjectReader(std::string_view input, Document& document)
        : TreeReader(ProjectReadingTable(), input, document, nullptr)
    {
    }

    // What needs the whole document.
    void Finish() const
    {
        BindPairs();
        ShareBlobs();
    }

private:
    // What the table of classes writes and doesn't read is always the same, or its row states why.
    bool IsListed(std::string_view tag) const override { return !IsKnownProjectTag(tag); }

    bool TakeStart(const Element& current, const StartTag& tag) override
    {
        if (tag.action.kind == Action::Child)
            NotePart(current.node, Table().RuleAt(tag.action.rule));
        if (!tag.selfClosed)
            return false;
        if (tag.action.kind == Action::Reference) {
            Refer(current.node, tag);
            return true;
        }
        // The pointer to the top object.
        std::string_view number;
        if (current.rule->tag == "VelaData" && tag.name == "Project" &&
            GetAttribute(tag.attributes, "ObjectRef", number)) {
            current.node.SetProperty("ProjectRef", number);
            return true;
        }
        return false;
    }

    static void NotePart(ObjectHandle node, const Rule& rule)
    {
        if (rule.nodeKind == NodeKind::Part && !rule.key.IsEmpty())
            node.SetPropertyShared(rule.key, {});
    }

    // The target is entered under the tag of the reference; its node's name is its class.
    void Refer(ObjectHandle node, const StartTag& tag)
    {
        const Name childName = Table().TagName(Table().FindTag(tag.name));
        std::string_view value;
        if (GetAttribute(tag.attributes, "ObjectRef", value))
            Ids().AddReference(kNumberType, value, node, childName);
        else if (GetAttribute(tag.attributes, "ObjectURef", value))
            Ids().AddReference(kGuidType, value, node, childName);
    }

    void TakeComplete(const Element& element, ObjectHandle parent) override
    {
        std::string_view id;
        if (element.rule->nodeKind == NodeKind::Detached) {
            pairs_.push_back({*element.rule, element.node, parent});
        } else if (GetAttribute(element.attributes, "ObjectID", id)) {
            Ids().Add(kNumberType, id, element.node);
        } else if (GetAttribute(element.attributes, "ObjectUID", id)) {
            Ids().Add(kGuidType, id, element.node);
            element.node.SetProperty("uid", id);
        }
        KeepBlob(element.node);
    }

    void KeepBlob(ObjectHandle node)
    {
        if (!HasValue(node, "BinaryHash"))
            return;
        if (HasValue(node, kBlob))
            blobs_.try_emplace(node.GetProperty("BinaryHash"), node.GetProperty(kBlob));
        else
            blobsWithoutBytes_.push_back(node);
    }

    // Bytes that several objects share are stated by one of them; the others name only their hash.
    void ShareBlobs() const
    {
        for (const ObjectHandle node : blobsWithoutBytes_)
            if (const auto found = blobs_.find(node.GetProperty("BinaryHash"));
                found != blobs_.end())
                node.SetPropertyShared(kBlob, found->second);
    }

    // The entries of a list of pairs are the objects themselves, each with what the pair states.
    void BindPairs() const
    {
        for (const Pair& pair : pairs_) {
            const ObjectHandle object = pair.node.GetChild("Second");
            CopyProperty(pair.node, "First", object, pair.rule.key);
            pair.owner.AddChild(pair.rule.tag, object);
        }
    }

    struct Pair {
        const Rule& rule;
        ObjectHandle node;
        ObjectHandle owner;
    };

    std::vector<Pair> pairs_;
    TextMap<std::string_view> blobs_; // by hash, the first of each
    std::vector<ObjectHandle> blobsWithoutBytes_;
};

int Parse(std::string_view text, Document& document, ObjectHandle& root, ReadNotes& notes)
{
    ProjectReader reader(text, document);
    const int result = reader.Read(root, &notes.stop);
    notes.ignored = reader.Ignored();
    reader.Finish();
    return result;
}

} // namespace

int ParseProjectDocument(std::string_view text, Document& document, ObjectHandle& root,
                         ReadStop* stop)
{
    ReadNotes notes;
    const int result = Parse(text, document, root, notes);
    if (stop != nullptr)
        *stop = std::move(notes.stop);
    return result;
}

int ReadProjectDocument(std::istream& input, Document& document, ObjectHandle& root,
                        ReadNotes* notes)
{
    ReadNotes unused;
    ReadNotes& found = notes ? *notes : unused;
    if (!input.good()) {
        root = {};
        found = {};
        found.stop.reason = "the stream can't be read";
        return kReadNoInput;
    }
    InputText text;
    text.Read(input);
    return ReadProjectText(text, document, root, found);
}

int ReadProjectText(InputText& text, Document& document, ObjectHandle& root, ReadNotes& notes)
{
    notes = {};
    root = {};
    return Parse(text.Decode(notes.encoding), document, root, notes);
}

} // namespace XPJ
