#include "project/object_printer.h"

#include "core/channel_types.h"
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
    constexpr int kMostChannels = 1024;
    const int channels = std::clamp(IntProperty(clip, "NumChannels"), 1, kMostChannels);
    return ChannelLayoutText(ChannelTypeOf(IntProperty(clip, "ChannelType")).type, channels);
}

} // namespace

void ObjectPrinter::WriteSteps(std::span<const WriteStep> steps, ObjectHandle node)
{
    properties_.Take(node);
    for (const WriteStep& step : steps)
        WriteStepOf(step, node);
}

void ObjectPrinter::WriteStepOf(const WriteStep& step, ObjectHandle node)
{
    switch (step.kind) {
    case RowKind::Fixed:
        return out_.Write(step.before);
    case RowKind::FixedIf:
        if (properties_.Find(step.name))
            out_.Write(step.before);
        return;
    case RowKind::FixedUnless:
        if (!properties_.Find(step.name))
            out_.Write(step.before);
        return;
    case RowKind::Value:
        return WriteValue(step, node);
    case RowKind::Reference:
    case RowKind::ReferenceList:
    case RowKind::Pairs:
        return WriteReferences(step, node);
    case RowKind::GuidReference:
    case RowKind::OptionalGuidReference:
        return WriteGuidReference(step, node);
    case RowKind::GuidList:
        return WriteGuidList(step, node);
    case RowKind::Blob:
    case RowKind::SharedBlob:
        return WriteBlob(step, node);
    case RowKind::AudioLayout:
        return WriteAudioLayout(step, node);
    case RowKind::MarkerRecord:
        return out_.WriteValue(step.before, MarkerRecordOf(node), step.after);
    default:
        return; // is part of a fixed text
    }
}

void ObjectPrinter::WriteValue(const WriteStep& step, ObjectHandle node)
{
    const Property* const property = properties_.Find(step.name);
    if (!property) {
        if (!step.row->text.empty())
            out_.WriteValue(step.before, step.row->text, step.after);
        return;
    }
    if (property->valueSize == 0 && step.row->kind == RowKind::Value && step.row->tag == "ID")
        withoutId_.push_back(node);
    out_.WriteValue(step.before, property->Value(), step.after);
}

void ObjectPrinter::WriteReferences(const WriteStep& step, ObjectHandle node)
{
    std::uint64_t index = 0;
    ForEachNumbered(step, node, [&](ObjectHandle child) {
        const std::uint32_t number = objects_.NumberOf(child);
        if (number == 0)
            return;
        out_.Write(step.before);
        if (step.kind == RowKind::ReferenceList) {
            out_.WriteNumber(index++);
            out_.Write("\" ObjectRef=\"");
        } else if (step.kind == RowKind::Pairs) {
            out_.WriteNumber(index++);
            out_.Write("\">\n");
            const int level = step.level + 1;
            out_.WriteElement(level, "First",
                              ValueOf(child, step.row->key).value_or(step.row->text));
            out_.WriteTabs(level);
            out_.Write("<Second ObjectRef=\"");
        }
        out_.WriteNumber(number);
        out_.Write(step.after);
    });
}

void ObjectPrinter::WriteGuidReference(const WriteStep& step, ObjectHandle node)
{
    if (const ObjectHandle child = FirstChild(node, step.name))
        out_.Write(step.before, objects_.GuidOf(child), step.after);
    else if (step.kind == RowKind::GuidReference)
        throw std::logic_error("WriteSubObjectURef(): NULL object");
}

void ObjectPrinter::WriteGuidList(const WriteStep& step, ObjectHandle node)
{
    std::uint64_t index = 0;
    ForEachChild(node, step.name, [&](ObjectHandle child) {
        out_.Write(step.before);
        out_.WriteNumber(index++);
        out_.Write("\" ObjectURef=\"", objects_.GuidOf(child), step.after);
    });
}

void ObjectPrinter::WriteBlob(const WriteStep& step, ObjectHandle node)
{
    const std::string_view data = node.GetProperty(step.row->tag);
    if (!data.empty())
        out_.Write(step.before, node.GetProperty(step.row->key), "\">", data, step.after);
    else if (step.kind == RowKind::SharedBlob)
        out_.Write(step.before, "\"/>\n");
}

void ObjectPrinter::WriteAudioLayout(const WriteStep& step, ObjectHandle node)
{
    if (const Property* const layout = properties_.Find(step.name))
        out_.WriteValue(step.before, layout->Value(), step.after);
    else if (node.HasProperty("ChannelType"))
        out_.WriteValue(step.before, AudioLayoutOf(node), step.after);
    else
        out_.WriteValue(step.before, R"({"SerializerWrappedObject":[{"channellabel":0}]})",
                        step.after);
}

std::string ObjectPrinter::MarkerRecordOf(ObjectHandle node) const
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
    return record;
}

void ObjectPrinter::WriteObject(ObjectHandle node)
{
    const ClassText& text = objects_.TextOf(node);
    out_.Write(text.beforeId);
    if (text.projectClass->identity == Identity::Number)
        out_.WriteNumber(objects_.NumberOf(node));
    else
        out_.Write(objects_.GuidOf(node));
    out_.Write(text.afterId);
    if (text.projectClass->classId.empty())
        out_.Write(node.GetProperty("classid"));
    out_.Write(text.afterClassId);
    WriteSteps(text.steps, node);
    out_.Write(text.end);
}

void ObjectPrinter::PrintHead(ObjectHandle document, bool sn2vlMode)
{
    if (sn2vlMode)
        out_.Write("__Sn2Vl__\n");
    out_.Write("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<VelaData Version=\"3\">\n");
    WriteSteps(objects_.DocumentSteps(), document);
}

void ObjectPrinter::Print(std::span<const ObjectHandle> objects)
{
    // Objects are not in the order of their memory, so one that is needed soon is fetched.
    constexpr std::size_t kAhead = 4;
    for (std::size_t i = 0; i < objects.size(); ++i) {
        if (i + kAhead < objects.size())
            __builtin_prefetch(objects[i + kAhead].Get());
        WriteObject(objects[i]);
    }
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
