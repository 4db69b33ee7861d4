// What an `xmeml` document has beyond its elements: ids, and references to them.
#include "xmeml/reader.h"

#include "core/numbers.h"
#include "core/text.h"
#include "tree/input.h"
#include "tree/reading.h"
#include "tree/tree_reader.h"
#include "xmeml/attributes.h"
#include "xmeml/elements.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <vector>

namespace XPJ {

namespace {

constexpr std::size_t kProgressBlock = 1024;

// What references of an element kind lead to, and where such elements may be referred to.
struct Referable {
    const XmemlElement* element = nullptr;
    const Definition* definition = nullptr; // null for an element without id
    std::vector<const XmemlField*> fields;
};

// By rule.
std::vector<Referable> ReferablesOf(const ReadingTable& table, ReadingManner manner)
{
    std::vector<Referable> referables(table.Rules().size());
    for (const Rule& rule : table.Rules()) {
        const XmemlElement& element = *FindXmemlElement(rule.name);
        Referable& referable = referables[rule.index];
        referable.element = &element;
        referable.definition = element.definition;
        for (const XmemlField& field : element.fields)
            if (IsReadIn(manner, field.use) && !field.reference.IsEmpty())
                referable.fields.push_back(&field);
    }
    return referables;
}

class FCPXMLReader final : public TreeReader {
public:
    FCPXMLReader(std::string_view input, Document& document, StageScope* stage,
                 ReadingManner manner)
        : TreeReader(XmemlReadingTable(manner), input, document, stage,
                     manner == ReadingManner::Open ? TagRules::Xml : TagRules::Letter),
          document_(document), referables_(ReferablesOf(Table(), manner))
    {
    }

    std::vector<IgnoredElements> IgnoredAttributes() const { return attributes_.List(); }

private:
    bool HasLines(Name item) const override
    {
        constexpr Name kNotes[] = {"comment",        "description",    "lognote",
                                   "mastercomment1", "mastercomment2", "mastercomment3",
                                   "mastercomment4", "clipcommenta",   "clipcommentb"};
        return std::ranges::find(kNotes, item) != std::end(kNotes);
    }
    void TakeAttributes(const Element& current, const StartTag& tag, bool isOpen) override
    {
        if (tag.action.kind == Action::Ignore)
            return;
        const bool isNode = tag.action.kind == Action::Child;
        attributes_.Take(
            {.tag = tag.name,
             .attributes = tag.attributes,
             .element = isNode ? referables_[tag.action.rule].element : nullptr,
             .node = current.node.UniqueId()},
            [&] { return isOpen ? OpenPath() : OpenPath().append("/").append(tag.name); });
    }

    bool TakeStart(const Element& current, const StartTag& tag) override
    {
        if (tag.selfClosed)
            return TakeSelfClosed(current, tag);
        // A nested sequence that the document had in full before is a reference as well.
        if (current.rule->name == "clipitem" && EqualsIgnoreCase(tag.name, "sequence")) {
            std::string_view id;
            if (FindAttribute(tag.attributes, "id", id) && Ids().Contains("sequence", id))
                Refer(current.node, "sequenceid", "sequence", id);
        }
        return false;
    }

    bool TakeSelfClosed(const Element& current, const StartTag& tag)
    {
        const std::string_view rule = current.rule->name;
        if (rule == "media" && EqualsIgnoreCase(tag.name, "media")) {
            SetAttributes(*current.rule, tag.attributes, current.node);
            return true;
        }
        if ((rule == "bin" || rule == "project") && EqualsIgnoreCase(tag.name, "children"))
            return true;
        for (const XmemlField* field : referables_[current.rule->index].fields) {
            std::string_view id;
            if (EqualsIgnoreCase(tag.name, field->name.View()) &&
                FindAttribute(tag.attributes, "id", id) && !id.empty()) {
                Refer(current.node, field->reference, field->name, id);
                return true;
            }
        }
        return false;
    }

    void Refer(ObjectHandle node, Name property, Name tag, std::string_view id)
    {
        node.SetProperty(property, id);
        Ids().AddReference(tag, id, node, tag);
    }

    void TakeEnd(const Element& current, std::string_view tag) override
    {
        const Definition* const definition = referables_[current.rule->index].definition;
        if (!definition || !EqualsIgnoreCase(tag, current.rule->tag.View()))
            return;
        Define(*definition, current.rule->tag, current.node);
        // So a file's rate is always its own child.
        if (current.rule->name == "file" && !current.node.HasChild("rate"))
            current.node.AddChild("rate", current.node.GetChild("timecode").GetChild("rate"));
    }

    void Define(const Definition& definition, Name tag, ObjectHandle node)
    {
        if (!node.HasChildren())
            return;
        std::string_view id = node.GetProperty("id");
        if (id.empty()) {
            if (definition.noId == Definition::NotEntered)
                return;
            id = document_.Store(std::string(tag.View()) + "-" +
                                 IntToString(++*definition.lastNumber));
            if (definition.noId == Definition::GivenNumber)
                node.SetPropertyShared("id", id);
        }
        if (definition.firstWins && Ids().Contains(tag, id))
            return;
        Ids().Add(tag, id, node);
    }

    Document& document_;
    std::vector<Referable> referables_;
    UnknownAttributes attributes_;
};

} // namespace

int ReadFCPXML(const std::string& path, Progress& progress, Document& document, ObjectHandle& root,
               XmemlReadNotes* notes, ReadingManner manner)
{
    XmemlReadNotes unused;
    XmemlReadNotes& found = notes ? *notes : unused;
    found = {};
    root = {};
    CoreFile file;
    file.StopWhen([&progress] { return progress.IsCancelled(); });
    file.Open(path, false);
    const auto stepsOf = [](std::size_t bytes) { return bytes / kProgressBlock + 1; };
    std::optional<StageScope> stage;
    if (const std::size_t size = file.Size(); size > 0)
        stage.emplace(progress, 1, 2 * stepsOf(size));
    const auto step = [&stage, &progress](std::size_t bytes) {
        constexpr std::size_t kRest = kProgressBlock - 1;
        return stage ? stage->Step(static_cast<unsigned>((bytes + kRest) / kProgressBlock))
                     : !progress.IsCancelled();
    };
    InputText input;
    if (!file.IsOpen() || !input.Read(file, step)) {
        if (progress.IsCancelled())
            return kReadCancelled;
        found.stop.reason = ErrorText(file.Error());
        return kReadNoInput;
    }
    const std::string_view text = input.Decode(found.encoding);
    found.kind = SniffText(text);
    if (!stage && !text.empty())
        stage.emplace(progress, 1, stepsOf(text.size()));
    FCPXMLReader reader(text, document, stage ? &*stage : nullptr, manner);
    const int result = reader.Read(root, &found.stop);
    found.ignored = reader.Ignored();
    std::ranges::move(reader.IgnoredAttributes(), std::back_inserter(found.ignored));
    return result;
}

int ParseFCPXML(std::string_view text, Document& document, ObjectHandle& root, ReadStop* stop,
                ReadingManner manner)
{
    return FCPXMLReader(text, document, nullptr, manner).Read(root, stop);
}

} // namespace XPJ
