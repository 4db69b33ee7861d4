// A tree as a project document: a flat list of objects, first those with a number, then those with
// a GUID, each mentioned by others through its number or GUID.
#include "project/writer.h"

#include "core/numbers.h"
#include "core/text.h"
#include "platform/platform.h"
#include "project/classes.h"
#include "tree/node_dump.h"
#include "tree/node_table.h"
#include "tree/text_out.h"
#include "tree/value_of.h"

#include <algorithm>
#include <iostream>
#include <optional>
#include <stdexcept>
#include <string>
#include <unordered_map>
#include <vector>

namespace XPJ {

namespace {

constexpr unsigned kObjectsPerCheck = 256;

// Under this name a part of the other document's tree is entered.
constexpr std::string_view kForeignChild = "fcpmasterclip";

// What the writer knows of a node.
struct NodeRecord {
    const ProjectClass* projectClass = nullptr;
    std::uint32_t number = 0; // 0: not mentioned by number
    bool visited = false;
};

// Calls `use` for each child that a row mentions by number.
template <class Use>
void ForEachNumbered(const BodyRow& row, ObjectHandle node, Use use)
{
    if (row.kind == RowKind::Reference) {
        if (const ObjectHandle child = node.GetChild(row.tag))
            use(child);
    } else if (row.kind == RowKind::ReferenceList || row.kind == RowKind::Pairs) {
        const ObjectHandle owner = row.via.IsEmpty() ? node : node.GetChild(row.via);
        for (const ObjectHandle child : owner.GetChildren(row.tag))
            use(child);
    }
}

// All objects in the order in which they are written.
class ObjectList {
public:
    // Numbers the objects below `document`, children before parents.
    void Collect(ObjectHandle document);

    // 0 for a node that is no numbered object.
    std::uint32_t NumberOf(ObjectHandle node) { return records_[node].number; }
    // The `uid`, or a GUID that is generated for a node without one and kept for this document.
    std::string_view GuidOf(ObjectHandle node);

    const std::vector<ObjectHandle>& Numbered() const { return numbered_; }
    const std::vector<ObjectHandle>& WithGuid() const { return withGuid_; }
    const ProjectClass& ClassOf(ObjectHandle node) { return *records_[node].projectClass; }

private:
    struct Visit {
        ObjectHandle node;
        ChildRange::Iterator next;
    };

    std::optional<Visit> Enter(ObjectHandle node);
    void Leave(ObjectHandle node);
    void NumberChildren(std::span<const BodyRow> rows, ObjectHandle node);

