// A look document is a `Gradiva` element, or the body of one. Elements come in any order, names in
// any case; unknown ones are skipped with their contents, except among properties.
#include "grading/look_reader.h"

#include "core/guid.h"
#include "core/numbers.h"
#include "core/text.h"
#include "grading/element_reader.h"
#include "grading/element_writer.h"
#include "grading/look_tables.h"
#include "grading/mask_text.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace XPJ {

namespace {

constexpr std::string_view kRoot = "Gradiva";

// Fields of a layer that are kept as their text.
constexpr std::string_view kLayerTexts[] = {"customname", "visible",    "lockedvisible",
                                            "mask",       "vectormask", "linked"};

// ---- Layers and keyframes

CZvValue ReadValueTree(CZvXMLFile& file)
{
    CZvValue value{.tag = file.TagName(), .text = {}};
    value.text = ReadElement(file, [&](std::string_view) {
        value.children.push_back(ReadValueTree(file));
        return true;
    });
    return value;
}

bool TakeLayerText(CZvXMLFile& file, std::string_view tag, CZvShaderParamStorage& layer)
{
    for (const std::string_view known : kLayerTexts)
        if (EqualsIgnoreCase(tag, known)) {
            SetText(layer.fields, known, ReadText(file));
            return true;
        }
    return false;
}

CZvShaderParamStorage ReadLayer(CZvXMLFile& file)
{
    CZvShaderParamStorage layer;
    ReadElement(file, [&](std::string_view tag) {
        if (EqualsIgnoreCase(tag, "name"))
            layer.name = ReadText(file);
        else if (EqualsIgnoreCase(tag, "opacity"))
            SetText(layer.fields, "opacity", LongNumberText(ParseDouble(ReadText(file))));
        else if (EqualsIgnoreCase(tag, "shadermask"))
            layer.shaderMask = ReadMask(file);
        else if (EqualsIgnoreCase(tag, "parameters"))
            ReadElement(file, [&](std::string_view) {
                layer.parameters.push_back(ReadValueTree(file));
                return true;
            });
        else
            return TakeLayerText(file, tag, layer);
        return true;
    });
    return layer;
}

GradingKeyframe ReadKeyframe(CZvXMLFile& file)
{
    GradingKeyframe keyframe;
    bool isEmpty = true;
    ReadElement(file, [&](std::string_view tag) {
        isEmpty = false;
        if (EqualsIgnoreCase(tag, "time"))
            keyframe.time = ParseDouble(ReadText(file));
        else if (EqualsIgnoreCase(tag, "tween"))
            keyframe.tween = ReadText(file);
        else if (EqualsIgnoreCase(tag, "easein"))
            keyframe.easeIn = ParseDouble(ReadText(file));
        else if (EqualsIgnoreCase(tag, "easeout"))
            keyframe.easeOut = ParseDouble(ReadText(file));
        else if (EqualsIgnoreCase(tag, "selectedlayer"))
            keyframe.selectedLayer = ReadText(file);
        else if (EqualsIgnoreCase(tag, "base"))
            keyframe.base = ReadText(file);
        else if (EqualsIgnoreCase(tag, "shader"))
            keyframe.storage.layers.push_back(ReadLayer(file));
        else
            return false;
        return true;
    });
    if (isEmpty)
        file.Fail(LookMessage::EmptyKeyframeTagInGradingDefinition);
    return keyframe;
}

// ---- Properties

CZvProperty ReadProperty(CZvXMLFile& file)
{
    CZvProperty property;
    ReadElement(file, [&](std::string_view tag) {
        if (EqualsIgnoreCase(tag, "name"))
            property.name = ReadText(file);
        else if (EqualsIgnoreCase(tag, "value"))
            property.value = ReadText(file);
        else if (EqualsIgnoreCase(tag, "weak"))
            property.weak = IsTrueText(ReadText(file));
        else
            file.Fail(LookMessage::UnknownTagInPropertyDefinition);
        return true;
    });
    return property;
}

void ReadProperties(CZvXMLFile& file, CZvPropertyList& list)
{
    ReadElement(file, [&](std::string_view tag) {
        if (!EqualsIgnoreCase(tag, "property"))
            file.Fail(LookMessage::UnknownTagInPropertyListDefinition);
        list.properties.push_back(ReadProperty(file));
        return true;
    });
}

// ---- The body

// Leaves `guid` unchanged if the text is not a GUID.
void ReadGuid(std::string_view text, Guid& guid)
{
    if (text.size() >= 2 && text.front() == '{' && text.back() == '}')
        text = text.substr(1, text.size() - 2);
    const Guid read = StringToGUID(text);
    if (EqualsIgnoreCase(AsString(read), text))
        guid = read;
}

// What has been read of the body of a look.
class BodyReader {
public:
    BodyReader(CZvXMLFile& file, const Guid& guid) : file_(file) { grading_.guid = guid; }

