// What an `xmeml` document has beyond its grammar: elements with an id, and references to them.
#include "xmeml/reader.h"

#include "core/numbers.h"
#include "core/text.h"
#include "tree/input.h"
#include "tree/reading.h"
#include "tree/tree_reader.h"
#include "xmeml/grammar.h"

#include <atomic>
#include <optional>

namespace XPJ {

namespace {

constexpr std::size_t kProgressBlock = 1024;

// Self-closed elements with an id: the node of that tag and id, wherever it stands, becomes a child
// of the current node, which keeps the id as a property.
constexpr struct {
    std::string_view rule;
    Name tag;
    Name property;
} kReferences[] = {
    {"xmeml", "sequence", "sequenceid"},
    {"children", "sequence", "sequenceid"},
    {"xmeml", "clip", "clipid"},
    {"children", "clip", "clipid"},
    {"angle", "clip", "clipid"},
    {"clipitem", "file", "fileid"},
    {"clipitem", "sequence", "sequenceid"},
    {"clipitem", "multiclip", "multiclipid"},
    {"track", "clipitem", "clipitemid"},
};

// An element with child nodes is what references of its tag and id lead to.
struct Definition {
    enum NoId {
        NotEntered,
        EnteredUnderNumber, // under a key that no reference names
        GivenNumber,        // which becomes its id as well
    };
    std::string_view tag;
    NoId noId;
    bool firstWins; // a second one is dropped from the table without a word
};

constexpr Definition kDefinitions[] = {
    {"clipitem", Definition::EnteredUnderNumber, false},
    {"clip", Definition::NotEntered, false},
    {"file", Definition::NotEntered, true},
    {"generatoritem", Definition::GivenNumber, false},
    {"multiclip", Definition::NotEntered, false},
    {"sequence", Definition::EnteredUnderNumber, true},
};

// Ids made for elements without one rise over the process's life.
std::string NextId(std::string_view tag)
{
    static std::atomic<int> numbers[std::size(kDefinitions)];
    std::size_t kind = 0;
    while (kDefinitions[kind].tag != tag)
        ++kind;
    return std::string(tag) + "-" + IntToString(++numbers[kind]);
}

class FCPXMLReader final : public TreeReader {
public:
    FCPXMLReader(std::string_view input, Document& document, StageScope* stage)
        : TreeReader(XmemlReadingTable(), input, document, stage), document_(document),
          clipItem_(XmemlReadingTable().FindRule("clipitem")),
          definitions_(XmemlReadingTable().Rules().size())
    {
        for (const Definition& definition : kDefinitions)
            definitions_[XmemlReadingTable().FindRule(definition.tag).index] = &definition;
    }

private:
    bool TakeStart(const Element& current, const StartTag& tag) override
    {
        if (tag.selfClosed)
            return TakeSelfClosed(current, tag);
        // A nested sequence that the document had in full before is a reference as well.
        if (current.rule == &clipItem_ && EqualsIgnoreCase(tag.name, "sequence")) {
            std::string_view id;
            if (GetAttribute(tag.attributes, "id", id) && Ids().Contains("sequence", id))
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
        for (const auto& row : kReferences) {
            std::string_view id;
            if (row.rule == rule && EqualsIgnoreCase(tag.name, row.tag.View()) &&
                GetAttribute(tag.attributes, "id", id) && !id.empty()) {
                Refer(current.node, row.property, row.tag, id);
                return true;
            }
        }
        return false;
    }

    void Refer(ObjectHandle node, Name property, Name tag, std::string_view id)
    {
        node.SetPropertyShared(property, id);
        Ids().AddReference(tag.View(), id, node, tag);
    }

    void TakeEnd(const Element& current, std::string_view tag) override
    {
        const Definition* const definition = definitions_[current.rule->index];
        if (!definition || !EqualsIgnoreCase(tag, definition->tag))
            return;
        Define(*definition, current.node);
        // A file's rate is then found in one place.
        if (definition->tag == "file" && !current.node.HasChild("rate"))
            current.node.AddChild("rate", current.node.GetChild("timecode").GetChild("rate"));
    }

    void Define(const Definition& definition, ObjectHandle node)
    {
        if (!node.HasChildren())
            return;
        std::string_view id = node.GetProperty("id");
        if (id.empty()) {
            if (definition.noId == Definition::NotEntered)
                return;
            id = document_.Store(NextId(definition.tag));
            if (definition.noId == Definition::GivenNumber)
                node.SetPropertyShared("id", id);
        }
        if (definition.firstWins && Ids().Contains(definition.tag, id))
            return;
        Ids().Add(definition.tag, id, node);
    }

    Document& document_;
    const Rule& clipItem_;
    std::vector<const Definition*> definitions_; // by rule
};

} // namespace

int ReadFCPXML(const std::string& path, Progress& progress, Document& document, ObjectHandle& root,
               XmemlReadNotes* notes)
{
    XmemlReadNotes unwanted;
    XmemlReadNotes& told = notes ? *notes : unwanted;
    told = {};
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
    std::string_view bytes;
    if (!file.IsOpen() || !ReadInput(file, document, bytes, step)) {
        if (progress.IsCancelled())
            return kReadCancelled;
        told.stop.reason = ErrorText(file.Error());
        return kReadNoInput;
    }
    const std::string_view text = DecodeInput(bytes, document, told.encoding);
    told.kind = SniffText(text);
    if (!stage && !text.empty())
        stage.emplace(progress, 1, stepsOf(text.size()));
    return FCPXMLReader(text, document, stage ? &*stage : nullptr).Read(root, &told.stop);
}

int ParseFCPXML(std::string_view text, Document& document, ObjectHandle& root, ReadStop* stop)
{
    return FCPXMLReader(text, document, nullptr).Read(root, stop);
}

} // namespace XPJ
