#include "xmeml/writer.h"

#include "core/numbers.h"
#include "tree/reading.h"
#include "tree/text_out.h"
#include "tree/value_of.h"
#include "xmeml/elements.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace XPJ {

namespace {

constexpr unsigned kElementsPerCheck = 1024;

// How the audio of a file is written, by its channel type: how many channels an `audio` element
// has, and what it states of them.
struct FileAudioLayout {
    int channelType;
    int channelsPerElement; // 0: one element with all of them
    bool pairLayout;        // two mono elements make a stereo pair
    bool sourceChannel;
};

constexpr FileAudioLayout kFileAudioLayouts[] = {
    {0, 1, false, true},  // mono
    {1, 2, false, false}, // stereo
    {2, 6, false, false}, // 5.1
    {6, 1, true, true},   // stereo as two mono elements
    {7, 0, false, false}, // adaptive
};

// How many rows at the front are written together.
std::size_t MixedCount(std::span<const XmemlField> fields)
{
    std::size_t count = 0;
    while (count < fields.size() && fields[count].kind == FieldKind::Mixed)
        ++count;
    return count;
}

class XmemlWriter {
public:
    XmemlWriter(Progress& progress, std::ostream& output, bool additions)
        : progress_(progress), out_(output), additions_(additions)
    {
    }

    int WriteDocument(ObjectHandle root, bool vl2snMode);

private:
    // An element to be written. Elements nest deeper than a thread's stack allows, so those that
    // are open, and those that are still to be written, are on a stack of these.
    struct Work {
        ObjectHandle node;
        const XmemlElement* element = nullptr;
        int level = 0;
        std::size_t nextField = 0;
        bool isOpen = false;
    };

    bool IsWritten(const FieldUse& use) const
    {
        return use.isWritten && (additions_ || !use.isAddition);
    }

    void WriteWhole(ObjectHandle node, std::string_view element, int level);
    void WriteNext();
    void OpenElement(Work& work);
    void WriteNamed(ObjectHandle node, std::string_view element, int level);
    void WriteAttributes(ObjectHandle node, const XmemlElement& element);
    void WriteAttribute(std::string_view name, std::string_view value);
    void WriteField(ObjectHandle node, const XmemlField& field, int level);
    void WriteMixed(ObjectHandle node, std::span<const XmemlField> fields, int level);
    void WriteByRule(ObjectHandle node, const XmemlField& field, int level);
    void WriteRate(ObjectHandle rate, int level);
    void WriteWholeOrReference(ObjectHandle node, const XmemlField& field, int level);
    void WriteAudioOfFile(ObjectHandle audio, int level);
    void WriteChannel(ObjectHandle audio, const FileAudioLayout& layout, std::int64_t index,
                      int level);
    void WriteLine(Name name, std::string_view value, int level);
    void WriteOptional(ObjectHandle node, Name name, int level);
    void WriteStart(std::string_view tag, int level);
    void WriteEnd(std::string_view tag, int level);
    bool IsCancelled();