    // False for a tag that the body of a look doesn't have.
    bool Take(std::string_view tag);
    // A layer outside keyframes belongs to one at time 0, which comes where the first such layer
    // is.
    void TakeLooseLayer();
    CGrading Finish() { return std::move(grading_); }

private:
    void TakeName();
    void TakeMask();

    CZvXMLFile& file_;
    CGrading grading_;
    bool hasName_ = false;
    std::optional<std::size_t> looseKeyframe_;
};

bool BodyReader::Take(std::string_view tag)
{
    if (EqualsIgnoreCase(tag, "name"))
        TakeName();
    else if (EqualsIgnoreCase(tag, "version"))
        grading_.version = ParseInt(ReadText(file_));
    else if (EqualsIgnoreCase(tag, "guid"))
        ReadGuid(Trimmed(ReadText(file_)), grading_.guid);
    else if (EqualsIgnoreCase(tag, "keyframe"))
        grading_.animation.keyframes.push_back(ReadKeyframe(file_));
    else if (EqualsIgnoreCase(tag, "properties"))
        ReadProperties(file_,
                       grading_.properties ? *grading_.properties : grading_.properties.emplace());
    else if (EqualsIgnoreCase(tag, "mask"))
        TakeMask();
    else if (EqualsIgnoreCase(tag, "embeddedlut"))
        grading_.externalLUTs.push_back(ReadExternalTable(file_));
    else if (EqualsIgnoreCase(tag, "lut"))
        grading_.embeddedLUTs.push_back(ReadInlineTable(file_));
    else
        return false;
    return true;
}

void BodyReader::TakeLooseLayer()
{
    std::vector<GradingKeyframe>& keyframes = grading_.animation.keyframes;
    if (!looseKeyframe_) {
        looseKeyframe_ = keyframes.size();
        keyframes.emplace_back();
    }
    keyframes[*looseKeyframe_].storage.layers.push_back(ReadLayer(file_));
}

// The first name is the grading's, the second one the animation's.
void BodyReader::TakeName()
{
    std::string& name = hasName_ ? grading_.animation.name : grading_.name;
    name = ReadText(file_);
    hasName_ = true;
}

void BodyReader::TakeMask()
{
    if (grading_.mask)
        file_.Fail(LookMessage::Expected, "one <mask> only");
    grading_.mask = ReadMask(file_);
}

CGrading ReadRootElement(CZvXMLFile& file, const Guid& guid)
{
    BodyReader body(file, guid);
    ReadElement(file, [&](std::string_view tag) { return body.Take(tag); });
    CGrading grading = body.Finish();
    if (grading.externalLUTs.empty()) {
        if (file.Next() != CZvXMLFile::Status::End)
            file.Fail(LookMessage::Expected, "one <Gradiva> only");
        return grading;
    }
    std::string_view tail = file.Rest();
    if (tail.starts_with("\r\n"))
        tail.remove_prefix(2);
    else if (tail.starts_with('\n') || tail.starts_with('\r'))
        tail.remove_prefix(1);
    ReadTableTail(tail, grading);
    return grading;
}

// Behind the first StartTag.
CGrading ReadBodyWithoutRoot(CZvXMLFile& file, const Guid& guid)
{
    // Writing puts a root and a keyframe around its elements.
    file.LimitDepth(CZvXMLFile::kMaxDepth - 2);
    BodyReader body(file, guid);
    const auto take = [&](std::string_view tag) {
        if (!EqualsIgnoreCase(tag, "shader"))
            return body.Take(tag);
        body.TakeLooseLayer();
        return true;
    };
    take(file.TagName());
    ReadElement(file, take);
    return body.Finish();
}

} // namespace

Guid GuidOfBytes(std::string_view bytes)
{
    const Digest digest = DigestOf(bytes);
    Guid guid{};
    std::ranges::copy(digest, guid.begin());
    return guid;
}

CGrading ReadGrading(std::string_view text)
{
    CZvXMLFile file;
    file.Open(text);
    if (file.Next() == CZvXMLFile::Status::End)
        file.Fail(LookMessage::UnexpectedEndOfFileWhileLookingFor, "<Gradiva>");
    const std::string_view tag = file.TagName();
    if (EqualsIgnoreCase(tag, kRoot))
        return ReadRootElement(file, GuidOfBytes(text));
    if (!EqualsIgnoreCase(tag, "keyframe") && !EqualsIgnoreCase(tag, "shader"))
        file.Fail(LookMessage::Expected, "<Gradiva>");
    return ReadBodyWithoutRoot(file, GuidOfBytes(text));
}

} // namespace XPJ
