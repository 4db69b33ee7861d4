// What a project document has beyond its classes: objects by number or GUID, and references to
// them.
#include "project/reader.h"

#include "project/classes.h"
#include "tree/input.h"
#include "tree/reading.h"
#include "tree/tree_reader.h"

#include <istream>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace XPJ {

namespace {

constexpr std::string_view kNumberType = "IDObject";
constexpr std::string_view kGuidType = "UIDObject";

class ProjectReader final : public TreeReader {
public:
    ProjectReader(std::string_view input, Document& document)
        : TreeReader(ProjectReadingTable(), input, document, nullptr)
    {
    }

    // Bytes that several objects share are stated by one of them; the others name only their hash.
    void ShareBlobs() const
    {
        for (const ObjectHandle node : blobsWithoutBytes_)
            if (const auto found = blobs_.find(node.GetProperty("BinaryHash"));
                found != blobs_.end())
                node.SetPropertyShared("value", found->second);
    }

private:
    bool TakeStart(const Element& current, const StartTag& tag) override
    {
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
            current.node.SetPropertyShared("ProjectRef", number);
            return true;
        }
        return false;
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
        SetBinaryHash(node, tag.attributes);
    }

    void TakeComplete(const Element& element) override
    {
        std::string_view id;
        if (GetAttribute(element.attributes, "ObjectID", id)) {
            Ids().Add(kNumberType, id, element.node);
        } else if (GetAttribute(element.attributes, "ObjectUID", id)) {
            Ids().Add(kGuidType, id, element.node);
            element.node.SetPropertyShared("UIDObject", id);
        }
        SetBinaryHash(element.node, element.attributes);
        if (element.rule->tag == "StartKeyframeValue")
            KeepBlob(element.node);
    }

    void KeepBlob(ObjectHandle node)
    {
        if (!HasValue(node, "BinaryHash"))
            return;
        if (HasValue(node, "value"))
            blobs_.try_emplace(node.GetProperty("BinaryHash"), node.GetProperty("value"));
        else
            blobsWithoutBytes_.push_back(node);
    }

    static void SetBinaryHash(ObjectHandle node, std::string_view attributes)
    {
        std::string_view hash;
        if (GetAttribute(attributes, "BinaryHash", hash))
            node.SetPropertyShared("BinaryHash", hash);
    }

    std::unordered_map<std::string_view, std::string_view> blobs_; // by hash, the first of each
    std::vector<ObjectHandle> blobsWithoutBytes_;
};

} // namespace

int ParseProjectDocument(std::string_view text, Document& document, ObjectHandle& root,
                         ReadStop* stop)
{
    ProjectReader reader(text, document);
    const int result = reader.Read(root, stop);
    reader.ShareBlobs();
    return result;
}

int ReadProjectDocument(std::istream& input, Document& document, ObjectHandle& root,
                        ReadNotes* notes)
{
    ReadNotes unused;
    ReadNotes& found = notes ? *notes : unused;
    found = {};
    root = {};
    if (!input.good()) {
        found.stop.reason = "the stream can't be read";
        return kReadNoInput;
    }
    const std::string_view text = DecodeInput(ReadInput(input, document), document, found.encoding);
    return ParseProjectDocument(text, document, root, &found.stop);
}

} // namespace XPJ
