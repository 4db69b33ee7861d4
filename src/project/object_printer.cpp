#include "project/object_printer.h"

#include "core/numbers.h"
#include "core/text.h"
#include "tree/node_dump.h"
#include "tree/value_of.h"

#include <algorithm>
#include <iostream>
#include <stdexcept>
#include <string>

namespace XPJ {

namespace {

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

} // namespace

void ObjectPrinter::WriteLine(Name tag, std::string_view value)
{
    out_.WriteElement(level_, tag.View(), value);
}

void ObjectPrinter::WriteValue(Name tag, std::string_view value, ObjectHandle node)
{
    if (value.empty() && tag == std::string_view("ID"))
        withoutId_.push_back(node);
    WriteLine(tag, value);
}

void ObjectPrinter::WriteBody(std::span<const BodyRow> rows, ObjectHandle node)
{
    for (const BodyRow& row : rows)
        WriteRow(row, node);
}

void ObjectPrinter::WriteRow(const BodyRow& row, ObjectHandle node)
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

void ObjectPrinter::WriteReferences(const BodyRow& row, ObjectHandle node)
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

void ObjectPrinter::WritePair(const BodyRow& row, ObjectHandle child, std::uint64_t index,
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

void ObjectPrinter::WriteGuidReference(const BodyRow& row, ObjectHandle node)
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

void ObjectPrinter::WriteGuidList(const BodyRow& row, ObjectHandle node)
{
    std::uint64_t index = 0;
    for (const ObjectHandle child : node.GetChildren(row.tag)) {
        out_.WriteTabs(level_);
        out_.Write("<", row.tag.View(), " Index=\"");
        out_.WriteNumber(index++);
        out_.Write("\" ObjectURef=\"", objects_.GuidOf(child), "\" />\n");
    }
}

void ObjectPrinter::WriteBlob(const BodyRow& row, ObjectHandle node)
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

void ObjectPrinter::WriteAudioLayout(const BodyRow& row, ObjectHandle node)
{
    if (const auto layout = ValueOf(node, row.tag))
        WriteLine(row.tag, *layout);
    else if (node.HasProperty("ChannelType"))
        WriteLine(row.tag, AudioLayoutOf(node));
    else
        WriteLine(row.tag, R"({"SerializerWrappedObject":[{"channellabel":0}]})");
}

void ObjectPrinter::WriteMarkerRecord(const BodyRow& row, ObjectHandle node)
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
        const std::string_view guid = objects_.ColorGuidOf(node);
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

void ObjectPrinter::WriteObject(ObjectHandle node)
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

void ObjectPrinter::PrintHead(ObjectHandle document, bool sn2vlMode)
{
    if (sn2vlMode)
        out_.Write("__Sn2Vl__\n");
    out_.Write("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<VelaData Version=\"3\">\n");
    WriteBody(DocumentBody(), document);
}

void ObjectPrinter::Print(std::span<const ObjectHandle> objects)
{
    for (const ObjectHandle node : objects)
        WriteObject(node);
}

void ObjectPrinter::WriteTo(std::ostream& output)
{
    for (const ObjectHandle node : withoutId_) {
        std::cout << " WARNING: XML tag had an ID attribute but no value (this will likely "
                     "cause the project to fail to load)\n";
        DumpNode(std::cout, node);
    }
    withoutId_.clear();
    output.write(out_.Text().data(), static_cast<std::streamsize>(out_.Text().size()));
    out_.Clear();
}

} // namespace XPJ