    NodeTable<NodeRecord> records_;
    std::vector<ObjectHandle> numbered_; // the object numbered N is at N - 1
    std::vector<ObjectHandle> withGuid_;
    std::unordered_map<std::uint64_t, std::string> freshGuids_;
};

std::optional<ObjectList::Visit> ObjectList::Enter(ObjectHandle node)
{
    NodeRecord& record = records_[node];
    if (record.visited)
        return std::nullopt;
    record.visited = true;
    record.projectClass = FindProjectClass(node.GetName().View());
    return Visit{node, node.GetChildren().begin()};
}

void ObjectList::Leave(ObjectHandle node)
{
    const ProjectClass* const projectClass = records_[node].projectClass;
    if (!projectClass)
        return;
    NumberChildren(projectClass->body, node);
    if (projectClass->identity == Identity::GuidText)
        withGuid_.push_back(node);
}

// A child of a class without numbered objects gets none, so that no reference leads nowhere.
void ObjectList::NumberChildren(std::span<const BodyRow> rows, ObjectHandle node)
{
    for (const BodyRow& row : rows) {
        if (row.kind == RowKind::Include)
            NumberChildren(row.rows, node);
        ForEachNumbered(row, node, [this](ObjectHandle child) {
            NodeRecord& record = records_[child];
            if (record.number != 0 || !record.projectClass ||
                record.projectClass->identity != Identity::Number)
                return;
            numbered_.push_back(child);
            record.number = static_cast<std::uint32_t>(numbered_.size());
        });
    }
}

// Items lead to sequences that hold items of the same sequence, so nodes are marked on the way
// down.
void ObjectList::Collect(ObjectHandle document)
{
    std::vector<Visit> path;
    if (const auto visit = Enter(document))
        path.push_back(*visit);
    while (!path.empty()) {
        Visit& visit = path.back();
        if (visit.next != ChildRange(nullptr).end()) {
            const ObjectHandle child = *visit.next;
            const bool foreign = visit.next.EntryName() == kForeignChild;
            ++visit.next;
            if (foreign)
                continue;
            if (const auto inner = Enter(child))
                path.push_back(*inner);
        } else {
            Leave(visit.node);
            path.pop_back();
        }
    }
    NumberChildren(DocumentBody(), document);
}

std::string_view ObjectList::GuidOf(ObjectHandle node)
{
    const std::string_view uid = node.GetProperty(Name("uid"));
    if (!uid.empty())
        return uid;
    std::string& fresh = freshGuids_[node.UniqueId()];
    if (fresh.empty())
        fresh = NewGuidText();
    return fresh;
}

struct JsonEscape {
    char character;
    std::string_view text;
};

constexpr JsonEscape kJsonEscapes[] = {
    {'"', "\\\""}, {'\\', "\\\\"}, {'\n', "\\n"}, {'\r', "\\r"},
    {'\t', "\\t"}, {'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"},
};

// A string inside the JSON record, itself text of an element: what the entities of the tree's value
// stand for is escaped for JSON first, so that a reader may decode them before it parses.
std::string JsonText(std::string_view value)
{
    static constexpr char kHex[] = "0123456789abcdef";
    std::string text;
    for (const char c : UnescapeXML(value)) {
        const auto byte = static_cast<unsigned char>(c);
        const auto* const escape =
            std::find_if(std::begin(kJsonEscapes), std::end(kJsonEscapes),
                         [c](const JsonEscape& candidate) { return candidate.character == c; });
        if (escape != std::end(kJsonEscapes))
            text += escape->text;
        else if (byte < 0x20)
            text.append("\\u00").append({kHex[byte >> 4], kHex[byte & 15]});
        else
            text += c;
    }
    return text;
}

std::string_view MarkerType(std::string_view type)
{
    if (type.empty())
        return "Comment";
    if (type == "Sequence" || type == "ML.SequenceMarker.Chapter")
        return "Chapter";
    return type;
}

// Layout of an audio clip that states only its channel type.
std::string AudioLayoutOf(ObjectHandle clip)
{
    constexpr int kStereo = 1;
    constexpr int kSurround = 2;
    constexpr int kMostChannels = 1024;
    std::string layout = R"({"SerializerWrappedObject":[)";
    const int type = IntProperty(clip, "ChannelType");
    const int count = std::clamp(IntProperty(clip, "NumChannels"), 1, kMostChannels);
    if (type == kStereo || (type != kSurround && count == 2)) {
        layout += R"({"channellabel":100},{"channellabel":101})";
    } else if (type == kSurround) {
        layout += R"({"channellabel":100},{"channellabel":101},{"channellabel":104},)"
                  R"({"channellabel":105},{"channellabel":102},{"channellabel":103})";
    } else {
        for (int i = 0; i < count; ++i)
            layout += i == 0 ? R"({"channellabel":0})" : R"(,{"channellabel":0})";
    }
    return layout + "]}";
}

class ProjectWriter {
public:
    explicit ProjectWriter(std::ostream& output) : out_(output) {}

    int Write(ObjectHandle document, Progress& progress, bool sn2vlMode);

private:
    bool WriteNumbered(Progress& progress);
    void WriteObject(ObjectHandle node);
    void WriteBody(std::span<const BodyRow> rows, ObjectHandle node);
    void WriteRow(const BodyRow& row, ObjectHandle node);
    void WriteReferences(const BodyRow& row, ObjectHandle node);
    void WritePair(const BodyRow& row, ObjectHandle child, std::uint64_t index,
                   std::uint32_t number);
    void WriteGuidReference(const BodyRow& row, ObjectHandle node);
    void WriteGuidList(const BodyRow& row, ObjectHandle node);
    void WriteBlob(const BodyRow& row, ObjectHandle node);
    void WriteAudioLayout(const BodyRow& row, ObjectHandle node);
    void WriteMarkerRecord(const BodyRow& row, ObjectHandle node);
    void WriteLine(Name tag, std::string_view value);
    void WriteValue(Name tag, std::string_view value, ObjectHandle node);

    TextOut out_;
    ObjectList objects_;
    int level_ = 1;
};

void ProjectWriter::WriteLine(Name tag, std::string_view value)
{
    out_.WriteElement(level_, tag.View(), value);
}

void ProjectWriter::WriteValue(Name tag, std::string_view value, ObjectHandle node)
{
    if (value.empty() && tag == std::string_view("ID")) {
        std::cout << " WARNING: XML tag had an ID attribute but no value (this will likely "
                     "cause the project to fail to load)\n";
        DumpNode(std::cout, node);
    }
    WriteLine(tag, value);
}

void ProjectWriter::WriteBody(std::span<const BodyRow> rows, ObjectHandle node)
{
    for (const BodyRow& row : rows)
        WriteRow(row, node);
}

void ProjectWriter::WriteRow(const BodyRow& row, ObjectHandle node)
{
    switch (row.kind) {
    case RowKind::Part:
    case RowKind::Member:
    case RowKind::Wrapper:
        out_.WriteTabs(level_++);
        out_.Write("<", row.tag.View(), " Version=\"");
        out_.WriteNumber(row.version);
        return out_.Write("\">\n");
    case RowKind::End:
        out_.WriteTabs(--level_);
        return out_.Write("</", row.tag.View(), ">\n");
    case RowKind::Include:
        return WriteBody(row.rows, node);
    case RowKind::Fixed:
        return WriteLine(row.tag, row.text);
    case RowKind::FixedIf:
        if (node.HasProperty(row.key))
            WriteLine(row.tag, row.text);
        return;
    case RowKind::FixedUnless:
        if (!node.HasProperty(row.tag))
            WriteLine(row.tag, row.text);
        return;
    case RowKind::Value:
        if (const auto value = ValueOf(node, row.key))
            WriteValue(row.tag, *value, node);
        return;
    case RowKind::PropertyList:
        for (const Name& name : row.list())
            if (const auto value = ValueOf(node, name))
                WriteLine(name, *value);
        return;
    case RowKind::Reference:
    case RowKind::ReferenceList:
    case RowKind::Pairs:
        return WriteReferences(row, node);
    case RowKind::GuidReference:
    case RowKind::OptionalGuidReference:
        return WriteGuidReference(row, node);
    case RowKind::GuidList:
        return WriteGuidList(row, node);
    case RowKind::Blob:
    case RowKind::SharedBlob:
        return WriteBlob(row, node);
    case RowKind::AudioLayout:
        return WriteAudioLayout(row, node);
    case RowKind::MarkerRecord:
        return WriteMarkerRecord(row, node);
    case RowKind::ReadLeaf:
    case RowKind::ReadPart:
        return;
    }
}

void ProjectWriter::WriteReferences(const BodyRow& row, ObjectHandle node)
{
    std::uint64_t index = 0;
    ForEachNumbered(row, node, [&](ObjectHandle child) {
        const std::uint32_t number = objects_.NumberOf(child);
        if (number == 0)
            return;
        if (row.kind == RowKind::Pairs)
            return WritePair(row, child, index++, number);
        out_.WriteTabs(level_);
        out_.Write("<", row.tag.View());
        if (row.kind == RowKind::ReferenceList) {
            out_.Write(" Index=\"");
            out_.WriteNumber(index++);
            out_.Write("\"");
        }
        out_.Write(" ObjectRef=\"");
        out_.WriteNumber(number);
        out_.Write("\"/>\n");
    });
}

void ProjectWriter::WritePair(const BodyRow& row, ObjectHandle child, std::uint64_t index,
                              std::uint32_t number)
{
    out_.WriteTabs(level_++);
    out_.Write("<", row.tag.View(), " Version=\"1\" Index=\"");
    out_.WriteNumber(index);
    out_.Write("\">\n");
    WriteLine("First", ValueOf(child, row.key).value_or(row.text));
    out_.WriteTabs(level_);
    out_.Write("<Second ObjectRef=\"");
    out_.WriteNumber(number);
    out_.Write("\"/>\n");
    out_.WriteTabs(--level_);
    out_.Write("</", row.tag.View(), ">\n");
}

void ProjectWriter::WriteGuidReference(const BodyRow& row, ObjectHandle node)
{
    const ObjectHandle child = node.GetChild(row.tag);
    if (!child) {
        if (row.kind == RowKind::OptionalGuidReference)
            return;
        throw std::logic_error("WriteSubObjectURef(): NULL object");
    }
    out_.WriteTabs(level_);
    out_.Write("<", row.tag.View(), " ObjectURef=\"", objects_.GuidOf(child), "\"/>\n");
}

void ProjectWriter::WriteGuidList(const BodyRow& row, ObjectHandle node)
{
    std::uint64_t index = 0;
    for (const ObjectHandle child : node.GetChildren(row.tag)) {
        out_.WriteTabs(level_);
        out_.Write("<", row.tag.View(), " Index=\"");
        out_.WriteNumber(index++);
        out_.Write("\" ObjectURef=\"", objects_.GuidOf(child), "\" />\n");
    }
}

void ProjectWriter::WriteBlob(const BodyRow& row, ObjectHandle node)
{
    const std::string_view data = node.GetProperty(row.tag);
    if (data.empty() && row.kind == RowKind::Blob)
        return;
    out_.WriteTabs(level_);
    out_.Write("<", row.tag.View(), " Encoding=\"base64\" Checksum=\"");
    if (data.empty())
        return out_.Write("\"/>\n");
    out_.Write(node.GetProperty(row.key), "\">", data, "</", row.tag.View(), ">\n");
}

void ProjectWriter::WriteAudioLayout(const BodyRow& row, ObjectHandle node)
{
    if (const auto layout = ValueOf(node, row.tag))
        WriteLine(row.tag, *layout);
    else if (node.HasProperty("ChannelType"))
        WriteLine(row.tag, AudioLayoutOf(node));
    else
        WriteLine(row.tag, R"({"SerializerWrappedObject":[{"channellabel":0}]})");
}

void ProjectWriter::WriteMarkerRecord(const BodyRow& row, ObjectHandle node)
{
    const auto ticks = [node](Name key) {
        const std::string_view value = node.GetProperty(key);
        return value.empty() ? std::string_view("0") : value;
    };
    std::string record = R"({"HULMarker":{)";
    const auto add = [&record](auto... texts) { ((record += texts), ...); };
    if (const auto comment = ValueOf(node, "Comment"))
        add(R"("mComment":")", JsonText(*comment), R"(",)");
    if (const auto color = ValueOf(node, "Color")) {
        const std::string guid = NewGuidText();
        add(R"("mCuePointList":[{"mKey":"marker_guid","mValue":")", guid,
            R"("},{"mKey":"keywordExtHULv1_)", guid, R"(","mValue":"{\"color\":)", JsonText(*color),
            R"(}"}],)");
    }
    add(R"("mDuration":{"ticks":)", ticks("Duration"), "},");
    if (const auto name = ValueOf(node, "Name"))
        add(R"("mName":")", JsonText(*name), R"(",)");
    add(R"("mStartTime":{"ticks":)", ticks("StartTime"), R"(},"mType":")",
        JsonText(MarkerType(node.GetProperty(Name("Type")))), R"("}})");

    out_.WriteTabs(level_);
    out_.Write("<", row.tag.View(), ">");
    out_.WriteValue(record);
    out_.Write("</", row.tag.View(), ">\r\n");
}