    Progress& progress_;
    TextOut out_;
    bool additions_;
    std::vector<Work> work_;
    unsigned elements_ = 0;
    bool cancelled_ = false;
};

void XmemlWriter::WriteStart(std::string_view tag, int level)
{
    out_.WriteTabs(level);
    out_.Write("<", tag, ">\n");
}

void XmemlWriter::WriteEnd(std::string_view tag, int level)
{
    out_.WriteTabs(level);
    out_.Write("</", tag, ">\n");
}

void XmemlWriter::WriteLine(Name name, std::string_view value, int level)
{
    out_.WriteElement(level, name.View(), value);
}

void XmemlWriter::WriteOptional(ObjectHandle node, Name name, int level)
{
    if (const auto value = ValueOf(node, name))
        WriteLine(name, *value, level);
}

// Values are text of elements; the quote that would end an attribute is escaped here.
void XmemlWriter::WriteAttribute(std::string_view name, std::string_view value)
{
    out_.Write(" ", name, "=\"");
    for (std::size_t quote = value.find('"'); quote != value.npos; quote = value.find('"')) {
        out_.WriteValue(value.substr(0, quote));
        out_.Write("&quot;");
        value.remove_prefix(quote + 1);
    }
    out_.WriteValue(value);
    out_.Write("\"");
}

void XmemlWriter::WriteAttributes(ObjectHandle node, const XmemlElement& element)
{
    for (const XmemlAttribute& attribute : element.attributes) {
        if (!IsWritten(attribute.use))
            continue;
        switch (attribute.kind) {
        case AttributeKind::Always:
            WriteAttribute(attribute.name.View(), node.GetProperty(attribute.name));
            break;
        case AttributeKind::Present:
            if (const auto value = ValueOf(node, attribute.name))
                WriteAttribute(attribute.name.View(), *value);
            break;
        case AttributeKind::Equal:
            if (node.GetProperty(attribute.name) == attribute.text)
                WriteAttribute(attribute.name.View(), attribute.text);
            break;
        case AttributeKind::Fixed:
            WriteAttribute(attribute.name.View(), attribute.text);
            break;
        case AttributeKind::List:
            for (const Name& name : attribute.list())
                if (const auto value = ValueOf(node, name))
                    WriteAttribute(name.View(), *value);
            break;
        }
    }
}

bool XmemlWriter::IsCancelled()
{
    if (!cancelled_ && ++elements_ % kElementsPerCheck == 0)
        cancelled_ = progress_.IsCancelled();
    return cancelled_;
}

void XmemlWriter::OpenElement(Work& work)
{
    work.isOpen = true;
    out_.WriteTabs(work.level);
    out_.Write("<", work.element->tag.View());
    WriteAttributes(work.node, *work.element);
    out_.Write(work.element->selfClosed ? "/>\n" : ">\n");
}

// The next step of the innermost element: its start, a field, or its end.
void XmemlWriter::WriteNext()
{
    Work& work = work_.back();
    if (!work.isOpen) {
        if (!IsCancelled())
            OpenElement(work);
        if (cancelled_ || work.element->selfClosed)
            work_.pop_back();
        return;
    }
    if (work.nextField == work.element->fields.size()) {
        WriteEnd(work.element->tag.View(), work.level);
        work_.pop_back();
        return;
    }
    const std::span<const XmemlField> fields = work.element->fields.subspan(work.nextField);
    const std::size_t open = work_.size();
    if (fields.front().kind == FieldKind::Mixed) {
        const std::size_t count = MixedCount(fields);
        work.nextField += count;
        WriteMixed(work.node, fields.first(count), work.level + 1);
    } else {
        ++work.nextField;
        WriteField(work.node, fields.front(), work.level + 1);
    }
    // The elements of the field, of which the first is to be the next.
    std::reverse(work_.begin() + static_cast<std::ptrdiff_t>(open), work_.end());
}

// Writes an element with all that it holds at once, where text of its parent follows.
void XmemlWriter::WriteWhole(ObjectHandle node, std::string_view element, int level)
{
    const std::size_t open = work_.size();
    WriteNamed(node, element, level);
    while (work_.size() > open && !cancelled_)
        WriteNext();
}

// Puts an element on the stack. What no reader would take, because it is nested too deep, is not
// written: `level` is the number of elements around it.
void XmemlWriter::WriteNamed(ObjectHandle node, std::string_view element, int level)
{
    if (!node || level >= kMaxNesting)
        return;
    if (const XmemlElement* const row = FindXmemlElement(element))
        work_.push_back({node, row, level});
}

void XmemlWriter::WriteField(ObjectHandle node, const XmemlField& field, int level)
{
    if (!IsWritten(field.use))
        return;
    switch (field.kind) {
    case FieldKind::Required:
        return WriteLine(field.name, ValueOf(node, field.property).value_or(field.text), level);
    case FieldKind::Leaf:
        return WriteOptional(node, field.name, level);
    case FieldKind::Fixed:
        return WriteLine(field.name, field.text, level);
    case FieldKind::Child:
        return WriteNamed(node.GetChild(field.name), field.element, level);
    case FieldKind::Each:
        for (const ObjectHandle child : node.GetChildren(field.name))
            WriteNamed(child, field.element, level);
        return;
    case FieldKind::Mixed:
        return WriteMixed(node, {&field, 1}, level);
    case FieldKind::Whole:
        return WriteWholeOrReference(node, field, level);
    case FieldKind::LeafBy:
    case FieldKind::ChildBy:
        return WriteByRule(node, field, level);
    }
}

void XmemlWriter::WriteMixed(ObjectHandle node, std::span<const XmemlField> fields, int level)
{
    const ChildRange children = node.GetChildren();
    for (auto child = children.begin(); child != children.end(); ++child)
        for (const XmemlField& field : fields)
            if (IsWritten(field.use) && field.name == child.EntryName())
                WriteNamed(*child, field.element, level);
}

void XmemlWriter::WriteByRule(ObjectHandle node, const XmemlField& field, int level)
{
    switch (field.rule) {
    case XmemlRule::ClipDuration: {
        const auto ofMedia = ValueOf(node.GetChild(Name("media")), field.name);
        const auto own = ValueOf(node, field.name);
        return WriteLine(field.name, ofMedia ? *ofMedia : own.value_or("0"), level);
    }
    case XmemlRule::ClipRate: {
        const ObjectHandle own = node.GetChild(field.name);
        return WriteRate(own ? own : FindPath(node, {"media", "rate"}), level);
    }
    case XmemlRule::RateOrDefault:
        return WriteRate(node.GetChild(field.name), level);
    case XmemlRule::OfOwnFile:
        if (!HasValue(node, "fileid"))
            WriteOptional(FindPath(node, {"file", "media", "video", "samplecharacteristics"}),
                          field.name, level);
        return;
    case XmemlRule::SequenceUnlessFile:
        if (!HasValue(node, "fileid") && !node.HasChild("file"))
            WriteWholeOrReference(node, field, level);
        return;
    case XmemlRule::AudioOfFile:
        return WriteAudioOfFile(node.GetChild(field.name), level);
    }
}

void XmemlWriter::WriteRate(ObjectHandle rate, int level)
{
    if (rate)
        return WriteNamed(rate, "rate", level);
    if (level >= kMaxNesting)
        return;
    WriteStart("rate", level);
    WriteLine("ntsc", "TRUE", level + 1);
    WriteLine("timebase", "30", level + 1);
    WriteEnd("rate", level);
}

void XmemlWriter::WriteWholeOrReference(ObjectHandle node, const XmemlField& field, int level)
{
    if (!HasValue(node, field.reference))
        return WriteNamed(node.GetChild(field.name), field.element, level);
    if (level >= kMaxNesting)
        return;
    out_.WriteTabs(level);
    out_.Write("<", field.name.View());
    WriteAttribute("id", node.GetProperty(field.reference));
    out_.Write("/>\n");
}

void XmemlWriter::WriteAudioOfFile(ObjectHandle audio, int level)
{
    if (!audio || level >= kMaxNesting)
        return;
    const FileAudioLayout* layout = nullptr;
    for (const FileAudioLayout& candidate : kFileAudioLayouts)
        if (HasValue(audio, "channeltype") &&
            candidate.channelType == IntProperty(audio, "channeltype"))
            layout = &candidate;
    const std::int64_t channels = IntProperty(audio, "channelcount");
    std::int64_t count = 1;
    if (layout && layout->channelsPerElement == 1)
        count = channels;
    else if (layout && layout->channelsPerElement > 1)
        count = (channels - 1) / layout->channelsPerElement + 1;

    for (std::int64_t i = 0; i < count && !IsCancelled(); ++i) {
        WriteStart("audio", level);
        WriteWhole(audio.GetChild(Name("samplecharacteristics")), "samplecharacteristics",
                   level + 1);
        if (layout)
            WriteChannel(audio, *layout, i, level + 1);
        WriteEnd("audio", level);
    }
}

void XmemlWriter::WriteChannel(ObjectHandle audio, const FileAudioLayout& layout,
                               std::int64_t index, int level)
{
    const std::int64_t channels = layout.channelsPerElement != 0
                                      ? layout.channelsPerElement
                                      : IntProperty(audio, "channelcount");
    WriteLine("channelcount", IntToString(channels), level);
    if (layout.pairLayout)
        WriteLine("layout", "stereo", level);
    else if (HasValue(audio, "layout"))
        WriteLine("layout", audio.GetProperty("layout"), level);
    if (!layout.sourceChannel || level >= kMaxNesting)
        return;
    WriteStart("audiochannel", level);
    WriteLine("sourcechannel", IntToString(index + 1), level + 1);
    if (layout.pairLayout)
        WriteLine("channellabel", index % 2 == 0 ? "left" : "right", level + 1);
    else if (HasValue(audio, "layout"))
        WriteLine("channellabel", "discrete", level + 1);
    WriteEnd("audiochannel", level);
}

int XmemlWriter::WriteDocument(ObjectHandle root, bool vl2snMode)
{
    StageScope stage(progress_, 1, 3);
    if (!stage.Step())
        return kWriteCancelled;
    out_.Write("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE xmeml>\n"
               "<xmeml version=\"4\">\n");
    if (vl2snMode) {
        WriteStart("importoptions", 1);
        WriteLine("vl2sn", "TRUE", 2);
        WriteEnd("importoptions", 1);
    }
    for (const XmemlField& field : FindXmemlElement("xmeml")->fields) {
        for (const ObjectHandle child : root.GetChildren(field.name))
            if (IsWritten(field.use))
                WriteWhole(child, field.element, 1);
    }
    if (cancelled_ || !stage.Step())
        return kWriteCancelled;
    out_.Write("</xmeml>\n");
    out_.Flush();
    return stage.Step() ? kWriteDone : kWriteCancelled;
}

} // namespace

int WriteFCPXML(ObjectHandle root, Progress& progress, bool vl2snMode, std::ostream& output,
                bool additions)
{
    return XmemlWriter(progress, output, additions).WriteDocument(root, vl2snMode);
}

} // namespace XPJ