void ProjectWriter::WriteObject(ObjectHandle node)
{
    const ProjectClass& projectClass = objects_.ClassOf(node);
    out_.WriteTabs(level_++);
    out_.Write("<", projectClass.name);
    if (projectClass.identity == Identity::Number) {
        out_.Write(" ObjectID=\"");
        out_.WriteNumber(objects_.NumberOf(node));
    } else {
        out_.Write(" ObjectUID=\"", objects_.GuidOf(node));
    }
    out_.Write("\" ClassID=\"",
               projectClass.classId.empty() ? node.GetProperty(Name("classid"))
                                            : projectClass.classId,
               "\" Version=\"");
    out_.WriteNumber(projectClass.version);
    out_.Write("\">\n");
    WriteBody(projectClass.body, node);
    out_.WriteTabs(--level_);
    out_.Write("</", projectClass.name, ">\n");
}

// False when cancelled.
bool ProjectWriter::WriteNumbered(Progress& progress)
{
    StageScope stage(progress, 1, objects_.Numbered().size());
    unsigned pending = 0;
    for (const ObjectHandle node : objects_.Numbered()) {
        WriteObject(node);
        if (++pending == kObjectsPerCheck) {
            if (!stage.Step(pending))
                return false;
            pending = 0;
        }
    }
    return stage.Step(pending);
}

int ProjectWriter::Write(ObjectHandle document, Progress& progress, bool sn2vlMode)
{
    StageScope stage(progress, 1, 3);
    objects_.Collect(document);
    if (!stage.Step())
        return kWriteCancelled;

    if (sn2vlMode)
        out_.Write("__Sn2Vl__\n");
    out_.Write("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<VelaData Version=\"3\">\n");
    WriteBody(DocumentBody(), document);
    if (!WriteNumbered(progress) || !stage.Step())
        return kWriteCancelled;

    for (const ObjectHandle node : objects_.WithGuid())
        WriteObject(node);
    out_.Write("</VelaData>\n");
    out_.Flush();
    return stage.Step() ? kWriteDone : kWriteCancelled;
}

} // namespace

int WriteProjectDocument(ObjectHandle document, Progress& progress, std::ostream& output,
                         bool sn2vlMode)
{
    return ProjectWriter(output).Write(document, progress, sn2vlMode);
}

} // namespace XPJ
